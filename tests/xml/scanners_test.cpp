// The scanners of value texts.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "read/transfer/record.h"
#include "xml/values/kind.h"
#include "xml/values/lists.h"

namespace {

using namespace steprt;

TEST(ValueKind, TheShapeTells) {
  const std::pair<int, std::vector<const char*>> rows[] = {
      {TOK_ERROR, {"", "   ", "-", "  +-+"}},
      {TOK_REF, {"#7", "#", "  -#7"}},
      {TOK_NULL, {"$", " $ x", "+$"}},
      {TOK_ENUM, {".T.", "-.abc"}},
      {TOK_NAME, {"abc", "-abc", " e5"}},
      {TOK_INT, {"5", "-5", "  +-5", "007"}},
      {TOK_REAL, {".", "2.5", "-2.5", ".5", "1.", "1e3", "1E-3", "1e", "1e+", "1e5 x", "1e "}},
      {TOK_TEXT,
       {"..a", "'a'", "_x", "1.5x", "12 ", "1.5 ", "- 5", "- ", "1e5x", "1ee", "1e++", "1..", "1e5\t", "\t5", "\xe9",
        ".\xe9"}}};
  for (const auto& [kind, texts] : rows) {
    for (const char* text : texts) EXPECT_EQ(ClassifyText(text), kind) << text;
  }
}

std::vector<int> RefItems(const char* text) {
  std::vector<int> items;
  for (int item = ScanRefItem(&text); item >= 0; item = ScanRefItem(&text)) items.push_back(item);
  return items;
}

TEST(ValueLists, References) {
  const std::pair<std::vector<int>, std::vector<const char*>> rows[] = {
      {{}, {"", "abc, 12;"}},
      {{1, 2}, {"#1 #2", "#1;#2", "#1,#2", "x#1y#2", "#1#2"}},
      {{0}, {"$", "#", "#0", "#-5", "# 5"}},
      {{1, 0, 2}, {"#1 $ #2"}},
      {{0, 0}, {"$$"}},
      {{0, 5}, {"##5"}},
      {{7}, {"#007x"}},
      {{2147483647}, {"#2147483647", "#2147483648", "#4294967297", "#99999999999999999999999999"}}};
  for (const auto& [items, texts] : rows) {
    for (const char* text : texts) EXPECT_EQ(RefItems(text), items) << text;
  }
}

std::vector<double> RealItems(const char* text) {
  std::vector<double> items;
  ScannedReal last;
  for (double item = ScanRealItem(&text, &last); text; item = ScanRealItem(&text, &last)) items.push_back(item);
  return items;
}

TEST(ValueLists, Reals) {
  const std::pair<std::vector<double>, std::vector<const char*>> rows[] = {
      {{}, {"", " ; ;"}},
      {{1, 2.5}, {"1;2.5", "1 2.5", ";1;;2.5;"}},
      {{1}, {"1,2", "1\t2"}},
      {{1, 3}, {"1\n2;3"}},
      {{0, 0, 1}, {"$;x;1"}},
      {{-1000, 0.5, 16, std::numeric_limits<double>::infinity()}, {"-1e3 +.5 0x10 inf"}},
      // An item of white space only is the number behind it.
      {{5, 5}, {"\t 5"}},
      {{5, 5, 5, 5, 6}, {"\t \n \t 5 6"}},
      {{0, 0, 5, 5}, {"\t \n;\t 5"}},
      {{5, 0}, {"\t5 \t"}},
      {{7, 0}, {"7 \t"}}};
  for (const auto& [items, texts] : rows) {
    for (const char* text : texts) EXPECT_EQ(RealItems(text), items) << text;
  }
}

std::vector<std::string> QuotedItems(std::string text) {
  std::vector<std::string> items;
  char* cursor = text.data();
  while (const char* item = ScanQuotedItem(&cursor)) items.emplace_back(item);
  return items;
}

TEST(ValueLists, Texts) {
  const std::pair<std::vector<std::string>, std::vector<const char*>> rows[] = {
      {{}, {"", "abc"}},
      {{"a", "b"}, {"'a';'b'", "'a' 'b'", "x'a'y'b'z", "'a'$'b'", "'a';'b"}},
      {{""}, {"''", "'"}},
      {{"", ""}, {"'';''"}},
      {{"a"}, {"'a"}},
      {{"it", "s"}, {"'it''s'"}},
      {{"it", ";", ""}, {"'it's';'b'"}},
      {{"a;b c"}, {"'a;b c'"}}};
  for (const auto& [items, texts] : rows) {
    for (const char* text : texts) EXPECT_EQ(QuotedItems(text), items) << text;
  }
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
