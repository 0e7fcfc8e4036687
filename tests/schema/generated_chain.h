// Chains made from a seed: one to three descriptors, names in one case, types that are all different. Supertypes are
// any row of the chain or none, so that there are rings; some names are there twice.
#ifndef STEPRT_TESTS_SCHEMA_GENERATED_CHAIN_H
#define STEPRT_TESTS_SCHEMA_GENERATED_CHAIN_H

#include <map>
#include <random>

#include "support/chain.h"

namespace steprt_test {

inline std::vector<Schema> GenerateChain(std::mt19937& random) {
  const int count = 1 + static_cast<int>(random() % 40);
  const auto names = 1 + random() % 60;
  // Few types modulo 128 make buckets that hold many rows, and rows whose two nodes share one.
  const int step = random() % 2 ? 1 : 64;
  std::vector<Schema> schemas(1 + random() % 3);
  for (std::size_t i = 0; i < schemas.size(); ++i) schemas[i].name = "SCHEMA" + std::to_string(i);
  std::vector<std::string> used;
  for (int i = 0; i < count; ++i) {
    used.push_back("ENTITY" + std::to_string(random() % names));
    Row row{used.back(), i * step};
    const auto kind = random() % 8;
    if (kind < 5) row.super = used[random() % used.size()];
    if (kind == 5) row.super = "ENTITY" + std::to_string(random() % names);
    schemas[static_cast<std::size_t>(i) * schemas.size() / static_cast<std::size_t>(count)].rows.push_back(row);
  }
  return schemas;
}

// The same shapes, but no name is there twice: where the paths answer alike.
inline std::vector<Schema> GenerateChainWithoutTwins(std::mt19937& random) {
  std::vector<Schema> schemas = GenerateChain(random);
  std::map<std::string, std::string> firstOfName;
  int next = 0;
  for (Schema& schema : schemas) {
    for (Row& row : schema.rows) {
      const std::string name = row.name + "_" + std::to_string(next++);
      firstOfName.emplace(row.name, name);
      row.name = name;
    }
  }
  for (Schema& schema : schemas) {
    for (Row& row : schema.rows) {
      if (const auto found = firstOfName.find(row.super); found != firstOfName.end()) row.super = found->second;
    }
  }
  return schemas;
}

}  // namespace steprt_test

#endif
