// Schemas of ISO 10303-11: what their text declares, and what it means.
//
//   express::Diagnostics diagnostics;
//   auto model = express::Load(std::move(sources), diagnostics);  // load.h
//   for (const auto& schema : model->schemas)
//     for (const express::Entity* entity : schema->entities) Use(entity->name.text, entity->slots);
//
// One set of structs serves both: the parser fills in what is written, the resolver fills in the members below the line
// "Resolved". A Reference keeps the name that is written and the declaration that it means. While diagnostics hold no
// error, every target is set and no ring of supertypes, types or selects exists; after an error a target may be null.
//
// The Model owns everything; all pointers and texts are valid as long as it exists. Nothing here may be changed after
// Load, so any number of threads may read.
#ifndef STEPRT_EXPRESS_SCHEMA_H
#define STEPRT_EXPRESS_SCHEMA_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "source.h"

namespace express {

struct Attribute;
struct DefinedType;
struct Entity;
struct Schema;
struct SubtypeConstraint;

template <class T>
struct Reference {
  Name name;
  T* target = nullptr;
};

// Anything that has a name in a schema.
struct Declaration {
  enum class Kind { kConstant, kType, kEntity, kFunction, kProcedure, kRule, kSubtypeConstraint };

  explicit Declaration(Kind k) : kind(k) {}
  virtual ~Declaration() = default;

  Kind kind;
  Name name;
  Text text;  // the whole declaration with its last semicolon
  Schema* schema = nullptr;
};

// ---------------------------------------------------------------- types

// A bound, width or precision. Only an integer literal, with or without a sign, has a value; any other expression is
// kept as text.
struct Bound {
  Text text;
  std::optional<std::int64_t> value;
  bool open = false;  // "?"
};

// A type as an attribute, a parameter, a constant or the right side of TYPE names it.
struct Type {
  enum class Kind {
    kNumber,
    kReal,
    kInteger,
    kString,
    kBinary,
    kBoolean,
    kLogical,
    kArray,
    kBag,
    kList,
    kSet,
    kAggregate,      // AGGREGATE OF: any of the four
    kGeneric,        // GENERIC
    kGenericEntity,  // GENERIC_ENTITY: any entity
    kNamed,          // an entity or a defined type
  };

  bool IsAggregate() const { return kind >= Kind::kArray && kind <= Kind::kAggregate; }

  Kind kind = Kind::kNamed;
  Place place;
  std::unique_ptr<Type> element;      // of an aggregate
  std::optional<Bound> lower, upper;  // of an aggregate: both or neither
  bool unique = false;                // elements of an aggregate differ
  bool optional = false;              // elements of an array may be missing
  std::optional<Bound> width;         // of a string or binary; precision of a real
  bool fixed = false;                 // the width is exact
  std::optional<Name> label;          // GENERIC:label, AGGREGATE:label
  Reference<Declaration> named;       // kNamed: a DefinedType or an Entity
};

// A rule of a WHERE clause.
struct WhereRule {
  std::optional<Name> label;
  Text expression;
};

struct DefinedType : Declaration {
  enum class Form { kUnderlying, kEnumeration, kSelect };

  DefinedType() : Declaration(Kind::kType) {}

  Form form = Form::kUnderlying;
  std::unique_ptr<Type> underlying;             // kUnderlying: another type
  bool extensible = false;                      // other types may be based on this one
  bool genericEntity = false;                   // a select of entities only
  std::optional<Reference<DefinedType>> base;   // BASED_ON
  std::vector<Name> items;                      // kEnumeration: those written here
  std::vector<Reference<Declaration>> members;  // kSelect: those written here
  std::vector<WhereRule> where;

  // Resolved
  std::vector<DefinedType*> extensions;  // the types that are based on this one, in all schemas of the model
  // All items: of the types that this one is based on, its own, and those of its extensions. Each once.
  std::vector<Name> allItems;
  // What a value can be: entities, and defined types that are no select. Selects among the members are replaced by
  // their members, bases and extensions are included. Each once, in the order of the text.
  std::vector<Declaration*> allMembers;
};

// ---------------------------------------------------------------- entities

struct Attribute {
  enum class Kind { kExplicit, kDerived, kInverse };

  // "SELF\entity.attribute"
  struct Redeclaration {
    Reference<Entity> entity;
    Name attribute;
    bool renamed = false;
  };

  Kind kind = Kind::kExplicit;
  Name name;  // after RENAMED the new name, of another redeclaration the old one
  Entity* owner = nullptr;
  bool optional = false;
  std::shared_ptr<Type> type;  // "a, b : REAL" share one
  std::optional<Redeclaration> redeclaration;
  Text value;                                      // kDerived: the expression
  std::optional<Reference<Entity>> inverseEntity;  // kInverse: "FOR entity.attribute", if the entity is written
  Reference<Attribute> inverse;                    // kInverse: the attribute that refers to this entity

