// A tokeniser that goes byte by byte, and must find the same tokens in random bytes as the fast one.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "read/token_run.h"
#include "support/faulty_calls.h"
#include "support/number.h"

namespace {

using namespace steprt_test;

class SlowTokeniser {
 public:
  explicit SlowTokeniser(const std::string& bytes) : bytes_(bytes) {}

  TokenRun Run() {
    while (Blank(Next(), true)) {
    }
    return run_;
  }

 private:
  static constexpr int kEnd = -1;

  int Next() { return at_ < bytes_.size() ? static_cast<unsigned char>(bytes_[at_++]) : (++at_, kEnd); }
  void Back() { --at_; }
  void Report(const char* message) { run_.reports.push_back("(" + std::to_string(run_.line) + ") []" + message); }

  bool Blank(int c, bool isFirst) {
    while (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      run_.line += c == '\n';
      c = Next();
    }
    if (c == kEnd) return !isFirst;
    Add(c);
    return true;
  }

  void Add(int c) {
    run_.tokens += run_.tokens.empty() ? "" : "|";
    if (std::strchr("=(),;", c) && c) {
      run_.tokens += static_cast<char>(c);
    } else if (c == '$' || c == '*') {
      run_.tokens += "NULL";
    } else {
      run_.tokens += c == '\'' ? Text() : Word(static_cast<char>(c));
    }
  }

  std::string Text() {
    std::string text;
    int c;
    while ((c = Next()) != kEnd && c != '\n') {
      if (c == '\r') continue;
      if (c == '\'' && Next() != '\'') {
        Back();
        break;
      }
      text += static_cast<char>(c);
    }
    if (c == kEnd || c == '\n') Report("Unterminated textstring");
    run_.line += c == '\n';
    if (text.size() >= 256) Report("Too long element, truncated");
    if (c == kEnd && text.empty()) return Report("Unexpected EOF"), "ERROR";
    return TokenText(TOK_TEXT, 0, 0, text.substr(0, 256).c_str());
  }

  std::string Word(char first) {
    std::string word(1, first);
    int c;
    while ((c = Next()) != kEnd && (c == 0 || !std::strchr("' ()\n;=,\r$\t#", c))) word += static_cast<char>(c);
    Back();
    if (word.size() > 256) Report("Too long element, truncated");
    if (c == kEnd && word.size() == 1) return Report("Unexpected EOF"), "ERROR";
    return Classified(word.substr(0, 256).c_str());
  }

  static std::string Classified(const std::string& word) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const char* const text = word.c_str();
    const char* digits = *text == '+' || *text == '-' ? text + 1 : text;
    if (*text == '#') return TokenText(TOK_REF, steprt::TextToInt(text + 1), 0, nullptr);
    if (isLetter(*text)) return TokenText(TOK_NAME, 0, 0, text);
    if (*text == '.' && isLetter(text[1])) return TokenText(TOK_ENUM, 0, 0, text);
    if (!digits[std::strspn(digits, "0123456789")]) return TokenText(TOK_INT, steprt::TextToInt(text), 0, nullptr);
    return TokenText(TOK_REAL, 0, steprt::TextToReal(text), nullptr);
  }

  const std::string& bytes_;
  std::size_t at_ = 0;
  TokenRun run_ = {"", {}, 1};
};

// Bytes of a file, likely ones first; runs make long words and texts.
std::string RandomBytes(std::mt19937& random) {
  static const std::string kUsual = "0123456789''''##..,,;()==$*+-eEAaTx \n\t\r_\"/!\\\v\x80\xff";
  std::string bytes;
  while (bytes.size() < 600) {
    char c = kUsual[random() % kUsual.size()];
    if (random() % 200 == 0) c = static_cast<char>(random());
    const bool isRun = random() % 150 == 0;
    bytes.append(isRun ? 240 + random() % 30 : 1, c);
    if (isRun) bytes.append(1, "'A1 "[random() % 4]);
  }
  bytes.resize(random() % bytes.size());
  return bytes;
}

TEST(Tokeniser, RandomBytesGiveTheTokensOfAByteByByteScan) {
  std::mt19937 random(1);
  for (int i = 0; i < 4000; ++i) {
    const std::string bytes = RandomBytes(random);
    const TokenRun expected = SlowTokeniser(bytes).Run();
    const FaultyCalls calls({.atMost = [&] { return static_cast<int>(1 + random() % 64); }});
    ASSERT_EQ(RunTokeniser(MakeFile("t.stp", bytes)), expected) << testing::PrintToString(bytes);
  }
}

}  // namespace
