// The entities of a schema by number and by keyword.
#ifndef STEPRT_EXCHANGE_SCHEMA_ENTITIES_H
#define STEPRT_EXCHANGE_SCHEMA_ENTITIES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "entity_set.h"
#include "exchange/hash.h"
#include "express/schema.h"

namespace exchange {

using EntityNumber = std::uint32_t;

// In capitals, as a file spells names.
std::string Capitals(std::string_view text);

class Entities {
 public:
  // Keywords are those of `schema`, and then of the schemas that it interfaces, directly or through others. Numbers are
  // for all entities of the model.
  Entities(const express::Model& model, const express::Schema& schema);

  std::size_t Count() const { return all_.size(); }
  std::optional<EntityNumber> Find(std::string_view keyword) const;
  EntityNumber NumberOf(const express::Entity& entity) const { return numbers_.at(&entity); }
  const express::Entity& At(EntityNumber number) const { return *all_[number]; }
  std::string NameOf(EntityNumber number) const { return Capitals(At(number).name.text); }

  // The entity and all its supertypes.
  const EntitySet& WithSupertypes(EntityNumber number) const { return closures_[number]; }

 private:
  void AddKeywords(const express::Schema& schema);
  void AddClosures();

  std::vector<const express::Entity*> all_;
  std::unordered_map<const express::Entity*, EntityNumber> numbers_;
  TextMap<EntityNumber> byKeyword_;
  std::vector<EntitySet> closures_;
};

}  // namespace exchange

#endif