  // Resolved
  Attribute* redeclared = nullptr;  // what this one redeclares, else null
  Attribute* root = nullptr;        // the first of that chain: the attribute that is no redeclaration
};

// One value of an instance. The slots of an entity are in the order in which ISO 10303-21 writes the values of one
// instance: those of the supertypes in the order of SUBTYPE OF, each entity once, then its own.
struct Slot {
  Attribute* root = nullptr;       // the attribute that made the slot
  Attribute* effective = nullptr;  // its last redeclaration as seen from the entity, else `root`
  bool derived = false;            // the entity or a supertype derives it: it is written as *
};

// An expression of SUPERTYPE OF or SUBTYPE_CONSTRAINT.
struct Constraint {
  enum class Kind { kEntity, kOneOf, kAnd, kAndOr };

  Kind kind = Kind::kEntity;
  Reference<Entity> entity;          // kEntity
  std::vector<Constraint> operands;  // else: one or more of a kOneOf, two or more of the others
};

struct UniqueRule {
  std::optional<Name> label;
  std::vector<Text> attributes;  // "name" or "SELF\entity.name"
};

struct Entity : Declaration {
  Entity() : Declaration(Kind::kEntity) {}

  bool abstract = false;  // has no instances of its own; SUBTYPE_CONSTRAINT may set it too
  std::vector<Reference<Entity>> supertypes;
  std::optional<Constraint> constraint;  // SUPERTYPE OF
  std::vector<Attribute> attributes;     // in the order of the text: explicit, derived, inverse
  std::vector<UniqueRule> unique;
  std::vector<WhereRule> where;

  // Resolved
  std::vector<Entity*> subtypes;                                 // the direct ones, in the order of the text
  std::vector<SubtypeConstraint*> constraints;                   // those that are declared for this entity
  std::unordered_map<std::string, Attribute*> attributesByName;  // its own; folded names
  std::vector<Slot> slots;
};

struct SubtypeConstraint : Declaration {
  SubtypeConstraint() : Declaration(Kind::kSubtypeConstraint) {}

  Reference<Entity> entity;
  bool abstract = false;
  std::vector<Reference<Entity>> totalOver;
  std::optional<Constraint> constraint;
};

// ---------------------------------------------------------------- what is kept as text

struct Constant : Declaration {
  Constant() : Declaration(Kind::kConstant) {}

  std::unique_ptr<Type> type;
  Text value;
};

struct Parameter {
  Name name;
  bool variable = false;  // VAR
  std::shared_ptr<Type> type;
};

// A function or a procedure: its head, and its body as text.
struct Algorithm : Declaration {
  explicit Algorithm(Kind k) : Declaration(k) {}

  std::vector<Parameter> parameters;
  std::unique_ptr<Type> result;  // of a function
  Text body;                     // from the head's semicolon to END_FUNCTION or END_PROCEDURE
};

struct Rule : Declaration {
  Rule() : Declaration(Kind::kRule) {}

  std::vector<Reference<Entity>> entities;
  Text body;  // with its WHERE
};

// ---------------------------------------------------------------- schemas

// USE FROM or REFERENCE FROM.
struct Interface {
  struct Item {
    Reference<Declaration> original;  // the name is that in the other schema
    Name name;                        // the name here: after AS, else the same
  };

  bool use = false;  // else REFERENCE: what comes through it is not passed on to a third schema
  Reference<Schema> schema;
  bool whole = true;  // no list
  std::vector<Item> items;
};

struct Schema {
  // What a name means in this schema. `item` is set if it comes from a list of an interface.
  struct Entry {
    Declaration* declaration = nullptr;
    Interface* interface = nullptr;
    Interface::Item* item = nullptr;
    bool exported = true;  // another schema sees it through this one: declared here, or by USE
  };

  Name name;
  std::optional<Text> version;  // the string after the name, with its quotes
  std::vector<Interface> interfaces;
  std::vector<std::unique_ptr<Declaration>> declarations;  // in the order of the text
  std::vector<Entity*> entities;                           // of the declarations
  std::vector<DefinedType*> types;

  // Resolved
  std::unordered_map<std::string, Entry> names;  // folded; declared and listed ones, and what was found elsewhere

  // What is declared or listed here under a name, compared case-insensitively; null if nothing is.
  const Declaration* Find(std::string_view called) const {
    const auto found = names.find(Fold(called));
    return found == names.end() ? nullptr : found->second.declaration;
  }
};

struct Model {
  std::vector<std::unique_ptr<Source>> sources;
  std::vector<std::unique_ptr<Schema>> schemas;  // in the order of the sources

  // Null if there is none.
  const Schema* Find(std::string_view called) const {
    for (const auto& schema : schemas) {
      if (Fold(schema->name.text) == Fold(called)) return schema.get();
    }
    return nullptr;
  }
};

// The declaration if it is of that kind, else null; null stays null.
inline const Entity* AsEntity(const Declaration* declaration) {
  const bool fits = declaration != nullptr && declaration->kind == Declaration::Kind::kEntity;
  return fits ? static_cast<const Entity*>(declaration) : nullptr;
}
inline const DefinedType* AsType(const Declaration* declaration) {
  const bool fits = declaration != nullptr && declaration->kind == Declaration::Kind::kType;
  return fits ? static_cast<const DefinedType*>(declaration) : nullptr;
}

}  // namespace express

#endif
