// Constants, and what is kept as text: the bodies of functions, procedures and rules. Their statements are passed over,
// but blocks and brackets must match, so that a forgotten END_IF is reported near its place.
#include <utility>

#include "parser.h"

namespace express {

namespace {

// The word that ends a block which `kind` starts; kEnd if it starts none.
TokenKind BlockEnd(TokenKind kind) {
  switch (kind) {
    case TokenKind::kAlias:
      return TokenKind::kEndAlias;
    case TokenKind::kBegin:
      return TokenKind::kEndBlock;
    case TokenKind::kCase:
      return TokenKind::kEndCase;
    case TokenKind::kConstant:
      return TokenKind::kEndConstant;
    case TokenKind::kEntity:
      return TokenKind::kEndEntity;
    case TokenKind::kFunction:
      return TokenKind::kEndFunction;
    case TokenKind::kIf:
      return TokenKind::kEndIf;
    case TokenKind::kLocal:
      return TokenKind::kEndLocal;
    case TokenKind::kProcedure:
      return TokenKind::kEndProcedure;
    case TokenKind::kRepeat:
      return TokenKind::kEndRepeat;
    case TokenKind::kType:
      return TokenKind::kEndType;
    default:
      return TokenKind::kEnd;
  }
}

bool IsBlockEnd(TokenKind kind) {
  return (kind >= TokenKind::kEndBlock && kind <= TokenKind::kEndType) || kind == TokenKind::kEnd;
}

// No body holds these, so they end one that lacks its end.
bool IsBeyondBody(TokenKind kind) {
  return kind == TokenKind::kEnd || kind == TokenKind::kEndSchema || kind == TokenKind::kSchema ||
         kind == TokenKind::kRule;
}

// Matches the blocks and brackets of a body, token by token.
class Nesting {
 public:
  explicit Nesting(TokenKind end) : due_{end} {}

  // What has to come next: the end of the body, of a block or of a bracket.
  TokenKind Due() const { return due_.back(); }
  bool OnlyBodyIsOpen() const { return due_.size() == 1; }

  // False if `kind` closes what is not open, or a semicolon comes within brackets. The semicolons between the
  // parameters of a nested function are right.
  bool Take(TokenKind kind) {
    const bool parameters =
        CanBeName(previous_) && (beforeThat_ == TokenKind::kFunction || beforeThat_ == TokenKind::kProcedure);
    beforeThat_ = previous_;
    previous_ = kind;
    if (IsBlockEnd(kind) || IsCloser(kind)) {
      if (kind != Due()) return false;
      if (due_.size() == parametersOpen_) parametersOpen_ = 0;
      due_.pop_back();
      return true;
    }
    if (kind == TokenKind::kSemicolon) return !IsCloser(Due()) || due_.size() == parametersOpen_;
    if (const TokenKind end = BlockEnd(kind); end != TokenKind::kEnd) {
      if (IsCloser(Due())) return false;
      due_.push_back(end);
    } else if (const TokenKind closer = Closer(kind); closer != TokenKind::kEnd) {
      due_.push_back(closer);
      if (parameters && kind == TokenKind::kLeftParen) parametersOpen_ = due_.size();
    }
    return true;
  }

