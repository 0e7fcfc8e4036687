// Texts between UTF-8 and the encoded form of a file: each directive, what is malformed or no character, that nothing
// is lost on the way there and back, and the time that the worst texts take.
#include "steprt/encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/failing_new.h"

namespace {

using namespace std::string_literals;
using steprt::DecodeText;
using steprt::EncodeText;
using steprt::TextFaults;

struct Row {
  std::string from;
  std::string to;
  std::size_t malformed = 0;
  std::size_t replaced = 0;
};

void Check(std::string (*convert)(std::string_view, TextFaults*), const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    TextFaults faults;
    EXPECT_EQ(convert(row.from, &faults), row.to) << row.from;
    EXPECT_EQ(faults.malformed, row.malformed) << row.from;
    EXPECT_EQ(faults.replaced, row.replaced) << row.from;
    EXPECT_EQ(faults.None(), row.malformed + row.replaced == 0) << row.from;
  }
}

TEST(Encoding, WritesAsciiAsItIsAndAllElseInDirectives) {
  Check(EncodeText, {{"", ""},
                     {" it's $5 ~", " it's $5 ~"},
                     {R"(C:\X2\00E9)", R"(C:\\X2\\00E9)"},
                     {"a\x01\tb\n\x7F", R"(a\X\01\X\09b\X\0A\X\7F)"},
                     {"\0"s, R"(\X\00)"},
                     {"\u00C4\u00FF!", R"(\X\C4\X\FF!)"},
                     {"\u0100", R"(\X2\0100\X0\)"},
                     {"\u0142\u00F3\nd\u017A\u00E9", R"(\X2\014200F3000A\X0\d\X2\017A00E9\X0\)"},
                     {"\u20AC\\\uFFFF", R"(\X2\20AC\X0\\\\X2\FFFF\X0\)"},
                     {"\U00010000\U0010FFFF", R"(\X4\000100000010FFFF\X0\)"},
                     {"\u00E9\U0001F600\u00E9\u4E2D", R"(\X\E9\X4\0001F600\X0\\X\E9\X2\4E2D\X0\)"},
                     {"\uFFFD", R"(\X2\FFFD\X0\)"}});
}

// A row of bytes that could begin a character is replaced as one.
TEST(Encoding, ReplacesWhatIsNoUtf8) {
  const std::string mark = "\uFFFD";
  const struct {
    std::string bytes;
    std::size_t replaced;
  } rows[] = {{"\x80", 1},
              {"\xBF\xBF", 2},
              {"\xC0\x80", 2},
              {"\xC1\xBF", 2},
              {"\xC2", 1},
              {"\xE0\x9F\xBF", 3},
              {"\xE2\x82", 1},
              {"\xED\xA0\x80", 3},
              {"\xED\xBF\xBF", 3},
              {"\xEF\xBF", 1},
              {"\xF0\x8F\xBF\xBF", 4},
              {"\xF0\x90\x80", 1},
              {"\xF4\x90\x80\x80", 4},
              {"\xF5\x80\x80\x80", 4},
              {"\xFE\xFF", 2},
              {"\xC3\xC3", 2},
              {"\xE2\x82\xE2\x82", 2}};
  for (const auto& row : rows) {
    std::string marks;
    for (std::size_t i = 0; i < row.replaced; ++i) marks += mark;
    // A character before it and one after it stay.
    Check(EncodeText, {{"\u00E9" + row.bytes + "z", EncodeText("\u00E9" + marks + "z"), 0, row.replaced}});
    Check(DecodeText, {{"\u00E9" + row.bytes + "z", "\u00E9" + marks + "z", 0, row.replaced}});
  }
}

TEST(Encoding, ReadsEachDirective) {
  Check(DecodeText, {{"", ""},
                     {R"(a\\b\\)", R"(a\b\)"},
                     {R"(\\X\\41)", R"(\X\41)"},
                     {R"(\X\E9\X\e9\X\41\X\0A\X\27x)", "\u00E9\u00E9A\n'x"},
                     {R"(\X\00)", "\0"s},
                     {R"(\X2\20ac\X0\\X2\00E90041\X0\)", "\u20AC\u00E9A"},
                     {R"(\X2\005C0027\X0\S\i)", R"(\'S\i)", 1},
                     {R"(\X4\0001f60000000041\X0\0)", "\U0001F600A0"},
                     {R"(\S\i\S\ \S\~\S\'\S\\!)", "\u00E9\u00A0\u00FE\u00A7\u00DC!"},
                     {R"(\PB\\S\#\PA\\S\#)", "\u0141\u00A3"},
                     {R"(\PE\a\X\E9\S\0)", "a\u00E9\u0410"},
                     {"raw \u00E9\u4E2D\U0001F600\t'", "raw \u00E9\u4E2D\U0001F600\t'"}});
  EXPECT_EQ(DecodeText(R"(\S\0)"), "\u00B0") << "the alphabet of a text before is over";
}

