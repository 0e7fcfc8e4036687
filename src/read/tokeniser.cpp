#include "read/tokeniser.h"

#include <array>
#include <cstring>

#include "read/char_class.h"
#include "read/transfer/place.h"
#include "read/transfer/read_store.h"
#include "read/transfer/report.h"
#include "read/wide_tokens.h"
#include "support/ascii.h"
#include "support/eight_bytes.h"
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

// Reads any word after its first byte. Returns false if the file ends before another byte.
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

// Reads any text. Returns false if the file ends before another byte. A line feed is counted after its report, which so
// names the line of the text.
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
    t->nameLength = std::strlen(word);
    return word[0] == '.' ? TOK_ENUM : TOK_NAME;
  }
  if (IsIntegerText(word)) {
    t->value.integer = TextToInt(word);
    return TOK_INT;
  }
  t->value.real = TextToReal(word);
  return TOK_REAL;
}

// Reads any word whose first byte has been read.
int RestOfWord(STEPtransfer* t, char first) {
  if (t->wide) return WideWordToken(t, first);
  t->buffer[0] = first;
  if (!ScanLongWord(t, t->buffer + 1)) return Refuse(t, kUnexpectedEof, TOK_ERROR);
  return ClassifyWord(t);
}

// The slow path of every word.
[[gnu::noinline]] int AnyWord(STEPtransfer* t, const char* start) {
  t->file.in->MoveTo(start + 1);
  return RestOfWord(t, *start);
}

// The slow path of every text.
[[gnu::noinline]] int AnyText(STEPtransfer* t, const char* apostrophe) {
  t->file.in->MoveTo(apostrophe + 1);
  t->value.text = t->buffer;
  if (!(t->wide ? ScanWideText(t) : ScanLongText(t, t->buffer))) return Refuse(t, kUnexpectedEof, TOK_ERROR);
  return TOK_TEXT;
}

// The fast paths. Each reads a token that is whole in the block and not too long, and leaves every other one to a slow
// path. It calls that at its very end, so it needs no registers but those that every function may use.

// Copies the bytes from `start` on to a place in the buffer, up to the first one of `stops`, and terminates them.
// `mark` marks among eight bytes those that may be one. Returns the place of the stop, or null if they may be too many.
template <typename Mark>
const char* CopyUpTo(char* target, const char* const start, const ByteSet& stops, Mark mark) {
  constexpr std::ptrdiff_t kLastCopy = kTokenLimit - std::ptrdiff_t{kScanReach};
  for (const char* p = start; p - start <= kLastCopy;) {
    std::memcpy(target + (p - start), p, kScanReach);
    const std::uint64_t marks = mark(LoadEight(p));
    p += FirstMarked(marks);
    if (marks == 0) continue;
    if (IsIn(stops, *p)) {
      target[p - start] = '\0';
      return p;
    }
    ++p;
  }
  return nullptr;
}

// Converts a word that is neither a name nor an enumerator and is whole in the buffer. Its end is at the cursor. A
// standard file has further forms of such words.
[[gnu::noinline]] int OtherWord(STEPtransfer* t, const char* start) {
  return t->wide ? AnyWord(t, start) : ClassifyWord(t);
}

// word = byte {any byte but a delimiter}
//
// Letters and `_` are above all bytes that end a word.
int ScanWord(STEPtransfer* t, const char* const start) {
  InputFile& in = *t->file.in;
  const ByteSet& stops = t->wide ? kStopsWord : kIsDelimiter;
  const auto mark = [](std::uint64_t bytes) { return MarkBelow(bytes, '@'); };
  t->buffer[0] = *start;
  const char* end = CopyUpTo(t->buffer + 1, start + 1, stops, mark);
  if (!end || !IsIn(kIsDelimiter, *end) || end == in.Limit()) return AnyWord(t, start);
  in.MoveTo(end);
  t->value.text = t->buffer;
  t->nameLength = static_cast<std::size_t>(end - start);
  if (IsLetter(*start)) return TOK_NAME;
  return *start == '.' && IsLetter(start[1]) ? TOK_ENUM : OtherWord(t, start);
}

