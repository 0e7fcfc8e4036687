#include "whole/reference/tokens.h"

#include <climits>
#include <cstdlib>
#include <string_view>

namespace steprt_test {
namespace {

constexpr int kEnd = -1;
constexpr std::string_view kEndsWord = "' ()\n;=,\r$\t#";

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool IsInteger(const std::string& word) {
  const std::size_t sign = word[0] == '+' || word[0] == '-' ? 1 : 0;
  return word.find_first_not_of("0123456789", sign) == std::string::npos;
}

int ToInteger(const char* text) {
  const long long value = std::strtoll(text, nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

}  // namespace

int ReferenceTokens::Next() {
  if (pushed_ != kNoToken) {
    const int kind = pushed_;
    pushed_ = kNoToken;
    return kind;
  }
  const int c = SkipBlanks();
  switch (c) {
    case kEnd:
      return TOK_EOF;
    case '$':
    case '*':
      return TOK_NULL;
    case '=':
      return TOK_EQUAL;
    case '(':
      return TOK_OPEN;
    case ')':
      return TOK_CLOSE;
    case ',':
      return TOK_COMMA;
    case ';':
      return TOK_SEMI;
    case '\'':
      return ReadText();
    default:
      return ReadWord(static_cast<char>(c));
  }
}

void ReferenceTokens::SkipPastSemicolon() {
  int token;
  do {
    token = Next();
  } while (token != TOK_SEMI && token != TOK_EOF);
}

void ReferenceTokens::Report(const std::string& message) {
  reports.push_back("(" + std::to_string(line) + ") [" + where + "]" + message);
}

int ReferenceTokens::Get() { return at_ < bytes_.size() ? static_cast<unsigned char>(bytes_[at_++]) : kEnd; }

void ReferenceTokens::Unget(int c) {
  if (c != kEnd) --at_;
}

int ReferenceTokens::SkipBlanks() {
  int c = Get();
  for (; c == ' ' || c == '\t' || c == '\r' || c == '\n'; c = Get()) {
    if (c == '\n') ++line;
  }
  return c;
}

// Behind the opening apostrophe.
int ReferenceTokens::ReadText() {
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

int ReferenceTokens::ReadWord(char first) {
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

int ReferenceTokens::Classify(const std::string& word) {
  if (word[0] == '#') return integer = ToInteger(word.c_str() + 1), TOK_REF;
  if (IsLetter(word[0])) return text = word, TOK_NAME;
  if (word[0] == '.' && IsLetter(word[1])) return text = word, TOK_ENUM;
  if (IsInteger(word)) return integer = ToInteger(word.c_str()), TOK_INT;
  return real = std::strtod(word.c_str(), nullptr), TOK_REAL;
}

}  // namespace steprt_test
