#include "scanner.h"

#include <cstring>

#include "char_class.h"

namespace exchange {

Scanner::Scanner(std::string_view bytes, Reports& reports)
    : begin_(bytes.data()), end_(bytes.data() + bytes.size()), at_(begin_), reports_(reports) {}

Token Scanner::Next() {
  if (unread_) {
    unread_ = false;
    return last_;
  }
  SkipBlanks();
  switch (*at_) {
    case ',':
      return ScanSymbol(TokenKind::kComma);
    case '(':
      return ScanSymbol(TokenKind::kOpen);
    case ')':
      return ScanSymbol(TokenKind::kClose);
    case ';':
      return ScanSymbol(TokenKind::kSemicolon);
    case '=':
      return ScanSymbol(TokenKind::kEqual);
    case '/':
      return ScanSymbol(TokenKind::kSlash);
    case '&':
      return ScanScope();
    case '$':
      return ScanSymbol(TokenKind::kOmitted);
    case '*':
      return ScanSymbol(TokenKind::kDerived);
    case '#':
      return ScanHash();
    case '\'':
      return ScanText();
    case '.':
      return ScanEnumerator();
    case '"':
      return ScanBinary();
    case '!':
      return ScanUserKeyword();
    case '@':
      return ScanAt();
    case '<':
      return ScanResource();
    case '+':
    case '-':
      return ScanNumber();
    default:
      if (Is(*at_, kDigitChar)) return ScanNumber();
      if (Is(*at_, kUpperChar | kLowerChar)) return ScanWord();
      return at_ == end_ ? Make(TokenKind::kEnd, at_) : ScanBad();
  }
}

// blanks, comments, and the print control directives \N\ and \F\.
void Scanner::SkipBlanks() {
  for (;;) {
    while (Is(*at_, kBlankChar)) ++at_;
    if (*at_ == '/' && at_[1] == '*') {
      SkipComment();
    } else if (*at_ == '\\' && (at_[1] == 'N' || at_[1] == 'F') && at_[2] == '\\') {
      at_ += 3;
    } else {
      return;
    }
  }
}

// After a comment. If it has no end: at the next line that starts like a statement, or at the end of the bytes.
const char* Scanner::SkipCommentBytes(const char* p, bool& closed) {
  const char* const from = p;
  p += 2;
  // Where one comment has no end, later ones have none either, and need no search.
  while (noCommentEnd_ == nullptr || p < noCommentEnd_) {
    p = static_cast<const char*>(std::memchr(p, '*', static_cast<std::size_t>(end_ - p)));
    if (p == nullptr) break;
    closed = p[1] == '/';
    if (closed) return p + 2;
    ++p;
  }
  closed = false;
  if (noCommentEnd_ == nullptr) noCommentEnd_ = from;
  for (p = from; p != end_; ++p) {
    if ((*p == '\n' || *p == '\r') && IsStatement(p + 1)) return p + 1;
  }
  return p;
}

void Scanner::SkipComment() {
  bool closed = false;
  const char* const after = SkipCommentBytes(at_, closed);
  if (!closed) Warn(Code::kOpenComment, at_, [] { return "expected '*/' at the end of this comment"; });
  at_ = after;
}

Token Scanner::ScanSymbol(TokenKind kind) { return Make(kind, at_++); }

// "#" digits, or "#" and the name of a constant.
Token Scanner::ScanHash() {
  const char* const from = at_++;
  if (Is(*at_, kUpperChar)) {
    while (Is(*at_, kDigitChar | kUpperChar)) ++at_;
    return Make(TokenKind::kConstant, from);
  }
  while (Is(*at_, kDigitChar)) ++at_;
  const Token token = Make(TokenKind::kReference, from);
  if (at_ - from == 1) {
    Fault(Code::kSyntax, from, [] { return "expected digits after '#'"; });
    return Make(TokenKind::kBad, from);
  }
  constexpr std::ptrdiff_t kSafe = 20;  // "#" and 19 digits fit always
  bool fits = true;
  if (at_ - from > kSafe) InstanceName(Bytes(), token, fits);
  if (!fits) Fault(Code::kLargeName, from, [] { return "expected an instance name of at most 64 bits"; });
  return token;
}

Token Scanner::ScanAt() {
  const char* const from = at_++;
  const bool constant = Is(*at_, kUpperChar);
  const int set = constant ? kDigitChar | kUpperChar : kDigitChar;
  while (Is(*at_, set)) ++at_;
  if (at_ - from == 1) {
    Fault(Code::kSyntax, from, [] { return "expected digits or a name after '@'"; });
    return Make(TokenKind::kBad, from);
  }
  return Make(constant ? TokenKind::kConstant : TokenKind::kValueName, from);
}

// [sign] digits [ "." [digits] [ "E" [sign] digits ] ]
Token Scanner::ScanNumber() {
  const char* const from = at_;
  if (*at_ == '+' || *at_ == '-') ++at_;
  const char* const digits = at_;
  while (Is(*at_, kDigitChar)) ++at_;
  if (*at_ == '.') {
    if (at_ == digits) Fault(Code::kBadNumber, from, [] { return "expected a digit before the point of a real"; });
    ScanFraction();
    return Make(TokenKind::kReal, from);
  }
  if (at_ == digits) {
    Fault(Code::kBadNumber, from, [] { return "expected a digit after the sign"; });
  } else if (*at_ == 'E' || *at_ == 'e') {
    Fault(Code::kBadNumber, from, [] { return "expected a point in a real before its exponent"; });
    ScanFraction();
    return Make(TokenKind::kReal, from);
  }
  return Make(TokenKind::kInteger, from);
}

// From the point on.
void Scanner::ScanFraction() {
  if (*at_ == '.') ++at_;
  while (Is(*at_, kDigitChar)) ++at_;
  if (*at_ != 'E' && *at_ != 'e') return;
  if (*at_ == 'e') Warn(Code::kLowerCase, at_, [] { return "expected 'E' before an exponent, found 'e'"; });
  const char* const exponent = at_++;
  if (*at_ == '+' || *at_ == '-') ++at_;
  const char* const digits = at_;
  while (Is(*at_, kDigitChar)) ++at_;
  if (at_ == digits) Fault(Code::kBadNumber, exponent, [] { return "expected digits in an exponent"; });
}

// The words of the frame, such as END-ISO-10303-21, have hyphens.
Token Scanner::ScanWord() {
  const char* const from = at_;
  while (Is(*at_, kDigitChar | kUpperChar)) ++at_;
  if (*at_ == '-' && (std::string_view(from, 3) == "ISO" || std::string_view(from, 3) == "END")) {
    while (Is(*at_, kDigitChar | kUpperChar) || *at_ == '-') ++at_;
  }
  if (Is(*at_, kLowerChar)) ScanLowerCase();
  return Make(TokenKind::kKeyword, from);
}

// &SCOPE, of edition 1.
Token Scanner::ScanScope() {
  if (std::strncmp(at_, "&SCOPE", 6) != 0) return ScanBad();
  const char* const from = at_++;
  ScanWord();
  return Make(TokenKind::kKeyword, from);
}

// A word without a bracket is no keyword; the parser reports it.
void Scanner::ScanLowerCase() {
  const char* const lower = at_;
  while (Is(*at_, kWordChar)) ++at_;
  const char* next = at_;
  while (Is(*next, kBlankChar)) ++next;
  if (*next == '(') Warn(Code::kLowerCase, lower, [] { return "expected capitals in a keyword"; });
}

Token Scanner::ScanUserKeyword() {
  const char* const from = at_++;
  if (!Is(*at_, kUpperChar | kLowerChar)) {
    Fault(Code::kSyntax, from, [] { return "expected a keyword after '!'"; });
    return Make(TokenKind::kBad, from);
  }
  ScanWord();
  return Make(TokenKind::kUserKeyword, from);
}

// "." capitals, digits "."
Token Scanner::ScanEnumerator() {
  const char* const from = at_++;
  if (Is(*at_, kDigitChar)) {
    Fault(Code::kBadNumber, from, [] { return "expected a digit before the point of a real"; });
    at_ = from;
    ScanFraction();
    return Make(TokenKind::kReal, from);
  }
  while (Is(*at_, kDigitChar | kUpperChar)) ++at_;
  if (Is(*at_, kLowerChar)) {
    Warn(Code::kLowerCase, at_, [] { return "expected capitals in an enumerator"; });
    while (Is(*at_, kWordChar)) ++at_;
  }
  const bool closed = *at_ == '.';
  if (closed) ++at_;
  if (!closed || at_ - from == 2) {
    Fault(Code::kBadEnumerator, from, [] { return "expected an enumerator, such as .STEEL."; });
  }
  return Make(TokenKind::kEnumerator, from);
}

// A quote, the number of unused bits, hexadecimal digits, a quote. Blanks may be among them.
Token Scanner::ScanBinary() {
  const char* const from = at_++;
  const bool counted = *at_ >= '0' && *at_ <= '3';
  std::size_t digits = 0;
  const char* lower = nullptr;
  for (; Is(*at_, kHexChar | kBlankChar) || (*at_ >= 'a' && *at_ <= 'f'); ++at_) {
    if (!Is(*at_, kBlankChar)) ++digits;
    if (*at_ >= 'a' && lower == nullptr) lower = at_;
  }
  if (lower != nullptr) Warn(Code::kLowerCase, lower, [] { return "expected digits A to F in capitals"; });
  const bool closed = *at_ == '"';
  const bool hollow = digits == 1 && from[1] != '0';  // unused bits of no digit
  if (!closed || !counted || hollow) {
    Fault(Code::kBadBinary, from, [] { return "expected a binary: 0 to 3, then digits 0 to 9 and A to F, in quotes"; });
  }
  if (closed) ++at_;
  return Make(TokenKind::kBinary, from);
}

Token Scanner::ScanResource() {
  const char* const from = at_;
  while (at_ != end_ && *at_ != '>' && *at_ != '\n' && *at_ != '\r') ++at_;
  if (*at_ != '>') {
    Fault(Code::kBadCharacter, from, [] { return "expected '>' at the end of a resource"; });
    return Make(TokenKind::kBad, from);
  }
  ++at_;
  return Make(TokenKind::kResource, from);
}

Token Scanner::ScanBad() {
  const char* const from = at_++;
  if (tags_ && (*from == '{' || *from == '}' || *from == ':')) return Make(TokenKind::kBad, from);
  while ((static_cast<unsigned char>(*at_) & 0xC0U) == 0x80U) ++at_;
  Fault(Code::kBadCharacter, from, [] { return "expected a token, found a character that starts none"; });
  return Make(TokenKind::kBad, from);
}

// "#" digits [blanks] "="
bool Scanner::IsRecord(const char* p) const {
  if (*p != '#' || !Is(p[1], kDigitChar)) return false;
  for (++p; Is(*p, kDigitChar);) ++p;
  while (Is(*p, kBlankChar)) ++p;
  return *p == '=';
}

// A record, or ENDSEC and a semicolon.
bool Scanner::IsStatement(const char* p) const {
  constexpr std::string_view kEndSection = "ENDSEC";
  if (*p != 'E') return IsRecord(p);
  if (std::strncmp(p, kEndSection.data(), kEndSection.size()) != 0) return false;
  for (p += kEndSection.size(); Is(*p, kBlankChar);) ++p;
  return *p == ';';
}

// After a text from its first quote on, or at a line in it that starts like a statement.
const char* Scanner::SkipTextBytes(const char* p) const {
  for (++p; p != end_; ++p) {
    if (*p == '\'') return p + 1;
    if ((*p == '\n' || *p == '\r') && IsStatement(p + 1)) return p + 1;
  }
  return p;
}

std::size_t Scanner::Resync(std::size_t start, std::size_t from) {
  const char* p = begin_ + from;
  bool closed = false;
  while (p != end_) {
    switch (*p) {
      case ';':
        return OffsetOf(p + 1);
      case '\'':
        p = SkipTextBytes(p);
        continue;
      case '/':
        if (p[1] != '*') break;
        p = SkipCommentBytes(p, closed);
        continue;
      case '#':
        if (OffsetOf(p) > start && IsRecord(p)) return OffsetOf(p);
        break;
      case 'E':
        if (OffsetOf(p) > start && IsStatement(p) && !Is(p[-1], kWordChar)) return OffsetOf(p);
        break;
      default:
        break;
    }
    ++p;
  }
  return OffsetOf(p);
}

}  // namespace exchange
