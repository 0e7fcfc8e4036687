// The supertypes of a chain's rows, followed one by one, without the library.
#ifndef STEPRT_TESTS_SCHEMA_SUPERTYPES_H
#define STEPRT_TESTS_SCHEMA_SUPERTYPES_H

#include <map>

#include "support/chain.h"

namespace steprt_test {

// Of rows whose names and types stand once.
class Supertypes {
 public:
  explicit Supertypes(const std::vector<Schema>& schemas) {
    std::map<std::string, int> typeOf;
    for (const Schema& schema : schemas) {
      for (const Row& row : schema.rows) typeOf[row.name] = row.type;
    }
    for (const Schema& schema : schemas) {
      for (const Row& row : schema.rows) {
        types_.push_back(row.type);
        if (typeOf.count(row.super)) superOf_[row.type] = typeOf[row.super];
      }
    }
  }

  const std::vector<int>& Types() const { return types_; }

  // How many steps lead from the type up to the other, or -1.
  int StepsUp(int type, int other) const {
    for (int steps = 0; steps <= static_cast<int>(types_.size()); ++steps) {
      if (type == other) return steps;
      const auto super = superOf_.find(type);
      if (super == superOf_.end()) break;
      type = super->second;
    }
    return -1;
  }

 private:
  std::vector<int> types_;
  std::map<int, int> superOf_;
};

}  // namespace steprt_test

#endif