TEST(Encoding, LeavesAMalformedDirectiveAsItIs) {
  const struct {
    const char* text;
    std::size_t malformed;
  } rows[] = {
      {R"(\)", 1},          {R"(C:\Temp)", 1},   {R"(\n\)", 2},      {R"(\x2\0041)", 2},       {R"(\X)", 1},
      {R"(\X\)", 1},        {R"(\X\4)", 1},      {R"(\X\G1)", 1},    {R"(\X3\41)", 2},         {R"(\X0\)", 1},
      {R"(\S)", 1},         {R"(\S\)", 1},       {"\\S\\\t", 1},     {"\\S\\\x7F", 1},         {"\\S\\\u00E9", 1},
      {R"(\P)", 1},         {R"(\PA)", 1},       {R"(\PAx)", 1},     {R"(\PJ\)", 1},           {R"(\Pa\)", 2},
      {R"(\X2\)", 1},       {R"(\X2\\X0\)", 1},  {R"(\X2\00E9)", 1}, {R"(\X2\00E9\X0)", 2},    {R"(\X2\00E\X0\)", 1},
      {R"(\X2\00E9 z)", 1}, {R"(\X2\G\X0\)", 2}, {R"(\X4\00E9)", 1}, {R"(\X4\000000E\X0\)", 1}};
  for (const auto& row : rows) {
    const std::string text = row.text;
    Check(DecodeText, {{text, text, row.malformed}, {R"(\X\41)" + text, "A" + text, row.malformed}});
  }
  // The text goes on after it.
  Check(DecodeText, {{R"(\X2\00\X\41)", R"(\X2\00A)", 1},
                     {R"(\X\\X\41)", R"(\X\A)", 1},
                     {R"(\X4\00E9\X0\\X\41)", R"(\X4\00E9\X0\A)", 1},
                     {R"(\T\\)", R"(\T\)", 1}});
}

TEST(Encoding, ReplacesCodesThatAreNoCharacter) {
  Check(DecodeText, {{R"(\X2\D7FFD800DFFFE000\X0\)", "\uD7FF\uFFFD\uFFFD\uE000", 0, 2},
                     {R"(\X2\D83DDE00\X0\)", "\uFFFD\uFFFD", 0, 2},
                     {R"(\X4\0000D800\X0\)", "\uFFFD", 0, 1},
                     {R"(\X4\0010FFFF0011000080000041FFFFFFFF\X0\)", "\U0010FFFF\uFFFD\uFFFD\uFFFD", 0, 3},
                     {R"(\X2\FFFD\X0\)", "\uFFFD"}});
}

// The characters of A0 to FE in each part of ISO 8859; `?` is none.
TEST(Encoding, ReadsAllNineAlphabets) {
  const struct {
    char letter;
    std::string_view characters;
  } rows[] = {
      {'A',
       "\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
       "ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþ"},
      {'B',
       "\u00A0Ą˘Ł¤ĽŚ§¨ŠŞŤŹ\u00ADŽŻ°ą˛ł´ľśˇ¸šşťź˝žżŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎ"
       "ĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ"},
      {'C',
       "\u00A0Ħ˘£¤?Ĥ§¨İŞĞĴ\u00AD?Ż°ħ²³´µĥ·¸ışğĵ½?żÀÁÂ?ÄĊĈÇÈÉÊËÌÍÎÏ"
       "?ÑÒÓÔĠÖ×ĜÙÚÛÜŬŜßàáâ?äċĉçèéêëìíîï?ñòóôġö÷ĝùúûüŭŝ"},
      {'D',
       "\u00A0ĄĸŖ¤ĨĻ§¨ŠĒĢŦ\u00ADŽ¯°ą˛ŗ´ĩļˇ¸šēģŧŊžŋĀÁÂÃÄÅÆĮČÉĘËĖÍÎĪ"
       "ĐŅŌĶÔÕÖ×ØŲÚÛÜŨŪßāáâãäåæįčéęëėíîīđņōķôõö÷øųúûüũū"},
      {'E',
       "\u00A0ЁЂЃЄЅІЇЈЉЊЋЌ\u00ADЎЏАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"
       "абвгдежзийклмнопрстуфхцчшщъыьэюя№ёђѓєѕіїјљњћќ§ў"},
      {'F',
       "\u00A0???¤???????،\u00AD?????????????؛???؟?ءآأؤإئابةتثجحخد"
       "ذرزسشصضطظعغ?????ـفقكلمنهوىيًٌٍَُِّْ????????????"},
      {'G',
       "\u00A0‘’£€₯¦§¨©ͺ«¬\u00AD?―°±²³΄΅Ά·ΈΉΊ»Ό½ΎΏΐΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟ"
       "ΠΡ?ΣΤΥΦΧΨΩΪΫάέήίΰαβγδεζηθικλμνξοπρςστυφχψωϊϋόύώ"},
      {'H',
       "\u00A0?¢£¤¥¦§¨©×«¬\u00AD®¯°±²³´µ¶·¸¹÷»¼½¾?????????????????"
       "???????????????‗אבגדהוזחטיךכלםמןנסעףפץצקרשת??\u200E\u200F"},
      {'I',
       "\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
       "ĞÑÒÓÔÕÖ×ØÙÚÛÜİŞßàáâãäåæçèéêëìíîïğñòóôõö÷øùúûüış"},
  };
  for (const auto& row : rows) {
    std::string_view rest = row.characters;
    for (char c = ' '; c <= '~'; ++c) {
      std::size_t length = 1;
      while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80) ++length;
      const std::string_view character = rest.substr(0, length);
      const std::string text = "\\P"s + row.letter + "\\\\S\\" + c;
      const bool isNone = character == "?";
      Check(DecodeText, {{text, isNone ? "\uFFFD" : std::string(character), 0, isNone ? 1u : 0u}});
      rest.remove_prefix(length);
    }
    EXPECT_TRUE(rest.empty()) << row.letter;
  }
}

