// The tokens of a clear-text file, taken one character at a time, without a thought for speed: what the tokeniser of
// the library is held against.
#ifndef STEPRT_TESTS_WHOLE_REFERENCE_TOKENS_H
#define STEPRT_TESTS_WHOLE_REFERENCE_TOKENS_H

#include <string>

#include "read/records.h"
#include "support/reports.h"

namespace steprt_test {

class ReferenceTokens {
 public:
  explicit ReferenceTokens(const std::string& fileBytes) : bytes_(fileBytes) {}

  int Next();  // a token's kind
  void GiveBack(int kind) { pushed_ = kind; }
  int SkipPastSemicolon();  // gives it, or TOK_EOF
  void Report(const std::string& message);  // as TakeReports gives it

  // Of the last token read.
  int integer = 0;
  double real = 0.0;
  std::string text;

  int line = 1;
  std::string where;
  Texts reports;

 private:
  int Get();
  void Unget(int c);
  int SkipBlanks();
  int ScanText();
  int ScanWord(char first);
  int Classify(const std::string& word);

  const std::string& bytes_;
  std::size_t at_ = 0;
  int pushed_ = kNoToken;
};

}  // namespace steprt_test

#endif
