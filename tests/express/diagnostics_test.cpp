// How a diagnostic is printed, and when no more are kept.
#include <gmock/gmock.h>

#include "express/diagnostic.h"
#include "express/load.h"

namespace {

using namespace express;

std::string FormatAt(const std::string& text, std::size_t offset) {
  const Source source("a.exp", text);
  return Format({Severity::kError, Code::kSyntax, {&source, static_cast<std::uint32_t>(offset)}, "text"});
}

TEST(Diagnostic, HasPlaceLineAndCaret) {
  const struct {
    const char* text;
    std::size_t offset;
    const char* printed;
  } rows[] = {
      {"one\ntwo three\n", 8, "a.exp:2:5: error: text [syntax]\n  two three\n      ^\n"},
      {"one", 0, "a.exp:1:1: error: text [syntax]\n  one\n  ^\n"},
      {"one", 3, "a.exp:1:4: error: text [syntax]\n  one\n     ^\n"},
      {"one\n", 4, "a.exp:2:1: error: text [syntax]\n  \n  ^\n"},
      {"one\n", 99, "a.exp:2:1: error: text [syntax]\n  \n  ^\n"},
      {"", 0, "a.exp:1:1: error: text [syntax]\n  \n  ^\n"},
      {"a\r\nb\rc d", 7, "a.exp:3:3: error: text [syntax]\n  c d\n    ^\n"},
      {"\t\tx", 2, "a.exp:1:3: error: text [syntax]\n    x\n    ^\n"},
      {"(*\xC3\xA4\xE2\x82\xAC*)x", 9, "a.exp:1:7: error: text [syntax]\n  (*\xC3\xA4\xE2\x82\xAC*)x\n        ^\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(FormatAt(row.text, row.offset), row.printed) << row.text << "@" << row.offset;
}

TEST(Diagnostic, ALongLineIsCroppedAroundItsPlace) {
  std::string line(1000, '.');
  line[500] = 'x';
  const std::string blanks(80, ' ');
  EXPECT_EQ(FormatAt(line, 500), "a.exp:1:501: error: text [syntax]\n  " + std::string(80, '.') + "x" +
                                     std::string(39, '.') + "\n  " + blanks + "^\n");
  // Never within a character.
  std::string umlauts;
  for (int i = 0; i < 500; ++i) umlauts += "\xC3\xA4";
  EXPECT_THAT(FormatAt(umlauts, 502), testing::HasSubstr("  \xC3\xA4\xC3\xA4"));
  EXPECT_THAT(FormatAt("x" + umlauts, 502 - 1), testing::Not(testing::HasSubstr("  \xA4")));
}

TEST(Diagnostic, ANoteAndAMissingPlaceArePrinted) {
  const Source source("b", "x");
  EXPECT_EQ(Format({Severity::kNote, Code::kSyntax, {&source, 0}, "here"}), "b:1:1: note: here\n  x\n  ^\n");
  EXPECT_EQ(Format({Severity::kWarning, Code::kTooLarge, {}, "odd"}), "warning: odd [too-large]\n");
}

TEST(Diagnostics, StopAtTheLimitOfErrors) {
  Diagnostics diagnostics(2);
  diagnostics.Warning({}, Code::kSyntax, "w");
  diagnostics.Error({}, Code::kSyntax, "1");
  diagnostics.Note({}, "n");
  EXPECT_FALSE(diagnostics.Full());
  diagnostics.Error({}, Code::kSyntax, "2");
  diagnostics.Error({}, Code::kSyntax, "3");
  diagnostics.Note({}, "n3");
  EXPECT_TRUE(diagnostics.Full());
  EXPECT_EQ(diagnostics.Errors(), 2U);
  std::string all;
  for (const Diagnostic& diagnostic : diagnostics.All()) all += diagnostic.message + "|";
  EXPECT_EQ(all, "w|1|n|2|too many errors, the rest is not looked at|");
}

TEST(Diagnostics, AFileThatCannotBeReadIsReported) {
  for (const char* path : {"/nowhere/at/all.exp", "/"}) {
    Diagnostics diagnostics;
    EXPECT_EQ(ReadSource(path, diagnostics), nullptr);
    ASSERT_EQ(diagnostics.All().size(), 1U);
    EXPECT_THAT(Format(diagnostics.All()[0]), testing::StartsWith(std::string("error: cannot read '") + path + "': "));
  }
}

}  // namespace
