#include "read/tokeniser.h"

#include <climits>
#include <cstring>

#include "read/char_class.h"
#include "read/transfer/report.h"
#include "support/ascii.h"
#include "support/number_parse.h"

namespace steprt {
namespace {

void CountLine(STEPtransfer* t) {
  if (t->line < INT_MAX) ++t->line;
}

// The first byte that is no blank, or InputFile::kEnd.
int SkipBlanks(STEPtransfer* t) {
  InputFile& in = *t->file.in;
  for (const char* p = in.Cursor();;) {
    while (IsIn(kIsBlank, *p)) ++p;
    if (*p != '\n') {
      in.MoveTo(p + 1);
      return static_cast<unsigned char>(*p);
    }
    if (p != in.Limit()) {
      CountLine(t);
      ++p;
      continue;
    }
    in.MoveTo(p);
    if (!in.Refill()) return InputFile::kEnd;
    p = in.Cursor();
  }
}

// ---- numbers that lie inside the block ------------------------------------------------------------------------------

double WordToReal(std::string_view word, Digits digits, int exponent) {
  double value;
  if (digits.count > kMantissaDigits || !SmallDecimalToReal(digits.value, exponent, &value)) return DecimalToReal(word);
  return word.front() == '-' ? -value : value;
}

// number = ["+" | "-"] digits ["." digits] ["E" ["+" | "-"] digits], with a digit in front of the E
//
// The fast road, which leaves the word in the block: gives TOK_INT or TOK_REAL, or kNoToken, with nothing read, for
// every word that is longer than that, needs a closer look, or reaches the block's end.
int ScanNumber(STEPtransfer* t, const char* const start) {
  InputFile& in = *t->file.in;
  const char* p = start;
  if (*p == '-' || *p == '+') ++p;
  Digits digits = {0, 0};
  p = ScanDigitsFast(p, &digits);
  int kind = TOK_INT;
  int exponent = 0;
  if (*p == '.') {
    kind = TOK_REAL;
    const std::ptrdiff_t whole = digits.count;
    p = ScanDigitsFast(p + 1, &digits);
    exponent = static_cast<int>(whole - digits.count);
  }
  if ((*p == 'E' || *p == 'e') && digits.count > 0) {
    kind = TOK_REAL;
    const bool negative = p[1] == '-';
    p += p[1] == '-' || p[1] == '+' ? 2 : 1;
    Digits power = {0, 0};
    p = ScanDigitsFast(p, &power);
    if (power.count == 0 || power.count > kIntDigits) return kNoToken;
    exponent += negative ? -static_cast<int>(power.value) : static_cast<int>(power.value);
  }
  if (!IsIn(kIsDelimiter, *p) || p == in.Limit() || digits.count == 0 || p - start > kTokenLimit) return kNoToken;
  if (kind == TOK_INT) {
    if (digits.count > kIntDigits) return kNoToken;
    t->value.integer = *start == '-' ? -static_cast<int>(digits.value) : static_cast<int>(digits.value);
  } else {
    t->value.real = WordToReal(std::string_view(start, static_cast<std::size_t>(p - start)), digits, exponent);
  }
  in.MoveTo(p);
  return kind;
}

// The same for # and at most nine digits.
int ScanReference(STEPtransfer* t, const char* const mark) {
  InputFile& in = *t->file.in;
  Digits digits = {0, 0};
  const char* p = ScanDigitsFast(mark + 1, &digits);
  if (!IsIn(kIsDelimiter, *p) || p == in.Limit() || digits.count == 0 || digits.count > kIntDigits) return kNoToken;
  t->value.integer = static_cast<int>(digits.value);
  in.MoveTo(p);
  if (t->prefetcher.IsDue()) t->prefetcher.Prefetch(in, t->entries);
  return TOK_REF;
}

// ---- words and texts ------------------------------------------------------------------------------------------------

// Stores what fits behind `target` and counts the rest; terminated by End.
class Sink {
 public:
  Sink(STEPtransfer* t, char* target) : target_(target), end_(t->buffer + kTokenLimit) {}

  void Put(char c) {
    if (target_ != end_) *target_++ = c;
    ++count_;
  }
  void End(STEPtransfer* t) const {
    *target_ = '\0';
    if (count_ >= kTokenLimit) ReportError(t, kTooLong);
  }
  void Terminate() const { *target_ = '\0'; }
  bool IsEmpty() const { return count_ == 0; }

