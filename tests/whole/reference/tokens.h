// The tokens of a clear-text file, taken one character at a time, without a thought for speed: what the tokeniser of
// the library is held against.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_TOKENS_H
#define STEPRT_TESTS_WHOLE_REFERENCE_TOKENS_H

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "read/transfer/record.h"
#include "support/reports.h"

namespace steprt_test {

class ReferenceTokens {
 public:
  explicit ReferenceTokens(const std::string& fileBytes) : bytes_(fileBytes) {}

  // A token's kind.
  int Next() {
    if (pushed_ != kNoToken) return std::exchange(pushed_, kNoToken);
    const int c = SkipBlanks();
    if (c == kEnd) return TOK_EOF;
    if (c == '$' || c == '*') return TOK_NULL;
    if (c == '\'') return ScanText();
    const std::size_t mark = std::string_view("=(),;").find(static_cast<char>(c));
    return mark == std::string_view::npos ? ScanWord(static_cast<char>(c)) : TOK_EQUAL + static_cast<int>(mark);
  }

  void GiveBack(int kind) { pushed_ = kind; }

  // Returns it, or TOK_EOF.
  int SkipPastSemicolon() {
    int token = Next();
    while (token != TOK_SEMI && token != TOK_EOF) token = Next();
    return token;
  }

  // As TakeReports returns it.
  void Report(const std::string& message) {
    reports.push_back("(" + std::to_string(line) + ") [" + where + "]" + message);
  }

  // Of the last token read.
  int integer = 0;
  double real = 0.0;
  std::string text;

  int line = 1;
  std::string where;
  Texts reports;

 private:
  static constexpr int kEnd = -1;
  static constexpr std::string_view kEndsWord = "' ()\n;=,\r$\t#";

  static bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

  static bool IsInteger(const std::string& word) {
    const std::size_t sign = word[0] == '+' || word[0] == '-' ? 1 : 0;
    return word.find_first_not_of("0123456789", sign) == std::string::npos;
  }

  static int ToInteger(const char* digits) {
    return static_cast<int>(std::clamp<long long>(std::strtoll(digits, nullptr, 10), INT_MIN, INT_MAX));
  }

  int Get() { return at_ < bytes_.size() ? static_cast<unsigned char>(bytes_[at_++]) : kEnd; }

  void Unget(int c) {
    if (c != kEnd) --at_;
  }

  int SkipBlanks() {
    int c = Get();
    for (; c == ' ' || c == '\t' || c == '\r' || c == '\n'; c = Get()) {
      if (c == '\n') ++line;
    }
    return c;
  }

  // After the opening apostrophe.
  int ScanText() {
    std::string kept;
    int count = 0;
    int c;
    while ((c = Get()) != '\n' && c != kEnd) {
      if (c == '\r') continue;
      if (c == '\'') {
        const int next = Get();
        if (next != '\'') {
          Unget(next);
          break;
        }
      }
      if (++count <= 256) kept += static_cast<char>(c);
    }
    if (c != '\'') Report("Unterminated textstring");
    if (c == '\n') ++line;
    if (count >= 256) Report("Too long element, truncated");
    if (c == kEnd && count == 0) return Report("Unexpected EOF"), TOK_ERROR;
    text = kept.c_str();  // up to a byte 0
    return TOK_TEXT;
  }

  int ScanWord(char first) {
    std::string word(1, first);
    int count = 1;
    int c;
    while ((c = Get()) != kEnd && kEndsWord.find(static_cast<char>(c)) == std::string_view::npos) {
      if (++count <= 256) word += static_cast<char>(c);
    }
    Unget(c);
    if (count > 256) Report("Too long element, truncated");
    if (c == kEnd && count == 1) return Report("Unexpected EOF"), TOK_ERROR;
    return Classify(word.c_str());  // up to a byte 0
  }

  int Classify(const std::string& word) {
    if (word[0] == '#') return integer = ToInteger(word.c_str() + 1), TOK_REF;
    if (IsLetter(word[0])) return text = word, TOK_NAME;
    if (word[0] == '.' && IsLetter(word[1])) return text = word, TOK_ENUM;
    if (IsInteger(word)) return integer = ToInteger(word.c_str()), TOK_INT;
    return real = std::strtod(word.c_str(), nullptr), TOK_REAL;
  }

  const std::string& bytes_;
  std::size_t at_ = 0;
  int pushed_ = kNoToken;
};

}  // namespace steprt_test

#endif
