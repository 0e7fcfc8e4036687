#include "write/record_names.h"

#include <climits>

#include "support/hash.h"
#include "support/memory.h"

namespace steprt {

bool RecordNames::Reserve(std::size_t count) {
  if (count > INT_MAX) return false;
  entries_ = MakeArrayOrNull<Entry>(count);
  return entries_;
}

void RecordNames::StoreNumbers() {
  for (std::size_t i = 0; i < count_; ++i) {
    const std::uint64_t name = entries_[i].name;
    entries_[i].object->number = name <= INT_MAX ? static_cast<int>(name) : 0;
  }
}

std::uint64_t RecordNames::HashOf(const STEPheader* object) const {
  return HashNumber(reinterpret_cast<std::uintptr_t>(object), seed_);
}

// When memory runs out, an instance may be missed more than once for the first time.
bool RecordNames::IsFirstMiss(const STEPheader* object) {
  const auto hashOf = [this](const Slot& slot) { return HashOf(slot.object); };
  if (!missed_.Reserve(1, hashOf)) return true;
  Slot* const slot = missed_.Find(HashOf(object), [=](const Slot& other) { return other.object == object; });
  if (!slot->IsFree()) return false;
  slot->object = object;
  missed_.NoteTaken();
  return true;
}

}  // namespace steprt
