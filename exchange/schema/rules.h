// What a value must be: the types of EXPRESS in the form in which values are checked.
#ifndef STEPRT_EXCHANGE_SCHEMA_RULES_H
#define STEPRT_EXCHANGE_SCHEMA_RULES_H

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "entities.h"
#include "exchange/hash.h"

namespace exchange {

struct Rule {
  enum class Kind {
    kAny,
    kNumber,
    kReal,
    kInteger,
    kText,
    kBinary,
    kBoolean,
    kLogical,
    kEnumeration,
    kEntity,
    kSelect,
    kAggregate,
  };
  static constexpr std::int64_t kNoLimit = std::numeric_limits<std::int64_t>::max();

  Kind kind = Kind::kAny;
  std::string name;               // what a report calls it: "a real", "IFCLABEL"
  EntityNumber entity = 0;        // kEntity
  EntitySet entities;             // kSelect: the entities among its members
  TextMap<const Rule*> members;   // kSelect: its defined types, by keyword
  TextMap<char> items;            // kEnumeration: the names, without points
  const Rule* element = nullptr;  // kAggregate
  std::int64_t least = 0;         // kAggregate: bounds that are literals
  std::int64_t most = kNoLimit;
  bool gaps = false;  // kAggregate: $ may be an element
};

// Makes each rule when it is first asked for.
class Rules {
 public:
  explicit Rules(const Entities& entities) : entities_(entities) {}

  const Rule* Of(const express::Type& type);

 private:
  const Rule* OfName(const express::Declaration& declaration);
  void Fill(Rule& rule, const express::DefinedType& type);
  void FillSelect(Rule& rule, const express::DefinedType& type);
  void FillAggregate(Rule& rule, const express::Type& type);
  void FillSimple(Rule& rule, const express::Type& type);

  const Entities& entities_;
  std::vector<std::unique_ptr<Rule>> all_;
  std::unordered_map<const void*, const Rule*> made_;  // by declaration or by type
};

}  // namespace exchange

#endif
