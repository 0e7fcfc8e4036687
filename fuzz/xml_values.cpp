#include "xml_values.h"

#include <gtest/gtest.h>
#include <regex.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "host/plain_host.h"
#include "read/transfer/record.h"
#include "xml/values/kind.h"
#include "xml/values/lists.h"

namespace fuzz {
namespace {

using namespace steprt;

class Pattern {
 public:
  explicit Pattern(const char* text) { EXPECT_EQ(regcomp(&pattern_, text, REG_EXTENDED | REG_NOSUB), 0); }
  ~Pattern() { regfree(&pattern_); }
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  bool Fits(const std::string& text) const { return regexec(&pattern_, text.c_str(), 0, nullptr, 0) == 0; }

 private:
  regex_t pattern_;
};

bool IsRealByPattern(const std::string& text) {
  static const Pattern real("^[+-]?[0-9]*(\\.[0-9]*)?([eE][+-]?[0-9]*( .*)?)?$");
  return real.Fits(text);
}

// The first that fits.
int KindByPattern(const std::string& text) {
  static const struct {
    Pattern pattern;
    int kind;
  } kinds[] = {
      {Pattern("^ *[+-]*$"), TOK_ERROR},       {Pattern("^ *[+-]*#"), TOK_REF},
      {Pattern("^ *[+-]*\\$"), TOK_NULL},      {Pattern("^ *[+-]*\\.[A-Za-z]"), TOK_ENUM},
      {Pattern("^ *[+-]*[A-Za-z]"), TOK_NAME}, {Pattern("^ *[+-]*[0-9]+$"), TOK_INT},
  };
  for (const auto& each : kinds) {
    if (each.pattern.Fits(text)) return each.kind;
  }
  const std::size_t start = text.find_first_not_of(' ');
  return IsRealByPattern(text.substr(text.find_first_not_of("+-", start))) ? TOK_REAL : TOK_TEXT;
}

// ---- lists

std::vector<int> References(const std::string& text) {
  std::vector<int> numbers;
  for (std::size_t i = text.find_first_of("#$"); i != std::string::npos; i = text.find_first_of("#$", i + 1)) {
    const bool hasDigits = text[i] == '#' && text[i + 1] >= '0' && text[i + 1] <= '9';
    const long number = hasDigits ? std::strtol(text.c_str() + i + 1, nullptr, 10) : 0;
    numbers.push_back(number > INT_MAX ? INT_MAX : static_cast<int>(number));
  }
  return numbers;
}

std::vector<double> Reals(const std::string& text) {
  constexpr char kSeparators[] = " ;";
  std::vector<double> reals;
  std::size_t i = text.find_first_not_of(kSeparators);
  while (i != std::string::npos) {
    reals.push_back(std::strtod(text.c_str() + i, nullptr));
    i = text.find_first_not_of(kSeparators, text.find_first_of(kSeparators, i));
  }
  return reals;
}

std::vector<std::string> Quoted(const std::string& text) {
  std::vector<std::string> items;
  std::size_t opening = text.find('\'');
  while (opening != std::string::npos) {
    const std::size_t closing = text.find('\'', opening + 1);
    items.push_back(text.substr(opening + 1, closing == std::string::npos ? closing : closing - opening - 1));
    opening = closing == std::string::npos ? closing : text.find('\'', closing + 1);
  }
  return items;
}

bool AreSame(double left, double right) {
  return std::isnan(left) ? std::isnan(right) : left == right && std::signbit(left) == std::signbit(right);
}

void CheckReals(const std::string& text) {
  const char* cursor = text.c_str();
  ScannedReal last;
  for (const double expected : Reals(text)) {
    const double item = ScanRealItem(&cursor, &last);
    EXPECT_TRUE(cursor && AreSame(item, expected));
  }
  EXPECT_TRUE(ScanRealItem(&cursor, &last) == 0.0 && !cursor);
  EXPECT_TRUE(ScanRealItem(&cursor, &last) == 0.0 && !cursor);
}

void CheckReferences(const std::string& text) {
  const char* cursor = text.c_str();
  for (const int expected : References(text)) EXPECT_EQ(ScanRefItem(&cursor), expected);
  EXPECT_EQ(ScanRefItem(&cursor), -1);
}

void CheckQuoted(std::string text) {
  const std::vector<std::string> items = Quoted(text);
  char* cursor = text.data();
  for (const std::string& expected : items) {
    const char* item = ScanQuotedItem(&cursor);
    EXPECT_STREQ(item, expected.c_str());
  }
  EXPECT_EQ(ScanQuotedItem(&cursor), nullptr);
}

void CheckWithoutText() {
  const char* none = nullptr;
  char* noText = nullptr;
  ScannedReal last;
  EXPECT_EQ(ScanRefItem(&none), -1);
  EXPECT_EQ(ScanRealItem(&none, &last), 0.0);
  EXPECT_EQ(ScanQuotedItem(&noText), nullptr);
}

}  // namespace

void CheckXmlValues(const std::string& text) {
  const steprt_test::PlainHost plain;
  EXPECT_EQ(ClassifyText(text.c_str()), KindByPattern(text));
  EXPECT_EQ(IsRealText(text.c_str()), IsRealByPattern(text));
  CheckWithoutText();
  CheckReferences(text);
  CheckReals(text);
  CheckQuoted(text);
}

}  // namespace fuzz
