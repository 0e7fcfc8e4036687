// The entries of the instance table, found by number in constant time.
//
// Exporters number their instances densely. Entries of close numbers are therefore in pages of 256 neighbours, which a
// directory finds by number. Scattered numbers, for which pages would waste memory, are in a pool and are found through
// hash tables. An entry never moves.
#ifndef STEPRT_READ_TRANSFER_ENTRY_INDEX_H
#define STEPRT_READ_TRANSFER_ENTRY_INDEX_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "steprt/instance.h"
#include "support/hash.h"
#include "support/hash_table.h"
#include "support/pool.h"

// One entry of the instance table.
struct STEPentry {
  int number;          // the instance number written in the file
  int type;            // of the object when it was last looked at
  STEPheader* object;  // made by the record's read function; null before that, and if it made none
};

namespace steprt {

// Prefetches what the test of a reference to the object reads.
inline void PrefetchType(const STEPheader* object) {
  if (object) __builtin_prefetch(&object->type);
}

class EntryIndex {
 public:
  EntryIndex() = default;
  ~EntryIndex();
  EntryIndex(const EntryIndex&) = delete;
  EntryIndex& operator=(const EntryIndex&) = delete;

  // Returns the number's entry, or null if it has none.
  STEPentry* Find(int number) {
    STEPentry* entry = EntryInPage(static_cast<std::uint32_t>(number));
    if (entry && entry->number == number) return entry;
    return scattered_.Count() == 0 ? nullptr : FindScattered(number);
  }

  // Prefetches the place of the number's entry. Returns that place if it is in a page, and null otherwise.
  const STEPentry* Prefetch(int number) const {
    const auto bits = static_cast<std::uint32_t>(number);
    const STEPentry* entry = EntryInPage(bits);
    const void* place = entry ? static_cast<const void*>(entry) : TableOf(bits).Start(HashNumber(bits, seed_));
    __builtin_prefetch(place, 1);
    return entry;
  }

  // Makes an entry for a number that has none, without an object. Null when memory runs out.
  [[nodiscard]] STEPentry* Add(int number) {
    const auto bits = static_cast<std::uint32_t>(number);
    Observe(bits);
    STEPentry* entry = EntryInPage(bits);
    return entry ? Take(entry, number) : AddElsewhere(number);
  }

  std::uint32_t Count() const { return inPages_ + scattered_.Count(); }

  // Says how many numbers are expected. If they come in any order, that decides early whether pages are worth it.
  void Expect(double count) { expected_ = count; }

 private:
  static constexpr std::uint32_t kPageSize = 256;
  static constexpr std::uint32_t kTables = 64;

  struct Page {
    explicit Page(std::uint32_t key);
    STEPentry entries[kPageSize];
  };

  // A scattered number and the place of its entry in the pool, counted from 1. With seven eighths full and growth by
  // half, a number takes at most 14 bytes here.
  struct Slot {
    std::uint32_t number;
    std::uint32_t place;
    bool IsFree() const { return place == 0; }
  };
  using Table = HashTable<Slot, 7>;

  // The number that a free entry of a page has: one that is never in its place.
  static int FreeNumber(std::uint32_t placeNumber) { return static_cast<int>(~placeNumber); }

  STEPentry* EntryInPage(std::uint32_t bits) const {
    const std::uint32_t key = bits / kPageSize;
    Page* page = key < directorySize_ ? directory_[key] : nullptr;
    return page ? &page->entries[bits % kPageSize] : nullptr;
  }
  STEPentry* Take(STEPentry* entry, int number) {
    ++inPages_;
    *entry = {number, -1, nullptr};
    return entry;
  }
  void Observe(std::uint32_t bits) {
    if (bits < last_) ++falls_;
    last_ = bits;
    highest_ = std::max(highest_, bits);
  }
  STEPentry* AddElsewhere(int number);
  bool AddPage(std::uint32_t key);
  bool WillBeFull() const;
  bool IsWorthwhile(std::size_t directorySize) const;
  bool GrowDirectory(std::size_t size);

  STEPentry* FindScattered(int number);
  STEPentry* AddScattered(int number);
  Slot* FindSlot(std::uint32_t bits) const {
    return TableOf(bits).Find(HashNumber(bits, seed_), [=](const Slot& slot) { return slot.number == bits; });
  }
  static std::uint32_t TableIndex(std::uint32_t bits) { return bits * 0x9e3779b1u / (~0u / kTables + 1); }
  const Table& TableOf(std::uint32_t bits) const { return tables_[TableIndex(bits)]; }

  Page** directory_ = nullptr;  // by number / 256; null where there is no page
  std::size_t directorySize_ = 0;
  std::uint32_t pages_ = 0;
  std::uint32_t inPages_ = 0;  // entries taken

  double expected_ = 0;
  std::uint32_t highest_ = 0;  // number so far
  std::uint32_t last_ = 0;     // number added
  std::uint32_t falls_ = 0;    // numbers lower than the one before

  Pool<STEPentry> scattered_;
  Table tables_[kTables];  // many, so that few slots move when one grows
  const HashSeed seed_ = ProcessSeed();
};

}  // namespace steprt

#endif
