#include "parser.h"

#include <utility>

namespace express {

namespace {

bool StartsDeclaration(TokenKind kind) {
  switch (kind) {
    case TokenKind::kConstant:
    case TokenKind::kEntity:
    case TokenKind::kFunction:
    case TokenKind::kProcedure:
    case TokenKind::kReference:
    case TokenKind::kRule:
    case TokenKind::kSchema:
    case TokenKind::kSubtypeConstraint:
    case TokenKind::kType:
    case TokenKind::kUse:
      return true;
    default:
      return false;
  }
}

bool EndsDeclaration(TokenKind kind) {
  switch (kind) {
    case TokenKind::kEnd:
    case TokenKind::kEndConstant:
    case TokenKind::kEndEntity:
    case TokenKind::kEndFunction:
    case TokenKind::kEndProcedure:
    case TokenKind::kEndRule:
    case TokenKind::kEndSchema:
    case TokenKind::kEndSubtypeConstraint:
    case TokenKind::kEndType:
      return true;
    default:
      return false;
  }
}

bool StartsClause(TokenKind kind) {
  return kind == TokenKind::kDerive || kind == TokenKind::kInverse || kind == TokenKind::kWhere;
}

}  // namespace

// SUBTYPE_CONSTRAINT may be a name, so it ends a body only where another name follows.
bool Parser::AtBodyEnd() const {
  const TokenKind kind = cursor_.Kind();
  if (kind == TokenKind::kSubtypeConstraint) return CanBeName(cursor_.KindAhead(1));
  return StartsDeclaration(kind) || EndsDeclaration(kind);
}

void Parser::Recover(std::size_t since) {
  if (cursor_.Index() == since && !AtBodyEnd()) cursor_.Advance();
  while (!AtBodyEnd() && !StartsClause(cursor_.Kind())) {
    const bool last = cursor_.Kind() == TokenKind::kSemicolon;
    cursor_.Advance();
    if (last) return;
  }
}

// After an error between declarations. It passes at least one token after the one of index `since`.
void Parser::SkipToDeclaration(std::size_t since) {
  if (cursor_.Index() == since) cursor_.Advance();
  while (!cursor_.AtEnd() && cursor_.Kind() != TokenKind::kEndSchema && !StartsDeclaration(cursor_.Kind())) {
    cursor_.Advance();
  }
}

void Parser::Finish(Declaration& declaration, std::size_t first, TokenKind end) {
  const bool complete = Guarded([&] {
    cursor_.Expect(end);
    cursor_.Expect(TokenKind::kSemicolon);
  });
  declaration.text = cursor_.Since(first);
  // The end of another declaration was reported, and is taken for this one's.
  if (complete || !EndsDeclaration(cursor_.Kind()) || cursor_.Kind() == TokenKind::kEndSchema) return;
  cursor_.Advance();
  cursor_.Accept(TokenKind::kSemicolon);
}

void Parser::Parse(std::vector<std::unique_ptr<Schema>>& schemas) {
  do {
    if (diagnostics_.Full()) return;
    const std::size_t before = cursor_.Index();
    if (cursor_.Kind() == TokenKind::kSchema) {
      schemas.push_back(std::make_unique<Schema>());
      ParseSchema(*schemas.back());
      continue;
    }
    Guarded([&] { cursor_.Expect(TokenKind::kSchema); });
    if (cursor_.Index() == before) cursor_.Advance();
    while (!cursor_.AtEnd() && cursor_.Kind() != TokenKind::kSchema) cursor_.Advance();
  } while (!cursor_.AtEnd());
}

// SCHEMA name [ version ] ";" { interface } [ constants ] { declaration } END_SCHEMA ";"
void Parser::ParseSchema(Schema& schema) {
  Guarded([&] { ParseSchemaHead(schema); });
  while (!cursor_.AtEnd() && cursor_.Kind() != TokenKind::kEndSchema && cursor_.Kind() != TokenKind::kSchema) {
    if (diagnostics_.Full()) return;
    const std::size_t before = cursor_.Index();
    if (!Guarded([&] { ParseItem(schema); })) SkipToDeclaration(before);
  }
  Guarded([&] {
    cursor_.Expect(TokenKind::kEndSchema);
    cursor_.Expect(TokenKind::kSemicolon);
  });
}

void Parser::ParseSchemaHead(Schema& schema) {
  cursor_.Expect(TokenKind::kSchema);
  schema.name = cursor_.ExpectName("the name of the schema");
  const Text version = cursor_.Current();
  if (cursor_.Accept(TokenKind::kText) || cursor_.Accept(TokenKind::kEncodedText)) schema.version = version;
  cursor_.Expect(TokenKind::kSemicolon);
}

void Parser::ParseItem(Schema& schema) {
  switch (cursor_.Kind()) {
    case TokenKind::kUse:
    case TokenKind::kReference:
      return ParseInterface(schema);
    case TokenKind::kConstant:
      return ParseConstants(schema);
    case TokenKind::kEntity:
      return ParseEntity(schema);
    case TokenKind::kType:
      return ParseDefinedType(schema);
    case TokenKind::kFunction:
      return ParseAlgorithm(schema, Declaration::Kind::kFunction);
    case TokenKind::kProcedure:
      return ParseAlgorithm(schema, Declaration::Kind::kProcedure);
    case TokenKind::kRule:
      return ParseRule(schema);
    case TokenKind::kSubtypeConstraint:
      return ParseSubtypeConstraint(schema);
    default:
      cursor_.Wanted("a declaration");
      cursor_.Wanted(Describe(TokenKind::kEndSchema));
      cursor_.Fail();
  }
}

// ( USE | REFERENCE ) FROM schema [ "(" name [ AS name ] { "," name [ AS name ] } ")" ] ";"
void Parser::ParseInterface(Schema& schema) {
  Interface interface;
  interface.use = cursor_.Kind() == TokenKind::kUse;
  cursor_.Advance();
  cursor_.Expect(TokenKind::kFrom);
  interface.schema.name = cursor_.ExpectName("the name of a schema");
  if (cursor_.Accept(TokenKind::kLeftParen)) {
    interface.whole = false;
    do {
      Interface::Item item;
      item.original.name = item.name = cursor_.ExpectName("a name of that schema");
      if (cursor_.Accept(TokenKind::kAs)) item.name = cursor_.ExpectName("a new name");
      interface.items.push_back(item);
    } while (cursor_.Accept(TokenKind::kComma));
    cursor_.Expect(TokenKind::kRightParen);
  }
  cursor_.Expect(TokenKind::kSemicolon);
  schema.interfaces.push_back(std::move(interface));
}

void Parser::Add(Schema& schema, std::unique_ptr<Declaration> declaration) {
  declaration->schema = &schema;
  if (declaration->name.text.empty()) return;  // its head was in error
  if (declaration->kind == Declaration::Kind::kEntity) {
    auto* entity = static_cast<Entity*>(declaration.get());
    for (Attribute& attribute : entity->attributes) attribute.owner = entity;
    schema.entities.push_back(entity);
  }
  if (declaration->kind == Declaration::Kind::kType) {
    schema.types.push_back(static_cast<DefinedType*>(declaration.get()));
  }
  schema.declarations.push_back(std::move(declaration));
}

}  // namespace express
