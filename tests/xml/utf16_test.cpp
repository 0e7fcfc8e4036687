// Texts as the SAX service hands them on.
#include "platform/expat/utf16.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using steprt::TruncateToBytes;
using steprt::Utf16Buffer;

const std::pair<std::string, std::u16string> kTexts[] = {
    {"", u""},
    {"a", u"a"},
    {"abcdefgh", u"abcdefgh"},
    {"abcdefghi", u"abcdefghi"},
    {"\x7f\xc2\x80\xdf\xbf", u"\x7f\x80\u07ff"},
    {"\xe0\xa0\x80\xef\xbf\xbf", u"\u0800\uffff"},
    {"\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", u"\U00010000\U0010ffff"},
    {"abcdefg\xc3\xa9hijklmnop\xe2\x82\xac", u"abcdefg\u00e9hijklmnop\u20ac"},
};

TEST(Utf16, CharactersOfEveryLengthAndStartsOfTexts) {
  Utf16Buffer room;
  for (const auto& [utf8, utf16] : kTexts) {
    EXPECT_EQ(room.Put(utf8), utf16) << utf8;
    for (std::size_t limit = 0; limit < 12; ++limit) {
      EXPECT_EQ(room.PutStart(utf8.c_str(), limit), std::u16string_view(utf16).substr(0, limit)) << utf8;
    }
  }
}

TEST(Utf16, AStartEndsBetweenTwoCharacters) {
  const std::string text = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80";
  const std::size_t sizes[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
  for (std::size_t limit = 0; limit < std::size(sizes); ++limit) {
    EXPECT_EQ(TruncateToBytes(text, limit).size(), sizes[limit]) << limit;
  }
}

}  // namespace