 private:
  char* target_;
  char* const end_;
  std::size_t count_ = 0;
};

void StoreScanned(STEPtransfer* t, char* target, const char* end) {
  const char* start = t->file.in->Cursor();
  const auto length = static_cast<std::size_t>(end - start);
  std::memcpy(target, start, length);
  target[length] = '\0';
}

// A word, byte by byte: one that crosses the block's end or is longer than the buffer.
bool ScanLongWord(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  Sink sink(t, target);
  int c;
  while ((c = in.Peek()) != InputFile::kEnd && !kIsDelimiter[static_cast<unsigned>(c)]) {
    sink.Put(static_cast<char>(c));
    in.Get();
  }
  sink.End(t);
  return c != InputFile::kEnd || !sink.IsEmpty();
}

// word = {any byte but a delimiter}. The first one is behind. False when the file ended before another.
bool ScanWord(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  const char* p = in.Cursor();
  while (!IsIn(kIsDelimiter, *p)) ++p;
  if (p == in.Limit() || p - in.Cursor() >= kTokenLimit) return ScanLongWord(t, target);
  StoreScanned(t, target, p);
  in.MoveTo(p);
  return true;
}

// A text, byte by byte. A line feed is counted behind its own report, so that this names the line of the text.
bool ScanLongText(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  Sink sink(t, target);
  for (;;) {
    const int c = in.Get();
    if (c == '\r') continue;
    if (c == '\'' && in.Peek() == '\'')
      in.Get();
    else if (c == '\'')
      break;
    if (c != InputFile::kEnd && c != '\n') {
      sink.Put(static_cast<char>(c));
      continue;
    }
    sink.Terminate();
    ReportError(t, kUnterminatedText);
    if (c == '\n') CountLine(t);
    sink.End(t);
    return c != InputFile::kEnd || !sink.IsEmpty();
  }
  sink.End(t);
  return true;
}

// text = {any byte but an apostrophe or a line feed | "''"} "'". The opening one is behind. A carriage return vanishes.
// False when the file ended before another byte.
bool ScanText(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  const char* p = in.Cursor();
  while (!IsIn(kStopsText, *p)) ++p;
  const bool isPlain = *p == '\'' && p + 1 != in.Limit() && p[1] != '\'' && p - in.Cursor() < kTokenLimit;
  if (!isPlain) return ScanLongText(t, target);
  StoreScanned(t, target, p);
  in.MoveTo(p + 1);
  return true;
}

int ClassifyWord(STEPtransfer* t) {
  char* const word = t->buffer;
  if (word[0] == '#') {
    t->value.integer = TextToInt(word + 1);
    return TOK_REF;
  }
  if (IsLetter(word[0]) || (word[0] == '.' && IsLetter(word[1]))) {
    t->value.text = word;
    return word[0] == '.' ? TOK_ENUM : TOK_NAME;
  }
  if (IsIntegerText(word)) {
    t->value.integer = TextToInt(word);
    return TOK_INT;
  }
  t->value.real = TextToReal(word);
  return TOK_REAL;
}

int WordToken(STEPtransfer* t, char first) {
  t->buffer[0] = first;
  if (!ScanWord(t, t->buffer + 1)) return Refuse(t, kUnexpectedEof, TOK_ERROR);
  return ClassifyWord(t);
}

int TextToken(STEPtransfer* t) {
  if (!ScanText(t, t->buffer)) return Refuse(t, kUnexpectedEof, TOK_ERROR);
  t->value.text = t->buffer;
  return TOK_TEXT;
}

// A number or reference that starts here and ends inside the block; else kNoToken, with nothing read.
int NumberToken(STEPtransfer* t, const char* start) {
  if (!IsIn(kStartsNumber, *start)) return kNoToken;
  return *start == '#' ? ScanReference(t, start) : ScanNumber(t, start);
}

// Any token, blanks in front of it included.
[[gnu::noinline]] int AnyToken(STEPtransfer* t) {
  const int c = SkipBlanks(t);
  switch (c) {
    case InputFile::kEnd:
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
      return TextToken(t);
    default:
      break;
  }
  const int kind = NumberToken(t, t->file.in->Cursor() - 1);
  return kind != kNoToken ? kind : WordToken(t, static_cast<char>(c));
}

}  // namespace

int NextToken(STEPtransfer* t) {
  if (t->pushedToken != kNoToken) {
    const int kind = t->pushedToken;
    t->pushedToken = kNoToken;
    return kind;
  }
  const int kind = NumberToken(t, t->file.in->Cursor());
  return kind != kNoToken ? kind : AnyToken(t);
}

}  // namespace steprt