 private:
  std::vector<TokenKind> due_;
  std::size_t parametersOpen_ = 0;  // the size of due_ after the "(" of a list of parameters
  TokenKind previous_ = TokenKind::kEnd;
  TokenKind beforeThat_ = TokenKind::kEnd;
};

}  // namespace

// CONSTANT { constant } END_CONSTANT ";"
void Parser::ParseConstants(Schema& schema) {
  cursor_.Advance();
  while (!AtBodyEnd() && !diagnostics_.Full()) {
    Guarded([&] { ParseConstant(schema); });
  }
  cursor_.Expect(TokenKind::kEndConstant);
  cursor_.Expect(TokenKind::kSemicolon);
}

// name ":" type ":=" expression ";"
void Parser::ParseConstant(Schema& schema) {
  auto constant = std::make_unique<Constant>();
  const std::size_t first = cursor_.Index();
  constant->name = cursor_.ExpectName("the name of a constant");
  cursor_.Expect(TokenKind::kColon);
  constant->type = ParseType();
  cursor_.Expect(TokenKind::kAssign);
  constant->value = cursor_.PassExpression({TokenKind::kSemicolon});
  cursor_.Expect(TokenKind::kSemicolon);
  constant->text = cursor_.Since(first);
  Add(schema, std::move(constant));
}

// FUNCTION name [ parameters ] ":" type ";" body END_FUNCTION ";"; a procedure has no type.
void Parser::ParseAlgorithm(Schema& schema, Declaration::Kind kind) {
  const bool function = kind == Declaration::Kind::kFunction;
  auto algorithm = std::make_unique<Algorithm>(kind);
  const std::size_t first = cursor_.Index();
  cursor_.Advance();
  const bool sound = Guarded([&] {
    algorithm->name = cursor_.ExpectName(function ? "the name of a function" : "the name of a procedure");
    if (cursor_.Accept(TokenKind::kLeftParen)) ParseParameters(*algorithm);
    if (function) {
      cursor_.Expect(TokenKind::kColon);
      algorithm->result = ParseType();
    }
    cursor_.Expect(TokenKind::kSemicolon);
  });
  const TokenKind end = function ? TokenKind::kEndFunction : TokenKind::kEndProcedure;
  algorithm->body = PassBody(end, sound);
  Finish(*algorithm, first, end);
  Add(schema, std::move(algorithm));
}

// [ VAR ] name { "," name } ":" type { ";" ... } ")"
void Parser::ParseParameters(Algorithm& algorithm) {
  do {
    const std::size_t first = algorithm.parameters.size();
    const bool variable = cursor_.Accept(TokenKind::kVar);
    do {
      algorithm.parameters.push_back({cursor_.ExpectName("the name of a parameter"), variable, nullptr});
    } while (cursor_.Accept(TokenKind::kComma));
    cursor_.Expect(TokenKind::kColon);
    const std::shared_ptr<Type> type = ParseType();
    for (std::size_t i = first; i < algorithm.parameters.size(); ++i) algorithm.parameters[i].type = type;
  } while (cursor_.Accept(TokenKind::kSemicolon));
  cursor_.Expect(TokenKind::kRightParen);
}

// RULE name FOR "(" entity { "," entity } ")" ";" body END_RULE ";"
void Parser::ParseRule(Schema& schema) {
  auto rule = std::make_unique<Rule>();
  const std::size_t first = cursor_.Index();
  cursor_.Advance();
  const bool sound = Guarded([&] {
    rule->name = cursor_.ExpectName("the name of a rule");
    cursor_.Expect(TokenKind::kFor);
    rule->entities = ParseReferences<Entity>("the name of an entity");
    cursor_.Expect(TokenKind::kSemicolon);
  });
  rule->body = PassBody(TokenKind::kEndRule, sound);
  Finish(*rule, first, TokenKind::kEndRule);
  Add(schema, std::move(rule));
}

// Passes over a body up to its own `end`. The first mismatch is reported; after it only functions and procedures are
// counted, so that the end is found whatever is wrong between. `sound` is false if the head was in error.
Text Parser::PassBody(TokenKind end, bool sound) {
  const std::size_t first = cursor_.Index();
  Nesting nesting(end);
  std::size_t nested = 0;
  for (; !IsBeyondBody(cursor_.Kind()); cursor_.Advance()) {
    const TokenKind kind = cursor_.Kind();
    const bool closes = kind == TokenKind::kEndFunction || kind == TokenKind::kEndProcedure || kind == end;
    const bool last = closes && (nested == 0 || kind == TokenKind::kEndRule);
    if (sound && (last ? !nesting.OnlyBodyIsOpen() : !nesting.Take(kind))) {
      sound = false;
      cursor_.Wanted(Describe(nesting.Due()));
      cursor_.ReportUnexpected();
    }
    if (last) break;
    if (kind == TokenKind::kFunction || kind == TokenKind::kProcedure) ++nested;
    if (closes) --nested;
  }
  return cursor_.Since(first);
}

}  // namespace express
