// The parser's place among the tokens. It remembers what was asked for since the last token was taken, so that a syntax
// error lists all that would have been accepted.
#ifndef STEPRT_EXPRESS_CURSOR_H
#define STEPRT_EXPRESS_CURSOR_H

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostic.h"
#include "limits.h"
#include "source.h"
#include "token.h"

namespace express {

// Thrown after a syntax error has been reported; caught where the parser can go on.
struct SyntaxError {};

class Cursor {
 public:
  // `tokens` ends with kEnd and stays that of the caller.
  Cursor(const Source& source, const std::vector<Token>& tokens, Diagnostics& diagnostics)
      : source_(source), tokens_(tokens), diagnostics_(diagnostics) {}

  TokenKind Kind() const { return tokens_[at_].kind; }
  TokenKind KindAhead(std::size_t ahead) const;
  bool AtEnd() const { return Kind() == TokenKind::kEnd; }
  std::size_t Index() const { return at_; }
  Place Here() const { return {&source_, tokens_[at_].offset}; }
  // The text of the token, and of the tokens from the one of index `first` up to the last that was taken.
  Text Current() const { return {TextOf(tokens_[at_], tokens_[at_]), Here()}; }
  Text Since(std::size_t first) const;

  void Advance();

  // Takes the token if it is of this kind; else remembers that it would have been accepted.
  bool Accept(TokenKind kind);
  // Accept, and a syntax error if that fails.
  void Expect(TokenKind kind);
  // A name; `what` describes it in the error: "the name of an entity".
  Name ExpectName(std::string_view what);

  // Adds to what the next error lists.
  void Wanted(std::string_view what) { wanted_.push_back(what); }
  // Reports what was wanted and what is here instead, and throws SyntaxError.
  [[noreturn]] void Fail();
  [[noreturn]] void FailWith(Place place, Code code, std::string message);
  // As Fail, without the exception.
  void ReportUnexpected();

  // Passes over one expression up to the first of `ends` that is outside all brackets, which it leaves. Brackets must
  // match. What an expression cannot hold is a syntax error.
  Text PassExpression(std::initializer_list<TokenKind> ends);

 private:
  std::string_view TextOf(const Token& first, const Token& last) const {
    return source_.Text().substr(first.offset, last.offset + last.length - first.offset);
  }

  const Source& source_;
  const std::vector<Token>& tokens_;
  Diagnostics& diagnostics_;
  std::size_t at_ = 0;
  std::vector<std::string_view> wanted_;
  std::vector<TokenKind> brackets_;  // of PassExpression: the closing ones that are due
};

// The bracket that closes `kind`; kEnd if it opens none.
TokenKind Closer(TokenKind kind);
bool IsCloser(TokenKind kind);

}  // namespace express

#endif
