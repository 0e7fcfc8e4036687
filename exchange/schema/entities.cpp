#include "entities.h"

#include <unordered_set>
#include <utility>

namespace exchange {

namespace {

bool IsLower(char c) { return c >= 'a' && c <= 'z'; }

}  // namespace

std::string Capitals(std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals) {
    if (IsLower(c)) c = static_cast<char>(c - 'a' + 'A');
  }
  return capitals;
}

Entities::Entities(const express::Model& model, const express::Schema& schema) {
  for (const auto& other : model.schemas) {
    for (const express::Entity* entity : other->entities) {
      numbers_.emplace(entity, static_cast<EntityNumber>(all_.size()));
      all_.push_back(entity);
    }
  }
  AddKeywords(schema);
  AddClosures();
}

// The first meaning of a keyword stays. An interface may rename: that name counts, and then the old one.
void Entities::AddKeywords(const express::Schema& schema) {
  std::vector<const express::Schema*> order{&schema};
  std::unordered_set<const express::Schema*> seen{&schema};
  for (const auto& [name, entry] : schema.names) {
    const express::Entity* const entity = express::AsEntity(entry.declaration);
    if (entity != nullptr) byKeyword_.emplace(Capitals(name), NumberOf(*entity));
  }
  for (std::size_t i = 0; i < order.size(); ++i) {
    for (const express::Entity* entity : order[i]->entities) {
      byKeyword_.emplace(Capitals(entity->name.text), NumberOf(*entity));
    }
    for (const express::Interface& interface : order[i]->interfaces) {
      const express::Schema* const next = interface.schema.target;
      if (next != nullptr && seen.insert(next).second) order.push_back(next);
    }
  }
}

// Walks the supertypes of each entity; the model has no ring.
void Entities::AddClosures() {
  for (const express::Entity* entity : all_) {
    EntitySet closure(all_.size());
    std::vector<const express::Entity*> open{entity};
    closure.Add(NumberOf(*entity));
    while (!open.empty()) {
      const express::Entity* const next = open.back();
      open.pop_back();
      for (const auto& supertype : next->supertypes) {
        const EntityNumber number = NumberOf(*supertype.target);
        if (closure.Has(number)) continue;
        closure.Add(number);
        open.push_back(supertype.target);
      }
    }
    closures_.push_back(std::move(closure));
  }
}

std::optional<EntityNumber> Entities::Find(std::string_view keyword) const {
  auto found = byKeyword_.find(keyword);
  if (found == byKeyword_.end()) found = byKeyword_.find(Capitals(keyword));
  if (found == byKeyword_.end()) return std::nullopt;
  return found->second;
}

}  // namespace exchange
