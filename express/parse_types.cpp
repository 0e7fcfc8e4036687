// Defined types, and types where they are used.
#include <charconv>
#include <utility>

#include "parser.h"

namespace express {

namespace {

struct WordOfType {
  TokenKind word;
  Type::Kind kind;
};

constexpr WordOfType kTypeWords[] = {
    {TokenKind::kNumber, Type::Kind::kNumber},
    {TokenKind::kRealType, Type::Kind::kReal},
    {TokenKind::kIntegerType, Type::Kind::kInteger},
    {TokenKind::kString, Type::Kind::kString},
    {TokenKind::kBinaryType, Type::Kind::kBinary},
    {TokenKind::kBoolean, Type::Kind::kBoolean},
    {TokenKind::kLogical, Type::Kind::kLogical},
    {TokenKind::kArray, Type::Kind::kArray},
    {TokenKind::kBag, Type::Kind::kBag},
    {TokenKind::kList, Type::Kind::kList},
    {TokenKind::kSet, Type::Kind::kSet},
    {TokenKind::kAggregate, Type::Kind::kAggregate},
    {TokenKind::kGeneric, Type::Kind::kGeneric},
    {TokenKind::kGenericEntity, Type::Kind::kGenericEntity},
};

// False if no type starts with that word.
bool KindOfWord(TokenKind word, Type::Kind& kind) {
  for (const WordOfType& row : kTypeWords) {
    if (row.word != word) continue;
    kind = row.kind;
    return true;
  }
  return false;
}

// The value of an integer literal with or without a sign; nothing for another expression or beyond 64 bits.
std::optional<std::int64_t> ValueOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

// TYPE name "=" underlying ";" [ where ] END_TYPE ";"
void Parser::ParseDefinedType(Schema& schema) {
  auto type = std::make_unique<DefinedType>();
  const std::size_t first = cursor_.Index();
  cursor_.Advance();
  Guarded([&] {
    type->name = cursor_.ExpectName("the name of a type");
    cursor_.Expect(TokenKind::kEqual);
    ParseUnderlying(*type);
    cursor_.Expect(TokenKind::kSemicolon);
  });
  bool where = false;
  while (!AtBodyEnd()) {
    Guarded([&] {
      if (cursor_.Accept(TokenKind::kWhere)) where = true;
      if (!where) cursor_.Expect(TokenKind::kEndType);
      ParseWhereRule(type->where);
    });
  }
  if (!where) cursor_.Wanted(Describe(TokenKind::kWhere));
  Finish(*type, first, TokenKind::kEndType);
  Add(schema, std::move(type));
}

// EXTENSIBLE may be the name of a type, too.
void Parser::ParseUnderlying(DefinedType& type) {
  const TokenKind next = cursor_.KindAhead(1);
  if (cursor_.Kind() == TokenKind::kExtensible && next != TokenKind::kSemicolon) {
    cursor_.Advance();
    type.extensible = true;
    type.genericEntity = cursor_.Accept(TokenKind::kGenericEntity);
  }
  if (!type.genericEntity && cursor_.Accept(TokenKind::kEnumeration)) return ParseEnumeration(type);
  if (cursor_.Accept(TokenKind::kSelect)) return ParseSelect(type);
  if (type.extensible) cursor_.Fail();
  type.underlying = ParseType();
}

// ENUMERATION [ OF names | BASED_ON type [ WITH names ] ]; only an extensible one may do without.
void Parser::ParseEnumeration(DefinedType& type) {
  type.form = DefinedType::Form::kEnumeration;
  if (cursor_.Accept(TokenKind::kBasedOn)) {
    ParseBase(type);
    if (cursor_.Accept(TokenKind::kWith)) type.items = ParseNames("the name of an item");
  } else if (cursor_.Accept(TokenKind::kOf)) {
    type.items = ParseNames("the name of an item");
  } else if (!type.extensible) {
    cursor_.Fail();
  }
}

// SELECT [ names | BASED_ON type [ WITH names ] ]; only an extensible one may do without.
void Parser::ParseSelect(DefinedType& type) {
  type.form = DefinedType::Form::kSelect;
  constexpr std::string_view kWhat = "the name of a type or entity";
  if (cursor_.Accept(TokenKind::kBasedOn)) {
    ParseBase(type);
    if (cursor_.Accept(TokenKind::kWith)) type.members = ParseReferences<Declaration>(kWhat);
  } else if (cursor_.Kind() == TokenKind::kLeftParen || !type.extensible) {
    type.members = ParseReferences<Declaration>(kWhat);
  }
}

void Parser::ParseBase(DefinedType& type) { type.base = {cursor_.ExpectName("the name of a type"), nullptr}; }

// "(" name { "," name } ")"
std::vector<Name> Parser::ParseNames(std::string_view what) {
  std::vector<Name> names;
  cursor_.Expect(TokenKind::kLeftParen);
  do {
    names.push_back(cursor_.ExpectName(what));
  } while (cursor_.Accept(TokenKind::kComma));
  cursor_.Expect(TokenKind::kRightParen);
  return names;
}

// { aggregate OF } type. The nesting is limited, because a type owns its element and whoever walks it may recurse.
std::unique_ptr<Type> Parser::ParseType() {
  auto outermost = std::make_unique<Type>();
  Type* type = outermost.get();
  for (std::size_t depth = 0;; ++depth) {
    type->place = cursor_.Here();
    if (!ParseAggregate(*type)) break;
    if (depth == limits_.depth) {
      cursor_.FailWith(type->place, Code::kTooDeep,
                       "expected at most " + std::to_string(limits_.depth) + " aggregates, each of the next");
    }
    type->element = std::make_unique<Type>();
    type = type->element.get();
  }
  ParseSimpleType(*type);
  return outermost;
}

// ( ARRAY | BAG | LIST | SET ) [ bounds ] OF [ OPTIONAL ] [ UNIQUE ], or AGGREGATE [ ":" label ] OF
bool Parser::ParseAggregate(Type& type) {
  if (!KindOfWord(cursor_.Kind(), type.kind) || !type.IsAggregate()) return false;
  cursor_.Advance();
  if (type.kind == Type::Kind::kAggregate) {
    if (cursor_.Accept(TokenKind::kColon)) type.label = cursor_.ExpectName("a type label");
  } else if (cursor_.Accept(TokenKind::kLeftBracket)) {
    ParseBounds(type);
  }
  cursor_.Expect(TokenKind::kOf);
  if (type.kind == Type::Kind::kArray) type.optional = cursor_.Accept(TokenKind::kOptional);
  if (type.kind == Type::Kind::kArray || type.kind == Type::Kind::kList) {
    type.unique = cursor_.Accept(TokenKind::kUnique);
  }
  return true;
}

void Parser::ParseBounds(Type& type) {
  type.lower = ParseBound(TokenKind::kColon);
  cursor_.Expect(TokenKind::kColon);
  type.upper = ParseBound(TokenKind::kRightBracket);
  cursor_.Expect(TokenKind::kRightBracket);
}

Bound Parser::ParseBound(TokenKind end) {
  Bound bound;
  bound.text = cursor_.PassExpression({end});
  bound.open = bound.text.text == "?";
  bound.value = ValueOf(bound.text.text);
  return bound;
}

void Parser::ParseSimpleType(Type& type) {
  if (CanBeName(cursor_.Kind()) && cursor_.Kind() != TokenKind::kGenericEntity) {
    type.kind = Type::Kind::kNamed;
    type.named.name = cursor_.Current();
    return cursor_.Advance();
  }
  if (!KindOfWord(cursor_.Kind(), type.kind)) {
    cursor_.Wanted("a type");
    cursor_.Fail();
  }
  cursor_.Advance();
  const bool generic = type.kind == Type::Kind::kGeneric || type.kind == Type::Kind::kGenericEntity;
  const bool sized = type.kind == Type::Kind::kString || type.kind == Type::Kind::kBinary;
  if (generic && cursor_.Accept(TokenKind::kColon)) type.label = cursor_.ExpectName("a type label");
  if ((sized || type.kind == Type::Kind::kReal) && cursor_.Accept(TokenKind::kLeftParen)) {
    type.width = ParseBound(TokenKind::kRightParen);
    cursor_.Expect(TokenKind::kRightParen);
    type.fixed = sized && cursor_.Accept(TokenKind::kFixed);
  }
}

// [ label ":" ] expression ";"
void Parser::ParseWhereRule(std::vector<WhereRule>& rules) {
  WhereRule rule;
  rule.label = ParseLabel();
  rule.expression = cursor_.PassExpression({TokenKind::kSemicolon});
  cursor_.Expect(TokenKind::kSemicolon);
  rules.push_back(rule);
}

std::optional<Name> Parser::ParseLabel() {
  if (!CanBeName(cursor_.Kind()) || cursor_.KindAhead(1) != TokenKind::kColon) return std::nullopt;
  const Name label = cursor_.Current();
  cursor_.Advance();
  cursor_.Advance();
  return label;
}

}  // namespace express
