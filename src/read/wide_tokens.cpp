#include "read/wide_tokens.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "read/char_class.h"
#include "read/transfer/report.h"
#include "read/transfer/wide_read.h"
#include "support/ascii.h"
#include "support/number_parse.h"

namespace steprt {
namespace {

// Stores the bytes of a token: in the buffer of the transfer, or if there are more than that holds, in memory.
class WideSink {
 public:
  explicit WideSink(STEPtransfer* t) : t_(t), wide_(*t->wide) {
    wide_.isLong = false;
    wide_.token.Clear();
  }

  void Put(const char* bytes, std::size_t count) {
    const std::size_t limit = std::max<std::size_t>(wide_.options.tokenLimit, kTokenLimit);
    const std::size_t kept = count_ < limit ? std::min(count, limit - count_) : 0;
    isCut_ = isCut_ || kept < count;
    if (!wide_.isLong && count_ + kept > kTokenLimit) BeginLong();
    if (!wide_.isLong) {
      std::memcpy(t_->buffer + count_, bytes, kept);
    } else if (!isLost_) {
      isLost_ = !wide_.token.Add(bytes, kept);
    }
    count_ += kept;
  }

  // Ends the token and returns it. What memory did not hold is reported, and so is what was beyond the limit.
  char* End() {
    if (isLost_) ReportError(t_, kOutOfMemory);
    if (isCut_) ReportError(t_, kTooLong);
    if (wide_.isLong && wide_.token.Chars()) return wide_.token.Chars();
    t_->buffer[wide_.isLong ? kTokenLimit : count_] = '\0';
    wide_.isLong = false;
    return t_->buffer;
  }

 private:
  void BeginLong() {
    wide_.isLong = true;
    isLost_ = !wide_.token.Add(t_->buffer, count_);
  }

  STEPtransfer* const t_;
  WideRead& wide_;
  std::size_t count_ = 0;  // of bytes that are kept
  bool isCut_ = false;
  bool isLost_ = false;
};

// Puts the bytes up to the first one of `ends` in the sink and returns that byte, which has not been read; kEnd at the
// end of the file.
int PutUpTo(STEPtransfer* t, const ByteSet& ends, WideSink& sink) {
  InputFile& in = *t->file.in;
  for (;;) {
    const char* const start = in.Cursor();
    const char* p = start;
    while (!IsIn(ends, *p)) ++p;
    sink.Put(start, static_cast<std::size_t>(p - start));
    in.MoveTo(p);
    if (p != in.Limit()) return static_cast<unsigned char>(*p);
    if (!in.Refill()) return InputFile::kEnd;
  }
}

// Whether a comment begins at the cursor, where there is a "/".
bool StartsComment(STEPtransfer* t, WideSink& sink) {
  t->file.in->Get();
  if (t->file.in->Peek() == '*') return true;
  sink.Put("/", 1);
  return false;
}

void PutBinary(STEPtransfer* t, WideSink& sink) {
  if (PutUpTo(t, kStopsWord, sink) != '"') return;  // a binary without an end
  t->file.in->Get();
  sink.Put("\"", 1);
}

std::uint64_t NameNumber(const char* digits) {
  std::uint64_t number = 0;
  for (; *digits >= '0' && *digits <= '9'; ++digits) {
    const auto digit = static_cast<std::uint64_t>(*digits - '0');
    if (number > (UINT64_MAX - digit) / 10) return UINT64_MAX;
    number = number * 10 + digit;
  }
  return number;
}

int ReferenceToken(STEPtransfer* t, const char* word) {
  const std::uint64_t name = NameNumber(word + 1);
  t->value.integer = name <= INT_MAX ? static_cast<int>(name) : t->wide->bigNames.NumberOf(name);
  if (name > INT_MAX && t->value.integer == 0) ReportError(t, kOutOfMemory);
  return TOK_REF;
}

int IntegerToken(STEPtransfer* t, const char* word) {
  const char* digits = *word == '-' || *word == '+' ? word + 1 : word;
  const std::uint64_t size = NameNumber(digits);
  const bool isNegative = *word == '-';
  const std::uint64_t limit = isNegative ? std::uint64_t{INT_MAX} + 1 : INT_MAX;
  if (size > limit) {
    ReportError(t, kIntegerOutOfRange);
    t->value.integer = isNegative ? INT_MIN : INT_MAX;
  } else {
    t->value.integer = isNegative ? static_cast<int>(-static_cast<std::int64_t>(size)) : static_cast<int>(size);
  }
  return TOK_INT;
}

int WideClassifyWord(STEPtransfer* t, char* word) {
  if (word[0] == '#') return ReferenceToken(t, word);
  const bool isName = IsLetter(word[0]) || word[0] == '_' || (word[0] == '!' && IsLetter(word[1]));
  if (isName || (word[0] == '.' && IsLetter(word[1]))) {
    t->value.text = word;
    t->nameLength = std::strlen(word);
    return isName ? TOK_NAME : TOK_ENUM;
  }
  if (IsIntegerText(word)) return IntegerToken(t, word);
  t->value.real = TextToReal(word);
  return TOK_REAL;
}

}  // namespace

bool SkipComment(STEPtransfer* t) {
  InputFile& in = *t->file.in;
  if (in.Peek() != '*') return false;
  in.Get();
  for (int before = 0;;) {
    const int c = in.Get();
    if (c == InputFile::kEnd) return Refuse(t, kUnterminatedComment, true);
    if (c == '\n') CountLine(t);
    if (c == '/' && before == '*') return true;
    before = c;
  }
}

bool ScanWideText(STEPtransfer* t) {
  InputFile& in = *t->file.in;
  WideSink sink(t);
  for (;;) {
    const int c = PutUpTo(t, kStopsText, sink);
    if (c == InputFile::kEnd) break;
    in.Get();
    if (c == '\n') CountLine(t);
    if (c != '\'') continue;
    if (in.Peek() != '\'') {
      t->value.text = sink.End();
      return true;
    }
    in.Get();
    sink.Put("'", 1);
  }
  t->value.text = sink.End();
  ReportError(t, kUnterminatedText);
  return false;
}

int WideWordToken(STEPtransfer* t, char first) {
  WideSink sink(t);
  sink.Put(&first, 1);
  if (first == '"') {
    PutBinary(t, sink);
  } else {
    while (PutUpTo(t, kStopsWord, sink) == '/') {
      if (!StartsComment(t, sink)) continue;
      SkipComment(t);
      break;
    }
  }
  WideRead& wide = *t->wide;
  wide.word = sink.End();
  wide.wordEnd = t->file.in->Cursor();
  wide.wordBlock = t->file.in->Blocks();
  return WideClassifyWord(t, wide.word);
}

}  // namespace steprt
