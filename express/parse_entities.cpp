// Entities, their attributes and the constraints on their subtypes.
#include <algorithm>
#include <iterator>
#include <utility>

#include "parser.h"

namespace express {

namespace {

constexpr std::string_view kEntityName = "the name of an entity";
constexpr std::string_view kAttributeName = "the name of an attribute";

// The clauses of an entity in their order; kEntity is its head, after which explicit attributes follow.
constexpr TokenKind kClauses[] = {TokenKind::kEntity, TokenKind::kDerive, TokenKind::kInverse, TokenKind::kUnique,
                                  TokenKind::kWhere};

}  // namespace

// ENTITY name head ";" { explicit } [ derived ] [ inverse ] [ unique ] [ where ] END_ENTITY ";"
void Parser::ParseEntity(Schema& schema) {
  auto entity = std::make_unique<Entity>();
  const std::size_t first = cursor_.Index();
  cursor_.Advance();
  Guarded([&] { ParseEntityHead(*entity); });
  ParseEntityBody(*entity);
  Finish(*entity, first, TokenKind::kEndEntity);
  Add(schema, std::move(entity));
}

// name [ ABSTRACT [ SUPERTYPE [ OF constraint ] ] | SUPERTYPE OF constraint ] [ SUBTYPE OF names ] ";"
// Both parts are also taken the other way round.
void Parser::ParseEntityHead(Entity& entity) {
  entity.name = cursor_.ExpectName(kEntityName);
  bool super = false;
  for (;;) {
    if (entity.supertypes.empty() && cursor_.Accept(TokenKind::kSubtype)) {
      cursor_.Expect(TokenKind::kOf);
      entity.supertypes = ParseReferences<Entity>(kEntityName);
      continue;
    }
    if (super) break;
    entity.abstract = cursor_.Accept(TokenKind::kAbstract);
    super = cursor_.Accept(TokenKind::kSupertype);
    if (super && (cursor_.Accept(TokenKind::kOf) || !entity.abstract)) {
      cursor_.Expect(TokenKind::kLeftParen);
      Constraint constraint = ParseConstraint(0);
      cursor_.Expect(TokenKind::kRightParen);
      entity.constraint = std::move(constraint);
    }
    super = super || entity.abstract;
    if (!super) break;
  }
  cursor_.Expect(TokenKind::kSemicolon);
}

void Parser::ParseEntityBody(Entity& entity) {
  const TokenKind* clause = std::begin(kClauses);
  while (!AtBodyEnd() && !diagnostics_.Full()) {
    Guarded([&] {
      EnterClause(clause);
      ParseInClause(entity, *clause);
    });
  }
  WantClausesAfter(clause);
}

void Parser::WantClausesAfter(const TokenKind* clause) {
  for (const TokenKind* next = clause + 1; next != std::end(kClauses); ++next) cursor_.Wanted(Describe(*next));
}

// Takes the first word of a clause. One that comes too late is reported, and its clause is read all the same.
void Parser::EnterClause(const TokenKind*& clause) {
  const TokenKind* const found = std::find(std::begin(kClauses) + 1, std::end(kClauses), cursor_.Kind());
  WantClausesAfter(clause);
  if (found == std::end(kClauses)) return;
  if (found <= clause) {
    cursor_.Wanted(Describe(TokenKind::kEndEntity));
    cursor_.ReportUnexpected();
  }
  clause = found;
  cursor_.Advance();
}

void Parser::ParseInClause(Entity& entity, TokenKind clause) {
  switch (clause) {
    case TokenKind::kDerive:
      return ParseDerived(entity);
    case TokenKind::kInverse:
      return ParseInverse(entity);
    case TokenKind::kUnique:
      return ParseUniqueRule(entity);
    case TokenKind::kWhere:
      return ParseWhereRule(entity.where);
    default:
      return ParseExplicit(entity);
  }
}

// attribute { "," attribute } ":" [ OPTIONAL ] type ";"
void Parser::ParseExplicit(Entity& entity) {
  std::vector<Attribute> attributes;
  do {
    attributes.push_back(ParseAttributeName(Attribute::Kind::kExplicit));
  } while (cursor_.Accept(TokenKind::kComma));
  cursor_.Expect(TokenKind::kColon);
  const bool optional = cursor_.Accept(TokenKind::kOptional);
  const std::shared_ptr<Type> type = ParseType();
  cursor_.Expect(TokenKind::kSemicolon);
  for (Attribute& attribute : attributes) {
    attribute.optional = optional;
    attribute.type = type;
    entity.attributes.push_back(std::move(attribute));
  }
}

// attribute ":" type ":=" expression ";"
void Parser::ParseDerived(Entity& entity) {
  Attribute attribute = ParseAttributeName(Attribute::Kind::kDerived);
  cursor_.Expect(TokenKind::kColon);
  attribute.type = ParseType();
  cursor_.Expect(TokenKind::kAssign);
  attribute.value = cursor_.PassExpression({TokenKind::kSemicolon});
  cursor_.Expect(TokenKind::kSemicolon);
  entity.attributes.push_back(std::move(attribute));
}

// attribute ":" [ ( SET | BAG ) [ bounds ] OF ] entity FOR [ entity "." ] attribute ";"
void Parser::ParseInverse(Entity& entity) {
  Attribute attribute = ParseAttributeName(Attribute::Kind::kInverse);
  cursor_.Expect(TokenKind::kColon);
  attribute.type = std::make_shared<Type>();
  ParseInverseType(*attribute.type);
  cursor_.Expect(TokenKind::kFor);
  attribute.inverse.name = cursor_.ExpectName(kAttributeName);
  if (cursor_.Accept(TokenKind::kDot)) {
    attribute.inverseEntity = {attribute.inverse.name, nullptr};
    attribute.inverse.name = cursor_.ExpectName(kAttributeName);
  }
  cursor_.Expect(TokenKind::kSemicolon);
  entity.attributes.push_back(std::move(attribute));
}

void Parser::ParseInverseType(Type& type) {
  type.place = cursor_.Here();
  Type* innermost = &type;
  const bool set = cursor_.Accept(TokenKind::kSet);
  if (set || cursor_.Accept(TokenKind::kBag)) {
    type.kind = set ? Type::Kind::kSet : Type::Kind::kBag;
    if (cursor_.Accept(TokenKind::kLeftBracket)) ParseBounds(type);
    cursor_.Expect(TokenKind::kOf);
    type.element = std::make_unique<Type>();
    innermost = type.element.get();
    innermost->place = cursor_.Here();
  }
  innermost->kind = Type::Kind::kNamed;
  innermost->named.name = cursor_.ExpectName(kEntityName);
}

// [ label ":" ] attribute { "," attribute } ";"
void Parser::ParseUniqueRule(Entity& entity) {
  UniqueRule rule;
  rule.label = ParseLabel();
  do {
    rule.attributes.push_back(ParseUniqueAttribute());
  } while (cursor_.Accept(TokenKind::kComma));
  cursor_.Expect(TokenKind::kSemicolon);
  entity.unique.push_back(std::move(rule));
}

Text Parser::ParseUniqueAttribute() {
  const std::size_t first = cursor_.Index();
  if (cursor_.Accept(TokenKind::kSelf)) {
    cursor_.Expect(TokenKind::kBackslash);
    cursor_.ExpectName(kEntityName);
    cursor_.Expect(TokenKind::kDot);
  }
  cursor_.ExpectName(kAttributeName);
  return cursor_.Since(first);
}

// name | SELF "\" entity "." name [ RENAMED name ]
Attribute Parser::ParseAttributeName(Attribute::Kind kind) {
  Attribute attribute;
  attribute.kind = kind;
  if (!cursor_.Accept(TokenKind::kSelf)) {
    attribute.name = cursor_.ExpectName(kAttributeName);
    return attribute;
  }
  Attribute::Redeclaration redeclaration;
  cursor_.Expect(TokenKind::kBackslash);
  redeclaration.entity.name = cursor_.ExpectName(kEntityName);
  cursor_.Expect(TokenKind::kDot);
  redeclaration.attribute = attribute.name = cursor_.ExpectName(kAttributeName);
  redeclaration.renamed = cursor_.Accept(TokenKind::kRenamed);
  if (redeclaration.renamed) attribute.name = cursor_.ExpectName("a new name");
  attribute.redeclaration = redeclaration;
  return attribute;
}

// factor { ANDOR factor }, factor = term { AND term }
Constraint Parser::ParseConstraint(std::size_t depth) {
  const auto chain = [&](TokenKind word, Constraint::Kind kind, auto operand) {
    Constraint first = operand();
    if (cursor_.Kind() != word) {
      cursor_.Wanted(Describe(word));
      return first;
    }
    Constraint all;
    all.kind = kind;
    all.operands.push_back(std::move(first));
    while (cursor_.Accept(word)) all.operands.push_back(operand());
    return all;
  };
  return chain(TokenKind::kAndOr, Constraint::Kind::kAndOr, [&] {
    return chain(TokenKind::kAnd, Constraint::Kind::kAnd, [&] { return ParseConstraintOperand(depth); });
  });
}

// entity | "(" constraint ")" | ONEOF "(" constraint { "," constraint } ")"
Constraint Parser::ParseConstraintOperand(std::size_t depth) {
  if (depth > limits_.depth) {
    cursor_.FailWith(cursor_.Here(), Code::kTooDeep,
                     "expected at most " + std::to_string(limits_.depth) + " nested brackets");
  }
  if (cursor_.Accept(TokenKind::kOneOf)) return ParseOneOf(depth);
  if (cursor_.Accept(TokenKind::kLeftParen)) {
    Constraint inner = ParseConstraint(depth + 1);
    cursor_.Expect(TokenKind::kRightParen);
    return inner;
  }
  Constraint entity;
  entity.entity.name = cursor_.ExpectName(kEntityName);
  return entity;
}

Constraint Parser::ParseOneOf(std::size_t depth) {
  Constraint oneOf;
  oneOf.kind = Constraint::Kind::kOneOf;
  cursor_.Expect(TokenKind::kLeftParen);
  do {
    oneOf.operands.push_back(ParseConstraint(depth + 1));
  } while (cursor_.Accept(TokenKind::kComma));
  cursor_.Expect(TokenKind::kRightParen);
  return oneOf;
}

// SUBTYPE_CONSTRAINT name FOR entity ";" body END_SUBTYPE_CONSTRAINT ";"
void Parser::ParseSubtypeConstraint(Schema& schema) {
  auto constraint = std::make_unique<SubtypeConstraint>();
  const std::size_t first = cursor_.Index();
  cursor_.Advance();
  Guarded([&] {
    constraint->name = cursor_.ExpectName("the name of a constraint");
    cursor_.Expect(TokenKind::kFor);
    constraint->entity.name = cursor_.ExpectName(kEntityName);
    cursor_.Expect(TokenKind::kSemicolon);
    ParseSubtypeConstraintBody(*constraint);
  });
  Finish(*constraint, first, TokenKind::kEndSubtypeConstraint);
  Add(schema, std::move(constraint));
}

// [ ABSTRACT SUPERTYPE ";" ] [ TOTAL_OVER names ";" ] [ constraint ";" ]
void Parser::ParseSubtypeConstraintBody(SubtypeConstraint& constraint) {
  if (cursor_.Accept(TokenKind::kAbstract)) {
    cursor_.Expect(TokenKind::kSupertype);
    cursor_.Expect(TokenKind::kSemicolon);
    constraint.abstract = true;
  }
  if (cursor_.Accept(TokenKind::kTotalOver)) {
    constraint.totalOver = ParseReferences<Entity>(kEntityName);
    cursor_.Expect(TokenKind::kSemicolon);
  }
  if (cursor_.Kind() == TokenKind::kEndSubtypeConstraint) return;
  Constraint expression = ParseConstraint(0);
  cursor_.Expect(TokenKind::kSemicolon);
  constraint.constraint = std::move(expression);
}

}  // namespace express
