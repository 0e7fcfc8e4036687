#include "platform/expat/entity_nesting.h"

#include <cstddef>

namespace steprt {

EntityNesting::Result EntityNesting::Declare(std::string_view name, std::string_view text, bool isParameter) {
  Entity* entity = (isParameter ? parameters_ : general_).FindOrMake(name);
  if (!entity) return Result::kOutOfMemory;
  ++declared_;
  Raise(entity, 1);
  if (!AddReferences(entity, text, '&', general_)) return Result::kOutOfMemory;
  if (isParameter && !AddReferences(entity, text, '%', parameters_)) return Result::kOutOfMemory;
  return isTooDeep_ || (isCyclic_ && declared_ > kDeepest) ? Result::kTooDeep : Result::kFits;
}

// A reference is the mark, a name and a semicolon. References to characters name no entity.
bool EntityNesting::AddReferences(Entity* entity, std::string_view text, char mark, NameTable<Entity>& table) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t start = kNone;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == mark) start = i + 1;
    if (text[i] != ';' || start == kNone) continue;
    const std::string_view name = text.substr(start, i - start);
    start = kNone;
    if (name.empty() || name.front() == '#') continue;
    Entity* inner = table.FindOrMake(name);
    Referrer* referrer = inner ? referrers_.Make() : nullptr;
    if (!referrer) return false;
    *referrer = {entity, inner->referrers};
    inner->referrers = referrer;
    Raise(entity, inner->depth + 1);
  }
  return true;
}

// Recurses at most kDeepest levels: each is one deeper than the one before.
void EntityNesting::Raise(Entity* entity, int depth) {
  if (entity->depth >= depth || isTooDeep_) return;
  if (entity->isBeingRaised) {
    isCyclic_ = true;
    return;
  }
  entity->depth = depth;
  isTooDeep_ = depth > kDeepest;
  entity->isBeingRaised = true;
  for (const Referrer* each = entity->referrers; each; each = each->next) Raise(each->entity, depth + 1);
  entity->isBeingRaised = false;
}

}  // namespace steprt