// exponent = ("E" | "e") ["+" | "-"] digit {digit}, at `p`
//
// Adds its value to *exponent and returns its end. Returns null if there is no digit, or more than an int surely holds.
const char* ScanExponent(const char* p, int* exponent) {
  const bool isNegative = p[1] == '-';
  p += p[1] == '-' || p[1] == '+' ? 2 : 1;
  Digits power = {0, 0};
  p = ScanDigits(p, &power);
  if (power.count == 0 || power.count > kIntDigits) return nullptr;
  *exponent += isNegative ? -static_cast<int>(power.value) : static_cast<int>(power.value);
  return p;
}

// Reads a real that SmallDecimalToReal does not convert. It ends at `end`.
[[gnu::noinline]] int LongReal(STEPtransfer* t, const char* start, const char* end) {
  if (end - start > kTokenLimit) return ScanWord(t, start);
  t->value.real = DecimalToReal(std::string_view(start, static_cast<std::size_t>(end - start)));
  t->file.in->MoveTo(end);
  return TOK_REAL;
}

int RealToken(STEPtransfer* t, const char* start, const char* end, Digits digits, int exponent) {
  double value;
  const bool isShort = digits.count <= kMantissaDigits;
  if (!isShort || !SmallDecimalToReal(digits.value, exponent, &value)) return LongReal(t, start, end);
  t->value.real = *start == '-' ? -value : value;
  t->file.in->MoveTo(end);
  return TOK_REAL;
}

int IntegerToken(STEPtransfer* t, const char* start, const char* end, Digits digits) {
  if (digits.count > kIntDigits) return ScanWord(t, start);
  t->value.integer = *start == '-' ? -static_cast<int>(digits.value) : static_cast<int>(digits.value);
  t->file.in->MoveTo(end);
  return TOK_INT;
}

// number = ["+" | "-"] {digit} ["." {digit}] [exponent], with a digit before the exponent
int ScanNumber(STEPtransfer* t, const char* const start) {
  const char* p = start;
  if (*p == '-' || *p == '+') ++p;
  Digits digits = {0, 0};
  p = ScanDigitsFast(p, &digits);
  bool isReal = false;
  int exponent = 0;
  if (*p == '.') {
    isReal = true;
    const std::ptrdiff_t whole = digits.count;
    p = ScanDigitsFast(p + 1, &digits);
    exponent = static_cast<int>(whole - digits.count);
  }
  if ((*p == 'E' || *p == 'e') && digits.count > 0) {
    isReal = true;
    p = ScanExponent(p, &exponent);
    if (!p) return ScanWord(t, start);
  }
  if (!IsIn(kIsDelimiter, *p) || p == t->file.in->Limit() || digits.count == 0) return ScanWord(t, start);
  return isReal ? RealToken(t, start, p, digits, exponent) : IntegerToken(t, start, p, digits);
}

// Prefetches, and returns the kind of the token before.
[[gnu::noinline]] int PrefetchAfter(STEPtransfer* t, int kind) {
  t->store->prefetcher.Prefetch(*t->file.in, t->store->entries);
  return kind;
}

// reference = "#" digit {digit}, with at most nine digits
int ScanReference(STEPtransfer* t, const char* const mark) {
  InputFile& in = *t->file.in;
  Digits digits = {0, 0};
  const char* p = ScanDigitsFast(mark + 1, &digits);
  const bool isShort = digits.count > 0 && digits.count <= kIntDigits;
  if (!isShort || !IsIn(kIsDelimiter, *p) || p == in.Limit()) return ScanWord(t, mark);
  t->value.integer = static_cast<int>(digits.value);
  in.MoveTo(p);
  return t->store->prefetcher.IsDue() ? PrefetchAfter(t, TOK_REF) : TOK_REF;
}

