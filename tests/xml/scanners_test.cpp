// The scanners of value texts.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "read/records.h"
#include "xml/value_kind.h"
#include "xml/value_lists.h"

namespace {

using namespace steprt;

TEST(ValueKind, TheShapeTells) {
  const std::pair<const char*, int> rows[] = {
      // nothing
      {"", TOK_ERROR},
      {"   ", TOK_ERROR},
      {"-", TOK_ERROR},
      {"  +-+", TOK_ERROR},
      // by the first character
      {"#7", TOK_REF},
      {"#", TOK_REF},
      {"  -#7", TOK_REF},
      {"$", TOK_NULL},
      {" $ x", TOK_NULL},
      {"+$", TOK_NULL},
      {".T.", TOK_ENUM},
      {"-.abc", TOK_ENUM},
      {".", TOK_REAL},
      {"..a", TOK_TEXT},
      {"abc", TOK_NAME},
      {"-abc", TOK_NAME},
      {" e5", TOK_NAME},
      // integers
      {"5", TOK_INT},
      {"-5", TOK_INT},
      {"  +-5", TOK_INT},
      {"007", TOK_INT},
      // reals
      {"2.5", TOK_REAL},
      {"-2.5", TOK_REAL},
      {".5", TOK_REAL},
      {"1.", TOK_REAL},
      {"1e3", TOK_REAL},
      {"1e", TOK_REAL},
      {"1e+", TOK_REAL},
      {"1e5 x", TOK_REAL},
      {"1e ", TOK_REAL},
      // everything else
      {"'a'", TOK_TEXT},
      {"_x", TOK_TEXT},
      {"1.5x", TOK_TEXT},
      {"12 ", TOK_TEXT},
      {"1.5 ", TOK_TEXT},
      {"- 5", TOK_TEXT},
      {"- ", TOK_TEXT},
      {"1e5x", TOK_TEXT},
      {"1e5\t", TOK_TEXT},
      {"\t5", TOK_TEXT},
      {"\xe9", TOK_TEXT},
      {".\xe9", TOK_TEXT},
  };
  for (const auto& [text, kind] : rows) EXPECT_EQ(ClassifyText(text), kind) << text;
}

TEST(ValueKind, RealTexts) {
  for (const char* text : {"", "+", "-", "1", "+1", "1.", ".", "-.", ".5", "1.5", "1e", "1E", "1e+", "1.5E-", "1e5",
                           "1e5 x", "e", "e5", "+e-5 "}) {
    EXPECT_TRUE(IsRealText(text)) << text;
  }
  for (const char* text : {" ", "1 ", "1.5 ", "1..", "1x", "--1", "1e5x", "1ee", "1e++", "a", "1e5\n"}) {
    EXPECT_FALSE(IsRealText(text)) << text;
  }
}

std::vector<int> RefItems(const char* text) {
  std::vector<int> items;
  for (int item = ScanRefItem(&text); item >= 0; item = ScanRefItem(&text)) items.push_back(item);
  return items;
}

TEST(ValueLists, References) {
  const std::pair<const char*, std::vector<int>> rows[] = {
      {"", {}},
      {"abc, 12;", {}},
      {"#1 #2", {1, 2}},
      {"#1;#2", {1, 2}},
      {"#1,#2", {1, 2}},
      {"x#1y#2", {1, 2}},
      {"#1#2", {1, 2}},
      {"$", {0}},
      {"#1 $ #2", {1, 0, 2}},
      {"$$", {0, 0}},
      {"#", {0}},
      {"#0", {0}},
      {"#-5", {0}},
      {"# 5", {0}},
      {"##5", {0, 5}},
      {"#007x", {7}},
      {"#2147483647", {2147483647}},
  };
  for (const auto& [text, items] : rows) EXPECT_EQ(RefItems(text), items) << text;
}

TEST(ValueLists, AReferenceBeyondAnIntIsNotTakenForAnother) {
  for (const char* text : {"#2147483648", "#4294967297", "#99999999999999999999999999"}) {
    EXPECT_EQ(RefItems(text), std::vector<int>{2147483647}) << text;
  }
}

TEST(ValueLists, TheEndOfReferencesLeavesTheCursor) {
  const char* const text = "#1 abc";
  const char* cursor = text;
  EXPECT_EQ(ScanRefItem(&cursor), 1);
  EXPECT_EQ(cursor, text + 2);
  EXPECT_EQ(ScanRefItem(&cursor), -1);
  EXPECT_EQ(cursor, text + 2);
}

std::vector<double> RealItems(const char* text) {
  std::vector<double> items;
  ScannedReal last;
  for (double item = ScanRealItem(&text, &last); text; item = ScanRealItem(&text, &last)) items.push_back(item);
  return items;
}

TEST(ValueLists, Reals) {
  const std::pair<const char*, std::vector<double>> rows[] = {
      {"", {}},
      {" ; ;", {}},
      {"1;2.5", {1, 2.5}},
      {"1 2.5", {1, 2.5}},
      {";1;;2.5;", {1, 2.5}},
      {"1,2", {1}},
      {"1\t2", {1}},
      {"1\n2;3", {1, 3}},
      {"$;x;1", {0, 0, 1}},
      {"-1e3 +.5 0x10 inf", {-1000, 0.5, 16, std::numeric_limits<double>::infinity()}},
      // An item of white space only is the number behind it.
      {"\t 5", {5, 5}},
      {"\t \n \t 5 6", {5, 5, 5, 5, 6}},
      {"\t \n;\t 5", {0, 0, 5, 5}},
      {"\t5 \t", {5, 0}},
      {"7 \t", {7, 0}},
  };
  for (const auto& [text, items] : rows) EXPECT_EQ(RealItems(text), items) << text;
}

TEST(ValueLists, LongListsCostWhatTheirItemsCost) {
  std::string numbers;
  std::string blanks;
  for (int i = 0; i < 200'000; ++i) {
    numbers += "1.25;";
    blanks += "\t ";
  }
  EXPECT_EQ(RealItems(numbers.c_str()), std::vector<double>(200'000, 1.25));
  EXPECT_EQ(RealItems((blanks + "7").c_str()), std::vector<double>(200'001, 7));
}

std::vector<std::string> QuotedItems(std::string text, std::string* cut = nullptr) {
  std::vector<std::string> items;
  char* cursor = text.data();
  while (const char* item = ScanQuotedItem(&cursor)) items.emplace_back(item);
  if (cut) *cut = text.c_str();
  return items;
}

TEST(ValueLists, Texts) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"", {}},
      {"abc", {}},
      {"'a';'b'", {"a", "b"}},
      {"'a' 'b'", {"a", "b"}},
      {"x'a'y'b'z", {"a", "b"}},
      {"'a'$'b'", {"a", "b"}},
      {"''", {""}},
      {"'';''", {"", ""}},
      {"'a", {"a"}},
      {"'a';'b", {"a", "b"}},
      {"'", {""}},
      {"'it''s'", {"it", "s"}},
      {"'it's';'b'", {"it", ";", ""}},
      {"'a;b c'", {"a;b c"}},
  };
  for (const auto& [text, items] : rows) EXPECT_EQ(QuotedItems(text), items) << text;
}

TEST(ValueLists, ATextIsCutByItsScan) {
  std::string cut;
  QuotedItems("'a';'b'", &cut);
  EXPECT_EQ(cut, "'a");
}

TEST(ValueLists, WithoutATextThereAreNoItems) {
  const char* none = nullptr;
  char* noText = nullptr;
  ScannedReal last;
  EXPECT_EQ(ScanRefItem(&none), -1);
  EXPECT_EQ(ScanRealItem(&none, &last), 0.0);
  EXPECT_EQ(ScanQuotedItem(&noText), nullptr);
}

}  // namespace
