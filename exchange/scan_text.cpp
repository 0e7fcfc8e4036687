// Texts, and the directives in them.
#include <string>

#include "char_class.h"
#include "scanner.h"

namespace exchange {

namespace {

bool IsAlphabet(char c) { return c >= 'A' && c <= 'I'; }  // the part of ISO 8859 that \P names

// The length of the character of UTF-8 at p, or 0. A NUL ends the bytes.
int Utf8Length(const char* p) {
  const auto first = static_cast<unsigned char>(*p);
  const int length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4) return 0;
  for (int i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(p[i]) & 0xC0U) != 0x80U) return 0;
  }
  return length;
}

}  // namespace

// "'" bytes "'"; two quotes stand for one.
Token Scanner::ScanText() {
  const char* const from = at_++;
  for (;;) {
    while (Is(*at_, kPlainChar)) ++at_;
    if (*at_ == '\'') {
      if (at_[1] != '\'') break;
      at_ += 2;
    } else if (at_ == end_) {
      // The parser reports it if a record follows in the text.
      if (openText_ == nullptr) openText_ = from, lineInText_ = end_;
      faulty_ = true;
      return Make(TokenKind::kBad, from);
    } else {
      if ((*at_ == '\n' || *at_ == '\r') && openText_ == nullptr && IsStatement(at_ + 1)) {
        openText_ = from, lineInText_ = at_ + 1;
      }
      ScanTextByte();
    }
  }
  ++at_;
  return Make(TokenKind::kText, from);
}

void Scanner::ScanTextByte() {
  if (*at_ == '\\') {
    ScanDirective();
  } else if (*at_ == '\n' || *at_ == '\r') {
    ++at_;
  } else {
    ScanRawByte();
  }
}

void Scanner::ScanRawByte() {
  const int length = Utf8Length(at_);
  if (length > 0 && utf8_) {
    at_ += length;
    return;
  }
  Warn(Code::kRawCharacter, at_, [] { return "expected a directive, such as \\X2\\, in place of this character"; });
  at_ += length > 0 ? length : 1;
}

// \\  \N\  \F\  \S\c  \Px\  \X\hh  \X2\hhhh..\X0\  \X4\hhhhhhhh..\X0\.
void Scanner::ScanDirective() {
  const char c = at_[1];
  if (c == '\\') {
    at_ += 2;
  } else if ((c == 'N' || c == 'F') && at_[2] == '\\') {
    at_ += 3;
  } else if (c == 'S' && at_[2] == '\\' && at_[3] >= ' ' && at_[3] <= '~' && (at_[3] != '\'' || at_[4] == '\'')) {
    at_ += at_[3] == '\'' ? 5 : 4;
  } else if (c == 'P' && IsAlphabet(at_[2]) && at_[3] == '\\') {
    at_ += 4;
  } else if (c == 'X' && at_[2] == '\\') {
    at_ += 3;
    if (!SkipHex(2)) Warn(Code::kBadDirective, at_, [] { return "expected two digits 0 to 9, A to F after \\X\\"; });
  } else if (c == 'X' && (at_[2] == '2' || at_[2] == '4') && at_[3] == '\\') {
    ScanHexDirective(at_[2] - '0');
  } else {
    Warn(Code::kBadDirective, at_, [] { return "expected a directive after '\\', or '\\\\'"; });
    ++at_;
  }
}

// Groups of four or eight digits up to \X0\.
void Scanner::ScanHexDirective(int bytes) {
  const char* const from = at_;
  at_ += 4;
  bool any = false;
  while (SkipHex(2 * bytes)) any = true;
  if (any && *at_ == '\\' && at_[1] == 'X' && at_[2] == '0' && at_[3] == '\\') {
    at_ += 4;
    return;
  }
  Warn(Code::kBadDirective, from, [bytes] {
    return "expected groups of " + std::to_string(2 * bytes) + " digits 0 to 9, A to F, and then \\X0\\";
  });
}

bool Scanner::SkipHex(int digits) {
  bool lower = false;
  for (int i = 0; i < digits; ++i) {
    const bool isLower = at_[i] >= 'a' && at_[i] <= 'f';
    if (!isLower && !Is(at_[i], kHexChar)) return false;
    lower = lower || isLower;
  }
  if (lower) Warn(Code::kLowerCase, at_, [] { return "expected digits A to F in capitals"; });
  at_ += digits;
  return true;
}

}  // namespace exchange
