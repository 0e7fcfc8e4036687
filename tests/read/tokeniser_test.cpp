// Every form of token, in the middle of a block and across the border of two.
#include "read/tokeniser.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string_view>
#include <utility>

#include "read/transfer/transfer.h"
#include "support/faulty_calls.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

const std::string x254(254, 'x');
const std::string d255(255, '7');

struct Row {
  std::string bytes;
  std::string tokens;
  Texts reports = {};
  int line = 1;
};

const Row kRows[] = {
    // Words, one by one.
    {".T. .T .5 1. 1.E3 12 -12", "ENUM .T.|ENUM .T|REAL 0.5|REAL 1|REAL 1000|INT 12|INT -12"},
    {"+ - # #12X #-5 #+7 . ", "INT 0|INT 0|REF 0|REF 12|REF -5|REF 7|REAL 0"},
    {"_A !X /* \"A\" 12X +-5 \xc4 ", "REAL 0|REAL 0|REAL 0|REAL 0|REAL 12|REAL 0|REAL 0"},
    {"A*B A.B-C a_1 .A*. .. ..A", "NAME A*B|NAME A.B-C|NAME a_1|ENUM .A*.|REAL 0|REAL 0"},
    {"0 007 +3 2147483647 2147483648 -2147483649 ", "INT 0|INT 7|INT 3|INT 2147483647|INT 2147483647|INT -2147483648"},
    {"#123456789 #2147483648 #0000000000012 ", "REF 123456789|REF 2147483647|REF 12"},
    {"1e5 1E-2 .5e1 -.25 +2.5 -0. 1e 1e+ 5e5e5 1.5.2 ",
     "REAL 1e+05|REAL 0.01|REAL 5|REAL -0.25|REAL 2.5|REAL -0|REAL 1|REAL 1|REAL 5e+05|REAL 1.5"},
    {"0x1F inf -nan 1e999 1e-999 0.1234567890123456789012 ",
     "REAL 31|NAME inf|REAL -nan|REAL inf|REAL 0|REAL 0.12345678901234568"},
    // Parts that are together.
    {"A$B $* #1#2 #1=A(", "NAME A|NULL|NAME B|NULL|NULL|REF 1|REF 2|REF 1|=|NAME A|("},
    {"#12=WALL('a',2.5,#3,(#4,$),.T.);",
     "REF 12|=|NAME WALL|(|TEXT a|,|REAL 2.5|,|REF 3|,|(|REF 4|,|NULL|)|,|ENUM .T.|)|;"},
    {"1*2 1(2 A'b'c 5\t6 *A ", "REAL 1|INT 1|(|INT 2|NAME A|TEXT b|NAME c|INT 5|INT 6|NULL|NAME A"},
    // Texts.
    {"'it''s' '''' '' 'a\\X2\\00E9 b\"' '('", "TEXT it's|TEXT '|TEXT |TEXT a\\X2\\00E9 b\"|TEXT ("},
    {"'a\rb' 'a'\r'b' '\r'", "TEXT ab|TEXT a|TEXT b|TEXT "},
    {"'ab\ncd' e", "TEXT ab|NAME cd|TEXT  e", {"(1) []Unterminated textstring", "(2) []Unterminated textstring"}, 2},
    {"'ab", "TEXT ab", {"(1) []Unterminated textstring"}},
    {"'", "ERROR", {"(1) []Unterminated textstring", "(1) []Unexpected EOF"}},
    {"'\r\r", "ERROR", {"(1) []Unterminated textstring", "(1) []Unexpected EOF"}},
    {"'a'", "TEXT a"},
    {"'a''", "TEXT a'", {"(1) []Unterminated textstring"}},
    {"'\n'\n", "TEXT |TEXT ", {"(1) []Unterminated textstring", "(2) []Unterminated textstring"}, 3},
    // Lines.
    {"\n A\n\rB\r\r\n;\n", "NAME A|NAME B|;", {}, 5},
    {"A\rB\rC ", "NAME A|NAME B|NAME C"},
    // The end of the file.
    {"", ""},
    {" \t\r\n", "", {}, 2},
    {"AB", "NAME AB"},
    {"A", "ERROR", {"(1) []Unexpected EOF"}},
    {"1;5", "INT 1|;|ERROR", {"(1) []Unexpected EOF"}},
    {"\n#", "ERROR", {"(2) []Unexpected EOF"}, 2},
    {"-", "ERROR", {"(1) []Unexpected EOF"}},
    {"$", "NULL"},
    // What is too long.
    {"A" + x254 + " ", "NAME A" + x254},
    {"A" + x254 + "y ", "NAME A" + x254 + "y"},
    {"A" + x254 + "yz ", "NAME A" + x254 + "y", {"(1) []Too long element, truncated"}},
    {"A" + x254 + x254 + "\n;", "NAME A" + x254 + "x|;", {"(1) []Too long element, truncated"}, 2},
    {"'a" + x254 + "'", "TEXT a" + x254},
    {"'a" + x254 + "''" + "'", "TEXT a" + x254 + "'", {"(1) []Too long element, truncated"}},
    {"'a" + x254 + "y';", "TEXT a" + x254 + "y|;", {"(1) []Too long element, truncated"}},
    {"'a" + x254 + "yz';", "TEXT a" + x254 + "y|;", {"(1) []Too long element, truncated"}},
    {"'a" + x254 + "yz\n;",
     "TEXT a" + x254 + "y|;",
     {"(1) []Unterminated textstring", "(2) []Too long element, truncated"},
     2},
    {"0" + d255 + " ", "INT 2147483647"},
    {"0." + d255.substr(1) + " ", "REAL 0.7777777777777778"},
    {"0." + d255 + "e-9 ", "REAL 0.7777777777777778", {"(1) []Too long element, truncated"}},
    {"#" + d255 + "7 ", "REF 2147483647", {"(1) []Too long element, truncated"}},
    // A byte of zero ends a word's text, not the word.
    {std::string("A\0B 1\0002 '\0a'", 12), "NAME A|INT 1|TEXT "},
};

