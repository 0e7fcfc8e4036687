// Scopes of edition 1: records within a record.
//
//   #1=&SCOPE #2=A(); #3=B(#2); ENDSCOPE /#2/ C(#2);
#include "parser.h"

namespace exchange {

// After &SCOPE. The records of the scope follow like others.
void Parser::OpenScope() {
  scopes_.emplace_back(TokenKind::kReference, record_.offset);
  reports_.Leave();
}

// After ENDSCOPE: the names that are seen outside, and the instance of the record that has the scope.
void Parser::CloseScope() {
  SetName(scopes_.back());
  scopes_.pop_back();
  token_ = scanner_.Next();
  const bool complete = !token_.Is(TokenKind::kSlash) || ParseExports();
  EndRecord(complete && ParseInstance() && Take(TokenKind::kSemicolon));
}

// name {"," name} "/", and the next token
bool Parser::ParseExports() {
  while (Take(TokenKind::kReference)) {
    token_ = scanner_.Next();
    if (token_.Is(TokenKind::kSlash)) {
      token_ = scanner_.Next();
      return true;
    }
    if (!token_.Is(TokenKind::kComma)) return Expected("',' or '/'");
  }
  return false;
}

// At the end of the section: the records of open scopes have begun and are not read.
void Parser::LeaveScopes() {
  for (; !scopes_.empty(); scopes_.pop_back()) {
    SetName(scopes_.back());
    reports_.Add(Code::kMissingPart, record_.offset, [] { return "expected ENDSCOPE for this scope"; });
    record_.sound = false;
    sink_.OnRecord(record_);
    reports_.Leave();
  }
}

}  // namespace exchange
