// Records by the names that a document declares, each made at the first look-up of its name. Expat compares names
// exactly, so the table does too: names that differ only in case have different hashes.
#ifndef STEPRT_PLATFORM_EXPAT_NAME_TABLE_H
#define STEPRT_PLATFORM_EXPAT_NAME_TABLE_H

#include <cstdint>
#include <string_view>

#include "support/hash.h"
#include "support/hash_table.h"
#include "support/pool.h"
#include "support/seed.h"

namespace steprt {

// A Record has a `std::string_view name`, which must live as long as the table. Expat keeps what a document type
// declares until the parser goes.
template <typename Record>
class NameTable {
 public:
  Record* FindOrNull(std::string_view name) const {
    const Slot* slot = Find(name, HashOf(name));
    return slot ? slot->record : nullptr;
  }

  // Returns null when memory runs out.
  [[nodiscard]] Record* FindOrMake(std::string_view name) {
    const std::uint64_t hash = HashOf(name);
    if (!slots_.Reserve(1, [](const Slot& taken) { return taken.hash; })) return nullptr;
    Slot* slot = Find(name, hash);
    if (slot->record) return slot->record;
    Record* record = records_.Make();
    if (!record) return nullptr;
    record->name = name;
    *slot = {record, hash};
    slots_.NoteTaken();
    return record;
  }

 private:
  struct Slot {
    Record* record;  // null: free
    std::uint64_t hash;
    bool IsFree() const { return !record; }
  };

  Slot* Find(std::string_view name, std::uint64_t hash) const {
    return slots_.Find(hash, [&](const Slot& slot) { return slot.hash == hash && slot.record->name == name; });
  }

  std::uint64_t HashOf(std::string_view name) const {
    std::uint64_t hash = HashNumber(name.size(), seed_);
    for (std::uint64_t word = 0; !name.empty(); word = 0) {
      const std::size_t size = name.copy(reinterpret_cast<char*>(&word), sizeof word);
      hash = HashNumber(hash ^ word, seed_);
      name.remove_prefix(size);
    }
    return hash;
  }

  HashTable<Slot, 4> slots_;
  Pool<Record, 64> records_;
  const HashSeed seed_ = ProcessSeed();
};

}  // namespace steprt

#endif
