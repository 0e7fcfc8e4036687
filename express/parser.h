// Reads the declarations of one source, as ISO 10303-11 writes them in its editions of 1994 and 2004. The members are
// in one file for each area of the grammar: parser.cpp (schemas, interfaces, and where reading goes on after an error),
// parse_types.cpp, parse_entities.cpp, parse_algorithms.cpp (what is kept as text).
#ifndef STEPRT_EXPRESS_PARSER_H
#define STEPRT_EXPRESS_PARSER_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "cursor.h"
#include "schema.h"

namespace express {

class Parser {
 public:
  Parser(const Source& source, const std::vector<Token>& tokens, Diagnostics& diagnostics, const Limits& limits)
      : cursor_(source, tokens, diagnostics), diagnostics_(diagnostics), limits_(limits) {}

  // Adds the schemas of the source to `schemas`. Reports what is wrong and reads on after it.
  void Parse(std::vector<std::unique_ptr<Schema>>& schemas);

 private:
  // Runs one step of the grammar. After a syntax error it goes on after the next semicolon, or at a word that starts or
  // ends a declaration or a clause, and returns false. It passes at least one token, unless that token ends the body.
  template <class Step>
  bool Guarded(Step step) {
    const std::size_t before = cursor_.Index();
    try {
      step();
      return true;
    } catch (const SyntaxError&) {
      Recover(before);
      return false;
    }
  }
  void Recover(std::size_t since);
  void SkipToDeclaration(std::size_t since);
  bool AtBodyEnd() const;
  // "END_x ;" and the text of the whole declaration.
  void Finish(Declaration& declaration, std::size_t first, TokenKind end);

  // parser.cpp
  void ParseSchema(Schema& schema);
  void ParseSchemaHead(Schema& schema);
  void ParseItem(Schema& schema);
  void ParseInterface(Schema& schema);
  void Add(Schema& schema, std::unique_ptr<Declaration> declaration);

  // parse_types.cpp
  void ParseDefinedType(Schema& schema);
  void ParseUnderlying(DefinedType& type);
  void ParseEnumeration(DefinedType& type);
  void ParseSelect(DefinedType& type);
  void ParseBase(DefinedType& type);
  std::vector<Name> ParseNames(std::string_view what);
  template <class T>
  std::vector<Reference<T>> ParseReferences(std::string_view what);
  std::unique_ptr<Type> ParseType();
  void ParseSimpleType(Type& type);
  bool ParseAggregate(Type& type);
  void ParseBounds(Type& type);
  void ParseWidth(Type& type);
  Bound ParseBound(TokenKind end);
  void ParseWhereRule(std::vector<WhereRule>& rules);
  std::optional<Name> ParseLabel();

  // parse_entities.cpp
  void ParseEntity(Schema& schema);
  void ParseEntityHead(Entity& entity);
  void ParseEntityBody(Entity& entity);
  void WantClausesAfter(const TokenKind* clause);
  void EnterClause(const TokenKind*& clause);
  void ParseInClause(Entity& entity, TokenKind clause);
  void ParseExplicit(Entity& entity);
  void ParseDerived(Entity& entity);
  void ParseInverse(Entity& entity);
  void ParseInverseType(Type& type);
  void ParseUniqueRule(Entity& entity);
  Text ParseUniqueAttribute();
  Attribute ParseAttributeName(Attribute::Kind kind);
  Constraint ParseConstraint(std::size_t depth);
  Constraint ParseConstraintOperand(std::size_t depth);
  Constraint ParseOneOf(std::size_t depth);
  void ParseSubtypeConstraint(Schema& schema);
  void ParseSubtypeConstraintBody(SubtypeConstraint& constraint);

  // parse_algorithms.cpp
  void ParseConstants(Schema& schema);
  void ParseConstant(Schema& schema);
  void ParseAlgorithm(Schema& schema, Declaration::Kind kind);
  void ParseParameters(Algorithm& algorithm);
  void ParseRule(Schema& schema);
  Text PassBody(TokenKind end, bool sound);

  Cursor cursor_;
  Diagnostics& diagnostics_;
  const Limits& limits_;
};

template <class T>
std::vector<Reference<T>> Parser::ParseReferences(std::string_view what) {
  std::vector<Reference<T>> references;
  for (const Name& name : ParseNames(what)) references.push_back({name, nullptr});
  return references;
}

}  // namespace express

#endif
