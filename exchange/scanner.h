// From bytes to tokens.
#ifndef STEPRT_EXCHANGE_SCANNER_H
#define STEPRT_EXCHANGE_SCANNER_H

#include <cstddef>
#include <string_view>

#include "reports.h"
#include "token.h"

namespace exchange {

// A token in another form than ISO 10303-21 has is reported, and comes back with the kind that it looks like.
class Scanner {
 public:
  // A NUL that does not count must follow the bytes.
  Scanner(std::string_view bytes, Reports& reports);

  Token Next();

  std::string_view Bytes() const { return {begin_, static_cast<std::size_t>(end_ - begin_)}; }
  // Where the last token ends, and where the next one is looked for.
  std::size_t Offset() const { return OffsetOf(at_); }
  void Seek(std::size_t offset) { at_ = begin_ + offset, unread_ = false; }
  // Next returns the last token once more, and reports nothing of it again.
  void Unread(Token last) { last_ = last, unread_ = true; }

  // What was found since the last call of Restart.
  void Restart() { faulty_ = false, openText_ = nullptr; }
  bool Faulty() const { return faulty_; }
  // A text that runs over a line which starts like a record, or like ENDSEC, probably lacks its end.
  bool HasOpenText() const { return openText_ != nullptr; }
  std::size_t OpenText() const { return OffsetOf(openText_); }
  std::size_t LineInOpenText() const { return OffsetOf(lineInText_); }

  // Edition 3 allows texts in UTF-8.
  void AllowUtf8(bool allow) { utf8_ = allow; }
  // The items of an ANCHOR section may have tags: <a>=#1{T:5};
  void AllowTags(bool allow) { tags_ = allow; }

  // Where to read on after a fault that was met at `from`: after the next semicolon, or at the next record or ENDSEC.
  // A record that starts at `from` counts only if `from` is after `start`.
  std::size_t Resync(std::size_t start, std::size_t from);

 private:
  Token Make(TokenKind kind, const char* from) const { return {kind, OffsetOf(from)}; }
  std::size_t OffsetOf(const char* p) const { return static_cast<std::size_t>(p - begin_); }
  template <class Message>
  void Fault(Code code, const char* at, Message message);
  // For what leaves the token as it is.
  template <class Message>
  void Warn(Code code, const char* at, Message message);

  void SkipBlanks();
  void SkipComment();
  Token ScanSymbol(TokenKind kind);
  Token ScanHash();
  Token ScanAt();
  Token ScanNumber();
  void ScanFraction();
  Token ScanWord();
  void ScanLowerCase();
  Token ScanUserKeyword();
  Token ScanScope();
  Token ScanEnumerator();
  Token ScanBinary();
  Token ScanResource();
  Token ScanBad();
  Token ScanText();
  void ScanTextByte();
  void ScanDirective();
  void ScanHexDirective(int bytes);
  bool SkipHex(int digits);
  void ScanRawByte();
  bool IsRecord(const char* p) const;
  bool IsStatement(const char* p) const;
  const char* SkipTextBytes(const char* p) const;
  const char* SkipCommentBytes(const char* p, bool& closed);

  const char* begin_;
  const char* end_;
  const char* at_;
  const char* openText_ = nullptr;
  const char* lineInText_ = nullptr;
  const char* noCommentEnd_ = nullptr;  // from here on nothing ends a comment
  Reports& reports_;
  Token last_;
  bool unread_ = false;
  bool faulty_ = false;
  bool utf8_ = false;
  bool tags_ = false;
};

template <class Message>
void Scanner::Fault(Code code, const char* at, Message message) {
  faulty_ = true;
  reports_.Add(code, OffsetOf(at), message);
}

template <class Message>
void Scanner::Warn(Code code, const char* at, Message message) {
  reports_.Add(code, OffsetOf(at), message);
}

}  // namespace exchange

#endif
