// Records, and their values.
#include <string>

#include "parser.h"

namespace exchange {

namespace {

bool IsScalar(TokenKind kind) { return kind >= TokenKind::kInteger && kind <= TokenKind::kDerived; }

}  // namespace

// Reports that `what` was expected in place of the last token, unless the scanner has reported that token.
bool Parser::Expected(std::string_view what) {
  record_.sound = false;
  if (scanner_.HasOpenText()) return false;  // Recover reports the cause
  if (token_.Is(TokenKind::kBad)) return false;
  const TokenKind found = token_.Kind();
  reports_.Add(Code::kSyntax, token_.Offset(),
               [&] { return "expected " + std::string(what) + ", found " + std::string(KindName(found)); });
  return false;
}

bool Parser::Take(TokenKind kind) {
  token_ = scanner_.Next();
  return token_.Is(kind) || Expected(KindName(kind));
}

// Goes to the next statement after a fault.
void Parser::Recover() {
  if (scanner_.HasOpenText()) {
    reports_.Add(Code::kOpenText, scanner_.OpenText(), [] { return "expected ' at the end of this text"; });
    if (MayGoBack(scanner_.LineInOpenText())) return scanner_.Seek(scanner_.LineInOpenText());
  }
  scanner_.Seek(scanner_.Resync(record_.offset, FaultOffset()));
}

// What looked like a reference or a type may start the next statement: "#1=A(2,\n#3=B();", "#1=A(2,\nENDSEC;".
std::size_t Parser::FaultOffset() const {
  if (record_.tokens.empty()) return token_.Offset();
  const Token last = record_.tokens.back();
  const bool mayStart = last.Is(TokenKind::kReference) || last.Is(TokenKind::kKeyword);
  return mayStart ? last.Offset() : token_.Offset();
}

// A file can be made so that each of its lines wants a return from the end of the file. What is read again stays below
// twice what is read, and a little for the start.
bool Parser::MayGoBack(std::size_t to) {
  constexpr std::size_t kFree = 1 << 20;
  const std::size_t from = scanner_.Offset();
  if (to > from || readAgain_ + (from - to) > 2 * from + kFree) return to > from;
  readAgain_ += from - to;
  return true;
}

// "#12" "=" instance ";"
void Parser::ParseRecord(Token name) {
  SetName(name);
  if (!name.Is(TokenKind::kReference)) Expected("an instance name");
  if (!name.Is(TokenKind::kReference) || !Take(TokenKind::kEqual)) return EndRecord(false);
  token_ = scanner_.Next();
  if (token_.Is(TokenKind::kKeyword) && record_.bytes[token_.Offset()] == '&') return OpenScope();
  EndRecord(ParseInstance() && Take(TokenKind::kSemicolon));
}

void Parser::SetName(Token name) {
  record_.offset = name.Offset();
  record_.hasName = name.Is(TokenKind::kReference);
  if (!record_.hasName) return;
  record_.name = InstanceName(record_.bytes, name, record_.hasName);
  if (record_.hasName) reports_.Enter(record_.name);
}

void Parser::EndRecord(bool complete) {
  if (!complete) Recover();
  record_.sound = complete && !scanner_.Faulty();
  sink_.OnRecord(record_);
  reports_.Leave();
  Progress();
}

// The last token is its first one.
bool Parser::ParseInstance() {
  if (token_.Is(TokenKind::kOpen)) return ParseComplex();
  if (!token_.Is(TokenKind::kKeyword) && !token_.Is(TokenKind::kUserKeyword)) return Expected("a keyword or '('");
  record_.tokens.push_back(token_);
  return ParseParameters();
}

// "(" keyword parameters, at least once, ")"
bool Parser::ParseComplex() {
  record_.complex = true;
  for (bool first = true;; first = false) {
    token_ = scanner_.Next();
    if (token_.Is(TokenKind::kClose) && !first) return true;
    if (!token_.Is(TokenKind::kKeyword) && !token_.Is(TokenKind::kUserKeyword)) {
      return Expected(first ? "a keyword" : "a keyword or ')'");
    }
    record_.tokens.push_back(token_);
    if (!ParseParameters()) return false;
  }
}

// "(" [value {"," value}] ")"
bool Parser::ParseParameters() {
  if (!Take(TokenKind::kOpen)) return false;
  record_.tokens.push_back(token_);
  brackets_.assign(1, Bracket::kParameters);
  bool mayClose = true;  // after an opening bracket
  while (ParseValue(mayClose)) {
    if (brackets_.empty()) return true;
    // After a bracket that was opened a value follows, after a comma too.
    mayClose = token_.Is(TokenKind::kOpen) && brackets_.back() != Bracket::kTyped;
  }
  return false;
}

// A scalar with what follows it, up to a comma or to the last bracket that is closed; or an opening bracket.
bool Parser::ParseValue(bool mayClose) {
  token_ = scanner_.Next();
  if (IsScalar(token_.Kind())) {
    record_.tokens.push_back(token_);
    token_ = scanner_.Next();
    return CloseBrackets();
  }
  switch (token_.Kind()) {
    case TokenKind::kOpen:
      record_.tokens.push_back(token_);
      brackets_.push_back(Bracket::kList);
      return true;
    case TokenKind::kClose:
      return mayClose ? CloseBrackets() : Expected("a value");
    case TokenKind::kKeyword:
    case TokenKind::kUserKeyword:
      return OpenTyped();
    default:
      return Expected(mayClose ? "a value or ')'" : "a value");
  }
}

// keyword "(" value ")"
bool Parser::OpenTyped() {
  record_.tokens.push_back(token_);
  if (!Take(TokenKind::kOpen)) return false;
  record_.tokens.push_back(token_);
  brackets_.push_back(Bracket::kTyped);
  return true;
}

// The token after a value: closing brackets, and then a comma if a bracket is still open.
bool Parser::CloseBrackets() {
  while (token_.Is(TokenKind::kClose)) {
    record_.tokens.push_back(token_);
    brackets_.pop_back();
    if (brackets_.empty()) return true;
    token_ = scanner_.Next();
  }
  const bool typed = brackets_.back() == Bracket::kTyped;
  if (token_.Is(TokenKind::kComma) && !typed) return true;
  return Expected(typed ? "')' after the value of a type" : "',' or ')'");
}

}  // namespace exchange
