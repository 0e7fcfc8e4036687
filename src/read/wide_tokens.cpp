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
    if (isLost_) ReportErrorAt(t_, PlaceOfSlowToken(t_), kOutOfMemory);
    if (isCut_ && !wide_.isSkipping) ReportErrorAt(t_, PlaceOfSlowToken(t_), kTooLong);
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
    KeepSlowToken(t);
    if (!in.Refill()) return InputFile::kEnd;
  }
}

// The next byte after one of a slow token.
int PeekInToken(STEPtransfer* t) {
  if (t->file.in->Cursor() == t->file.in->Limit()) KeepSlowToken(t);
  return t->file.in->Peek();
}

// Reports a token of the file that has a place of its own.
void ReportToken(STEPtransfer* t, const char* message) { ReportErrorAt(t, PlaceOfSlowToken(t), message); }

// The same for a value that nobody uses while a record is skipped: the record has been reported.
void ReportValue(STEPtransfer* t, const char* message) {
  if (!t->wide->isSkipping) ReportToken(t, message);
}

// Whether a comment begins at the cursor, where there is a "/".
bool StartsComment(STEPtransfer* t, WideSink& sink) {
  t->file.in->Get();
  if (PeekInToken(t) == '*') return true;
  sink.Put("/", 1);
  return false;
}

// Reads a comment that ends a word, and leaves the word the token that was read last.
void SkipCommentAfterWord(STEPtransfer* t) {
  KeepSlowToken(t);
  const SlowToken word = t->wide->slow;
  SkipComment(t);
  t->wide->slow = word;
}

bool IsBlank(int c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// A binary may be over several lines: blanks do not belong to it.
void PutBinary(STEPtransfer* t, WideSink& sink) {
  int c = PutUpTo(t, kStopsWord, sink);
  while (IsBlank(c)) {
    t->file.in->Get();
    if (c == '\n') CountLine(t);
    c = PutUpTo(t, kStopsWord, sink);
  }
  if (c == '"') {
    t->file.in->Get();
  } else {
    ReportValue(t, kUnterminatedBinary);
  }
  sink.Put("\"", 1);  // one that was left open ends here
}

struct Number {
  std::uint64_t value;
  bool isWhole;     // the text is digits and nothing else
  bool isTooLarge;  // for 64 bits
};

Number ParseNumber(const char* digits) {
  Number number = {0, *digits != '\0', false};
  for (; *digits >= '0' && *digits <= '9'; ++digits) {
    const auto digit = static_cast<std::uint64_t>(*digits - '0');
    number.isTooLarge = number.isTooLarge || number.value > (UINT64_MAX - digit) / 10;
    number.value = number.value * 10 + digit;
  }
  number.isWhole = number.isWhole && *digits == '\0';
  return number;
}

// The name 0, which no record may have, is left to the caller, as by the fast path.
int NumberOfName(STEPtransfer* t, const Number& name) {
  if (!name.isWhole || name.isTooLarge) {
    ReportValue(t, name.isTooLarge ? kNameOutOfRange : kInvalidName);
    return kRefusedName;
  }
  if (name.value <= INT_MAX) return static_cast<int>(name.value);
  const int number = t->wide->bigNames.NumberOf(name.value);
  if (number != 0) return number;
  ReportToken(t, kOutOfMemory);
  return kRefusedName;
}

int ReferenceToken(STEPtransfer* t, const char* word) {
  t->value.integer = NumberOfName(t, ParseNumber(word + 1));
  return TOK_REF;
}

int IntegerToken(STEPtransfer* t, const char* word) {
  const Number size = ParseNumber(*word == '-' || *word == '+' ? word + 1 : word);
  const bool isNegative = *word == '-';
  const std::uint64_t limit = isNegative ? std::uint64_t{INT_MAX} + 1 : INT_MAX;
  if (size.isTooLarge || size.value > limit) {
    ReportValue(t, kIntegerOutOfRange);
    t->value.integer = isNegative ? INT_MIN : INT_MAX;
  } else {
    const auto value = static_cast<std::int64_t>(size.value);
    t->value.integer = static_cast<int>(isNegative ? -value : value);
  }
  return TOK_INT;
}

int WideClassifyWord(STEPtransfer* t, char* word) {
  if (word[0] == '#') return ReferenceToken(t, word);
  const bool isMarked = (word[0] == '!' || word[0] == '&') && IsLetter(word[1]);
  const bool isName = IsLetter(word[0]) || word[0] == '_' || isMarked;
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
  BeginSlowToken(t);
  if (PeekInToken(t) != '*') return false;
  in.Get();
  for (int before = 0;;) {
    if (in.Cursor() == in.Limit()) KeepSlowToken(t);
    const int c = in.Get();
    if (c == '\n') CountLine(t);
    if (c == '/' && before == '*') return true;
    before = c;
    if (c != InputFile::kEnd) continue;
    ReportToken(t, kUnterminatedComment);
    return true;
  }
}

bool ScanWideText(STEPtransfer* t) {
  InputFile& in = *t->file.in;
  BeginSlowToken(t);
  WideSink sink(t);
  for (;;) {
    const int c = PutUpTo(t, kStopsText, sink);
    if (c == InputFile::kEnd) break;
    in.Get();
    if (c == '\n') CountLine(t);
    if (c != '\'') continue;
    if (PeekInToken(t) != '\'') {
      t->value.text = sink.End();
      EndSlowToken(t);
      return true;
    }
    in.Get();
    sink.Put("'", 1);
  }
  t->value.text = sink.End();
  EndSlowToken(t);
  ReportToken(t, kUnterminatedText);
  return false;
}

int WideWordToken(STEPtransfer* t, char first) {
  BeginSlowToken(t);
  WideSink sink(t);
  sink.Put(&first, 1);
  if (first == '"') {
    PutBinary(t, sink);
  } else {
    while (PutUpTo(t, kStopsWord, sink) == '/') {
      if (!StartsComment(t, sink)) continue;
      SkipCommentAfterWord(t);
      break;
    }
  }
  WideRead& wide = *t->wide;
  wide.word = sink.End();
  wide.wordEnd = t->file.in->Cursor();
  wide.wordBlock = t->file.in->Blocks();
  EndSlowToken(t);
  return WideClassifyWord(t, wide.word);
}

}  // namespace steprt
