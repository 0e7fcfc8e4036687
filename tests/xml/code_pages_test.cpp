// The code pages that a document may declare, each byte of them held against the system's own tables.
#include "platform/expat/code_pages.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <cstddef>

namespace {

// The character that a byte is in a page, or the byte itself where the page has none.
int CharacterBySystem(iconv_t converter, int byte) {
  char from = static_cast<char>(byte);
  char* source = &from;
  std::size_t left = 1;
  wchar_t character = 0;
  char* target = reinterpret_cast<char*>(&character);
  std::size_t space = sizeof character;
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  if (iconv(converter, &source, &left, &target, &space) == static_cast<std::size_t>(-1)) return byte;
  return static_cast<int>(character);
}

TEST(CodePages, AreThoseOfTheSystem) {
  for (const char* name : {"windows-1250", "windows-1251", "windows-1252", "ISO-8859-2", "ISO-8859-5", "ISO-8859-15"}) {
    const iconv_t converter = iconv_open("WCHAR_T", name);
    ASSERT_NE(converter, reinterpret_cast<iconv_t>(-1)) << name;
    XML_Encoding encoding = {};
    ASSERT_EQ(steprt::DescribeCodePage(nullptr, name, &encoding), XML_STATUS_OK) << name;
    for (int byte = 0; byte < 256; ++byte) {
      EXPECT_EQ(encoding.map[byte], CharacterBySystem(converter, byte)) << name << ", byte " << byte;
    }
    iconv_close(converter);
  }
}

}  // namespace