// As "REF 1|=|NAME A|(".
std::string TokenText(int kind, const STEPtransfer& t) {
  if (kind == TOK_ERROR || kind == TOK_NULL) return kind == TOK_NULL ? "NULL" : "ERROR";
  if (kind == TOK_REF || kind == TOK_INT) return (kind == TOK_REF ? "REF " : "INT ") + std::to_string(t.value.integer);
  if (kind == TOK_REAL) return "REAL " + RealText(t.value.real);
  if (kind >= TOK_EQUAL && kind <= TOK_SEMI) return std::string(1, "=(),;"[kind - TOK_EQUAL]);
  return (kind == TOK_TEXT ? "TEXT " : kind == TOK_NAME ? "NAME " : "ENUM ") + std::string(t.value.text);
}

void ExpectTokens(const Row& row, const std::string& path, const std::string& how, int firstLine = 1) {
  const steprt::TransferOwner t = steprt::NewReadTransfer(path.c_str(), CollectReport, nullptr, false);
  const std::unique_ptr<steprt::InputFile> file(steprt::InputFile::OpenOrNull(path.c_str()));
  t->file.in = file.get();
  t->line = firstLine;
  std::string tokens;
  for (int kind; (kind = steprt::NextToken(t.get())) != TOK_EOF;)
    tokens += (tokens.empty() ? "" : "|") + TokenText(kind, *t);
  EXPECT_EQ(tokens, row.tokens) << testing::PrintToString(row.bytes) << how;
  EXPECT_EQ(TakeReports(path), row.reports) << testing::PrintToString(row.bytes) << how;
  EXPECT_EQ(t->line, row.line) << testing::PrintToString(row.bytes) << how;
}

TEST(Tokeniser, KnowsEveryTokenWhereverTheBlockEnds) {
  for (const Row& row : kRows) {
    const std::string path = MakeFile("t.stp", row.bytes);
    ExpectTokens(row, path, "");
    for (std::size_t split = 1; split < row.bytes.size() && !HasFailure(); ++split) {
      int next = static_cast<int>(split);
      const FaultyCalls calls({.atMost = [&] { return std::exchange(next, 1 << 20); }});
      ExpectTokens(row, path, " parted behind " + std::to_string(split) + " bytes");
    }
  }
}

// The first token of the bytes.
std::string FirstToken(STEPtransfer* t, const std::string& bytes) {
  t->pushedToken = kNoToken;
  t->file.in->Restart(bytes);
  const int kind = steprt::NextToken(t);
  return TokenText(kind, *t);
}

TEST(Tokeniser, EachByteEndsAWordOrATextOrBelongsToItAtEachPlace) {
  const std::string letters = "ABCDEFGHIJKLMNOPQ";
  const steprt::TransferOwner t = steprt::NewReadTransfer("", CollectReport, nullptr, false);
  const std::unique_ptr<steprt::InputFile> input(steprt::InputFile::MemoryOrNull());
  t->file.in = input.get();
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    for (std::size_t place = 1; place < letters.size(); ++place) {
      const std::string before = letters.substr(0, place);
      const std::string all = before + c + letters.substr(place);
      const bool endsWord = std::string_view("' ()\n;=,\r$\t#").find(c) != std::string_view::npos;
      EXPECT_EQ(FirstToken(t.get(), all + ";"), "NAME " + (endsWord ? before : all)) << byte << " at " << place;
      const std::string text = c == '\'' || c == '\n' ? before : c == '\r' ? letters : all;
      EXPECT_EQ(FirstToken(t.get(), "'" + all + "';"), "TEXT " + text) << byte << " at " << place;
    }
  }
  EXPECT_EQ(TakeReports("").size(), letters.size() - 1);  // of the texts with a line feed
}

TEST(Tokeniser, CountsLinesUpToTheLargestIntegerAndStaysThere) {
  const std::string unterminated = "(2147483647) []Unterminated textstring";
  for (const Row& row :
       {Row{"\n\n;", ";", {}, INT_MAX}, Row{"'a\n'b\n;", "TEXT a|TEXT b|;", Texts(2, unterminated), INT_MAX}})
    ExpectTokens(row, MakeFile("t.stp", row.bytes), " on the last lines", INT_MAX);
}

TEST(Tokeniser, KnowsEveryTokenByteByByteAndInterrupted) {
  const FaultyCalls calls({.interrupted = true, .atMost = [] { return 1; }});
  for (const Row& row : kRows) ExpectTokens(row, MakeFile("t.stp", row.bytes), "");
}

}  // namespace
