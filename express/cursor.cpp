#include "cursor.h"

#include <algorithm>
#include <utility>

namespace express {

namespace {

constexpr std::size_t kLongestQuote = 40;  // bytes of a token that a message repeats

std::string Quote(std::string_view text) {
  if (text.size() <= kLongestQuote) return "'" + std::string(text) + "'";
  std::size_t cut = kLongestQuote;
  while (cut > 0 && ContinuesCharacter(text[cut])) --cut;
  return "'" + std::string(text.substr(0, cut)) + "...'";
}

// "a", "a or b", "a, b or c", each once.
std::string Listed(const std::vector<std::string_view>& words) {
  std::vector<std::string_view> once;
  for (std::string_view word : words) {
    if (std::find(once.begin(), once.end(), word) == once.end()) once.push_back(word);
  }
  std::string text;
  for (std::size_t i = 0; i < once.size(); ++i) {
    if (i > 0) text += i + 1 == once.size() ? " or " : ", ";
    text += once[i];
  }
  return text;
}

}  // namespace

TokenKind Closer(TokenKind kind) {
  if (kind == TokenKind::kLeftParen) return TokenKind::kRightParen;
  if (kind == TokenKind::kLeftBracket) return TokenKind::kRightBracket;
  if (kind == TokenKind::kLeftBrace) return TokenKind::kRightBrace;
  return TokenKind::kEnd;
}

bool IsCloser(TokenKind kind) {
  return kind == TokenKind::kRightParen || kind == TokenKind::kRightBracket || kind == TokenKind::kRightBrace;
}

TokenKind Cursor::KindAhead(std::size_t ahead) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)].kind; }

Text Cursor::Since(std::size_t first) const {
  const Place place{&source_, tokens_[first].offset};
  return at_ > first ? Text{TextOf(tokens_[first], tokens_[at_ - 1]), place} : Text{{}, place};
}

void Cursor::Advance() {
  if (!AtEnd()) ++at_;
  wanted_.clear();
}

bool Cursor::Accept(TokenKind kind) {
  if (Kind() != kind) {
    Wanted(Describe(kind));
    return false;
  }
  Advance();
  return true;
}

void Cursor::Expect(TokenKind kind) {
  if (!Accept(kind)) Fail();
}

Name Cursor::ExpectName(std::string_view what) {
  if (!CanBeName(Kind())) {
    Wanted(what);
    Fail();
  }
  const Name name = Current();
  Advance();
  return name;
}

void Cursor::ReportUnexpected() {
  std::string found = AtEnd() ? std::string(Describe(TokenKind::kEnd)) : Quote(Current().text);
  if (Kind() >= TokenKind::kAnd && !CanBeName(Kind())) found = "the reserved word " + found;
  diagnostics_.Error(Here(), Code::kSyntax, "expected " + Listed(wanted_) + ", found " + found);
  wanted_.clear();
}

void Cursor::Fail() {
  ReportUnexpected();
  throw SyntaxError{};
}

void Cursor::FailWith(Place place, Code code, std::string message) {
  diagnostics_.Error(place, code, std::move(message));
  throw SyntaxError{};
}

Text Cursor::PassExpression(std::initializer_list<TokenKind> ends) {
  const std::size_t first = at_;
  brackets_.clear();
  for (;;) {
    const TokenKind kind = Kind();
    const bool outside = brackets_.empty();
    if (outside && std::find(ends.begin(), ends.end(), kind) != ends.end()) break;
    const bool closesAnother = IsCloser(kind) && (outside || kind != brackets_.back());
    if (closesAnother || !CanBeInExpression(kind) || (outside && kind == TokenKind::kColon)) {
      if (at_ == first)
        Wanted("an expression");
      else if (!outside)
        Wanted(Describe(brackets_.back()));
      else
        for (TokenKind end : ends) Wanted(Describe(end));
      Fail();
    }
    if (IsCloser(kind)) brackets_.pop_back();
    if (const TokenKind closer = Closer(kind); closer != TokenKind::kEnd) brackets_.push_back(closer);
    Advance();
  }
  if (at_ == first) {
    Wanted("an expression");
    Fail();
  }
  return Since(first);
}

}  // namespace express