// The characters are printed as UTF-8 here by another way.
TEST(Encoding, BringsEveryCharacterBack) {
  const auto tail = [](char32_t c, int shift) { return static_cast<char>(0x80 + c / (1u << shift) % 64); };
  std::string all;
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c / 0x800 == 0x1B) continue;  // surrogates
    if (c < 0x80) {
      all += static_cast<char>(c);
    } else if (c < 0x800) {
      all += {static_cast<char>(0xC0 + c / 64), tail(c, 0)};
    } else if (c < 0x10000) {
      all += {static_cast<char>(0xE0 + c / 4096), tail(c, 6), tail(c, 0)};
    } else {
      all += {static_cast<char>(0xF0 + c / 262144), tail(c, 12), tail(c, 6), tail(c, 0)};
    }
  }
  TextFaults there;
  TextFaults back;
  const std::string encoded = EncodeText(all, &there);
  EXPECT_TRUE(DecodeText(encoded, &back) == all);
  EXPECT_TRUE(there.None() && back.None());
  for (const char c : encoded) ASSERT_TRUE(c >= ' ' && c <= '~');
}

// The bytes after a part of a text are not looked at.
TEST(Encoding, EndsWhereTheTextEnds) {
  const std::string all =
      "\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80"
      R"(\\\X\E9\S\i\PB\\X2\20AC\X0\\X4\0001F600\X0\)";
  for (std::size_t size = 0; size < all.size(); ++size) {
    const std::string_view part = std::string_view(all).substr(0, size);
    EXPECT_EQ(EncodeText(part), EncodeText(std::string(part))) << part;
    EXPECT_EQ(DecodeText(part), DecodeText(std::string(part))) << part;
  }
}

// With a square of these lengths the test would run for hours.
TEST(Encoding, TakesTimeInProportionToTheText) {
  for (const std::string_view piece : {"\\", R"(\X2\)", R"(\X4\00)", R"(\X2\0041\X0\)", R"(\X\)", R"(\S\)", R"(\PB\)",
                                       "0", "\x80", "\xF0\x90\x80", "\u0142a", "\u0142\U0001F600"}) {
    for (const std::string_view start : {"", R"(\X2\)"}) {
      std::string text(start);
      while (text.size() < 2'000'000) text += piece;
      const std::string encoded = EncodeText(text);
      EXPECT_LE(encoded.size(), 12 * text.size());
      const std::string decoded = DecodeText(text);
      EXPECT_TRUE(DecodeText(EncodeText(decoded)) == decoded) << piece;
    }
  }
}

// As a writer of the library uses them.
TEST(Encoding, ToAReceiverNeedsNoMemory) {
  char buffer[200];
  std::size_t length = 0;
  const auto add = [&](std::string_view piece) { length += piece.copy(buffer + length, sizeof buffer - length); };
  const std::size_t before = steprt_test::LiveBytes();
  steprt_test::ResetPeak();
  const TextFaults encoding = steprt::EncodeTo("a\\\u0142\xFF", add);
  const std::size_t half = length;
  const TextFaults decoding = steprt::DecodeTo(std::string_view(buffer, half), add);
  EXPECT_EQ(steprt_test::PeakBytes(), before);
  EXPECT_EQ(std::string_view(buffer, half), R"(a\\\X2\0142FFFD\X0\)");
  EXPECT_EQ(std::string_view(buffer + half, length - half), "a\\\u0142\uFFFD");
  EXPECT_EQ(encoding.replaced, 1u);
  EXPECT_TRUE(decoding.None());
}

}  // namespace
