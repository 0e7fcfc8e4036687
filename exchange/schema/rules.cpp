#include "rules.h"

namespace exchange {

namespace {

using Type = express::Type;

// The end of a chain TYPE a = b; TYPE b = c.
const express::DefinedType& Innermost(const express::DefinedType& type) {
  const express::DefinedType* innermost = &type;
  while (innermost->form == express::DefinedType::Form::kUnderlying) {
    const Type& underlying = *innermost->underlying;
    if (underlying.kind != Type::Kind::kNamed) break;
    const express::DefinedType* const next = express::AsType(underlying.named.target);
    if (next == nullptr) break;
    innermost = next;
  }
  return *innermost;
}

}  // namespace

// The entry is made before it is filled, because a select may contain a list of itself.
const Rule* Rules::Of(const Type& type) {
  if (type.kind == Type::Kind::kNamed) return OfName(*type.named.target);
  const auto [at, isNew] = made_.emplace(&type, nullptr);
  if (!isNew) return at->second;
  Rule& rule = *all_.emplace_back(std::make_unique<Rule>());
  at->second = &rule;
  if (type.IsAggregate()) {
    rule.name = "a list";
    FillAggregate(rule, type);
  } else {
    FillSimple(rule, type);
  }
  return &rule;
}

const Rule* Rules::OfName(const express::Declaration& declaration) {
  const auto [at, isNew] = made_.emplace(&declaration, nullptr);
  if (!isNew) return at->second;
  Rule& rule = *all_.emplace_back(std::make_unique<Rule>());
  at->second = &rule;
  rule.name = Capitals(declaration.name.text);
  if (const express::Entity* const entity = express::AsEntity(&declaration)) {
    rule.kind = Rule::Kind::kEntity;
    rule.entity = entities_.NumberOf(*entity);
  } else if (const express::DefinedType* const type = express::AsType(&declaration)) {
    Fill(rule, *type);
  }
  return &rule;
}

void Rules::Fill(Rule& rule, const express::DefinedType& type) {
  const express::DefinedType& innermost = Innermost(type);
  if (innermost.form == express::DefinedType::Form::kSelect) return FillSelect(rule, innermost);
  if (innermost.form == express::DefinedType::Form::kEnumeration) {
    rule.kind = Rule::Kind::kEnumeration;
    for (const express::Name& item : innermost.allItems) rule.items.emplace(Capitals(item.text), '\0');
    return;
  }
  const Type& underlying = *innermost.underlying;
  if (underlying.IsAggregate()) return FillAggregate(rule, underlying);
  if (underlying.kind != Type::Kind::kNamed) {
    const std::string name = rule.name;
    FillSimple(rule, underlying);
    rule.name += " (" + name + ")";
  } else if (const express::Entity* const entity = express::AsEntity(underlying.named.target)) {
    rule.kind = Rule::Kind::kEntity;
    rule.entity = entities_.NumberOf(*entity);
  }
}

// A select that nothing extends has no members, so any value is taken.
void Rules::FillSelect(Rule& rule, const express::DefinedType& type) {
  if (type.allMembers.empty()) return;
  rule.kind = Rule::Kind::kSelect;
  rule.entities = EntitySet(entities_.Count());
  for (const express::Declaration* member : type.allMembers) {
    if (const express::Entity* const entity = express::AsEntity(member)) {
      rule.entities.Add(entities_.NumberOf(*entity));
    } else {
      rule.members.emplace(Capitals(member->name.text), OfName(*member));
    }
  }
}

void Rules::FillAggregate(Rule& rule, const Type& type) {
  rule.kind = Rule::Kind::kAggregate;
  rule.element = Of(*type.element);
  rule.gaps = type.optional;
  const bool lower = type.lower && type.lower->value;
  const bool upper = type.upper && type.upper->value;
  if (type.kind != Type::Kind::kArray) {
    if (lower) rule.least = *type.lower->value;
    if (upper) rule.most = *type.upper->value;
  } else if (lower && upper) {
    rule.least = rule.most = *type.upper->value - *type.lower->value + 1;
  }
}

void Rules::FillSimple(Rule& rule, const Type& type) {
  const auto fill = [&rule](Rule::Kind kind, const char* name) {
    rule.kind = kind;
    rule.name = name;
  };
  switch (type.kind) {
    case Type::Kind::kNumber:
      return fill(Rule::Kind::kNumber, "a number");
    case Type::Kind::kReal:
      return fill(Rule::Kind::kReal, "a real");
    case Type::Kind::kInteger:
      return fill(Rule::Kind::kInteger, "an integer");
    case Type::Kind::kString:
      return fill(Rule::Kind::kText, "a text");
    case Type::Kind::kBinary:
      return fill(Rule::Kind::kBinary, "a binary");
    case Type::Kind::kBoolean:
      return fill(Rule::Kind::kBoolean, ".T. or .F.");
    case Type::Kind::kLogical:
      return fill(Rule::Kind::kLogical, ".T., .F. or .U.");
    default:
      return fill(Rule::Kind::kAny, "a value");
  }
}

}  // namespace exchange
