#include "read/tokeniser.h"

#include <cstring>

#include "read/char_class.h"
#include "read/transfer/read_store.h"
#include "read/transfer/report.h"
#include "read/wide_tokens.h"
#include "support/ascii.h"
#include "support/number_parse.h"

namespace steprt {
namespace {

// Reads up to the first byte that is no blank, and returns that byte, or InputFile::kEnd at the end of the file.
//
// blanks = {" " | tab | carriage return | line feed}
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

double WordToReal(std::string_view word, Digits digits, int exponent) {
  double value;
  if (digits.count > kMantissaDigits || !SmallDecimalToReal(digits.value, exponent, &value)) return DecimalToReal(word);
  return word.front() == '-' ? -value : value;
}

// exponent = ("E" | "e") ["+" | "-"] digit {digit}, at `p`
//
// Adds its value to *exponent and returns its end. Returns null if there is no digit, or more than an int surely holds.
const char* ScanExponent(const char* p, int* exponent) {
  const bool isNegative = p[1] == '-';
  p += p[1] == '-' || p[1] == '+' ? 2 : 1;
  Digits power = {0, 0};
  p = ScanDigitsFast(p, &power);
  if (power.count == 0 || power.count > kIntDigits) return nullptr;
  *exponent += isNegative ? -static_cast<int>(power.value) : static_cast<int>(power.value);
  return p;
}

// number = ["+" | "-"] {digit} ["." {digit}] [exponent], with a digit before the exponent
//
// The fast path, which converts a number inside the block. Returns TOK_INT or TOK_REAL. Returns kNoToken, with nothing
// read, for every other word: WordToken must look at it.
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
    p = ScanExponent(p, &exponent);
    if (!p) return kNoToken;
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

// reference = "#" digit {digit}, with at most nine digits
//
// The fast path, as for numbers.
int ScanReference(STEPtransfer* t, const char* const mark) {
  InputFile& in = *t->file.in;
  Digits digits = {0, 0};
  const char* p = ScanDigitsFast(mark + 1, &digits);
  if (!IsIn(kIsDelimiter, *p) || p == in.Limit() || digits.count == 0 || digits.count > kIntDigits) return kNoToken;
  t->value.integer = static_cast<int>(digits.value);
  in.MoveTo(p);
  ReadStore& store = *t->store;
  if (store.prefetcher.IsDue()) store.prefetcher.Prefetch(in, store.entries);
  return TOK_REF;
}

// Stores the bytes of a long word or text from `target` on, as many as the buffer holds, and counts the others.
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

// The slow path of ScanWord, for a word that crosses the end of the block or is longer than the buffer.
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

// word = byte {any byte but a delimiter}, of which the first byte has been read
//
// Returns false if the file ends before another byte.
bool ScanWord(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  const char* p = in.Cursor();
  while (!IsIn(kIsDelimiter, *p)) ++p;
  if (p == in.Limit() || p - in.Cursor() >= kTokenLimit) return ScanLongWord(t, target);
  StoreScanned(t, target, p);
  in.MoveTo(p);
  return true;
}

// The slow path of ScanText, for a text that has a doubled apostrophe, does not end on its line, crosses the end of the
// block, or is longer than the buffer. The line feed is counted after its report, which so names the line of the text.
bool ScanLongText(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  Sink sink(t, target);
  for (;;) {
    const int c = in.Get();
    if (c == '\r') continue;
    if (c == '\'') {
      if (in.Peek() != '\'') break;
      in.Get();
    }
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

// text = "'" {any byte but an apostrophe or a line feed | "''"} "'", of which the opening apostrophe has been read
//
// A carriage return is dropped. Returns false if the file ends before another byte.
bool ScanText(STEPtransfer* t, char* target) {
  InputFile& in = *t->file.in;
  const char* p = in.Cursor();
  while (!IsIn(kStopsText, *p)) ++p;
  const bool isPlain = *p == '\'' && p + 1 != in.Limit() && p[1] != '\'' && p - in.Cursor() < kTokenLimit;
  if (!isPlain) return t->wide ? ScanWideText(t) : ScanLongText(t, target);
  StoreScanned(t, target, p);
  in.MoveTo(p + 1);
  return true;
}

// Decides the kind of the word in the buffer by its first characters, and converts it.
//
// word = "#" number | letter {byte} | "." letter {byte} | [sign] digit {digit} | any other, which is a real
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
  if (t->wide) return WideWordToken(t, first);
  t->buffer[0] = first;
  if (!ScanWord(t, t->buffer + 1)) return Refuse(t, kUnexpectedEof, TOK_ERROR);
  return ClassifyWord(t);
}

int TextToken(STEPtransfer* t) {
  t->value.text = t->buffer;
  if (!ScanText(t, t->buffer)) return Refuse(t, kUnexpectedEof, TOK_ERROR);
  return TOK_TEXT;
}

// Reads a number or reference by the fast path. Returns kNoToken, with nothing read, if there is none at `start`.
int NumberToken(STEPtransfer* t, const char* start) {
  if (!IsIn(kStartsNumber, *start)) return kNoToken;
  return *start == '#' ? ScanReference(t, start) : ScanNumber(t, start);
}

// Reads any token, with the blanks before it.
[[gnu::noinline]] int AnyToken(STEPtransfer* t) {
  int c;
  do {
    c = SkipBlanks(t);
  } while (c == '/' && t->wide && SkipComment(t));
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

bool NextByteIs(STEPtransfer* t, char c) {
  int next;
  do {
    next = SkipBlanks(t);
  } while (next == '/' && t->wide && SkipComment(t));
  if (next == InputFile::kEnd) return false;
  t->file.in->MoveTo(t->file.in->Cursor() - 1);
  return next == c;
}

}  // namespace steprt