// text = "'" {any byte but an apostrophe or a line feed | "''"} "'"
//
// A text that has a doubled apostrophe, does not end on its line or has a carriage return, which is dropped, is left to
// the slow path.
int ScanText(STEPtransfer* t, const char* const apostrophe) {
  InputFile& in = *t->file.in;
  const auto mark = [](std::uint64_t bytes) { return MarkBelow(bytes, ' ') | MarkEqual(bytes, '\''); };
  const char* end = CopyUpTo(t->buffer, apostrophe + 1, kStopsText, mark);
  if (!end || *end != '\'' || end + 1 == in.Limit() || end[1] == '\'') return AnyText(t, apostrophe);
  in.MoveTo(end + 1);
  t->value.text = t->buffer;
  return TOK_TEXT;
}

// The kind of token that a byte begins: TOK_INT for a real too, and TOK_ERROR for a word of another kind.
constexpr std::array<unsigned char, 256> kKindOfFirst = [] {
  std::array<unsigned char, 256> kinds = {};
  for (unsigned c = 0; c < kinds.size(); ++c) {
    if (IsLetter(static_cast<char>(c))) kinds[c] = TOK_NAME;
  }
  for (const char c : std::string_view("+-0123456789")) kinds[static_cast<unsigned char>(c)] = TOK_INT;
  for (const char c : std::string_view(" \t\r\n/")) kinds[static_cast<unsigned char>(c)] = TOK_EOF;
  kinds['#'] = TOK_REF;
  kinds['\''] = TOK_TEXT;
  kinds['.'] = TOK_ENUM;
  kinds['$'] = kinds['*'] = TOK_NULL;
  kinds['='] = TOK_EQUAL;
  kinds['('] = TOK_OPEN;
  kinds[')'] = TOK_CLOSE;
  kinds[','] = TOK_COMMA;
  kinds[';'] = TOK_SEMI;
  return kinds;
}();

int TokenAfterBlank(STEPtransfer* t, const char* blank);

// Reads the token that begins at `p`, or after blanks from there on.
inline int TokenAt(STEPtransfer* t, const char* p) {
  const int kind = kKindOfFirst[static_cast<unsigned char>(*p)];
  if (kind == TOK_REF) return ScanReference(t, p);
  if (kind == TOK_INT) return ScanNumber(t, p);
  if (kind == TOK_TEXT) return ScanText(t, p);
  if (kind == TOK_EOF) return TokenAfterBlank(t, p);
  if (kind < TOK_NULL) return ScanWord(t, p);
  t->file.in->MoveTo(p + 1);
  return kind;
}

// Reads the token after any number of blanks and comments.
[[gnu::noinline]] int TokenAfterAll(STEPtransfer* t, const char* start) {
  t->file.in->MoveTo(start);
  int c;
  do {
    c = SkipBlanks(t);
  } while (c == '/' && t->wide && SkipComment(t));
  if (c == InputFile::kEnd) return TOK_EOF;
  return c == '/' ? RestOfWord(t, '/') : TokenAt(t, t->file.in->Cursor() - 1);
}

// The fast path for the one blank that most tokens have before them, if any: the end of a line.
[[gnu::noinline]] int TokenAfterBlank(STEPtransfer* t, const char* blank) {
  const char* p = blank + 1;
  if (*blank == '/' || blank == t->file.in->Limit() || kKindOfFirst[static_cast<unsigned char>(*p)] == TOK_EOF) {
    return TokenAfterAll(t, blank);
  }
  if (*blank == '\n') CountLine(t);
  return TokenAt(t, p);
}

}  // namespace

int NextToken(STEPtransfer* t) {
  if (t->pushedToken == kNoToken) return TokenAt(t, t->file.in->Cursor());
  const int kind = t->pushedToken;
  t->pushedToken = kNoToken;
  return kind;
}

bool NextByteIs(STEPtransfer* t, char c) {
  InputFile& in = *t->file.in;
  if (*in.Cursor() == c) return true;  // never the line feed at the limit
  const Place place = t->wide ? PlaceOfLastToken(t) : Place();
  int next;
  do {
    next = SkipBlanks(t);
  } while (next == '/' && t->wide && SkipComment(t));
  if (next != InputFile::kEnd) in.MoveTo(in.Cursor() - 1);
  if (t->wide) KeepPlaceOfLastToken(t, place);
  return next == static_cast<unsigned char>(c);
}

}  // namespace steprt
