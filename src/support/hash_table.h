// An open-addressed hash table with linear probing: the only one in the library. It holds plain slots in one array; its
// owner computes the hashes and compares.
//
//   struct Slot { std::uint32_t number, place; bool IsFree() const { return place == 0; } };
//   HashTable<Slot, 7> table;
//
// Hashes come from support/hash.h and are seeded, so a probe is short for every input.
#ifndef STEPRT_SUPPORT_HASH_TABLE_H
#define STEPRT_SUPPORT_HASH_TABLE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "support/memory.h"

namespace steprt {

// A zeroed Slot is free. At most kFullEighths of eight slots are taken: a fuller table needs less memory, an emptier
// one fewer probes.
template <typename Slot, std::size_t kFullEighths>
class HashTable {
  static_assert(kFullEighths > 0 && kFullEighths < 8);

 public:
  HashTable() = default;
  ~HashTable() { delete[] slots_; }
  HashTable(const HashTable&) = delete;
  HashTable& operator=(const HashTable&) = delete;

  // The slot that `matches`, or the free one where such a slot belongs. Null for a table without slots.
  template <typename Matches>
  Slot* Find(std::uint64_t hash, Matches matches) const {
    if (capacity_ == 0) return nullptr;
    std::size_t i = Home(hash);
    while (!slots_[i].IsFree() && !matches(slots_[i])) i = i + 1 == capacity_ ? 0 : i + 1;
    return &slots_[i];
  }

  // Makes sure that `more` further slots can be taken. It may move all slots. `hashOf` returns the hash of a taken one.
  // Returns false, without a change, when memory runs out.
  template <typename HashOf>
  [[nodiscard]] bool Reserve(std::size_t more, HashOf hashOf) {
    const std::size_t wanted = (count_ + more) * 8 / kFullEighths + 1;
    if (wanted <= capacity_) return true;
    return MoveTo(std::max(wanted, capacity_ ? capacity_ + capacity_ / 2 : kLeast), hashOf);
  }

  // Counts a free slot that the owner has filled, after a Reserve.
  void NoteTaken() { ++count_; }

  // Frees all slots, and the array if it is larger than `kept` slots.
  void Clear(std::size_t kept) {
    if (capacity_ > kept) {
      delete[] slots_;
      slots_ = nullptr;
      capacity_ = 0;
    } else if (count_ > 0) {
      std::memset(static_cast<void*>(slots_), 0, capacity_ * sizeof(Slot));
    }
    count_ = 0;
  }

  // The slot where a search begins, to be prefetched. Null for a table without slots.
  const Slot* Start(std::uint64_t hash) const { return capacity_ == 0 ? nullptr : &slots_[Home(hash)]; }

  std::size_t Count() const { return count_; }

 private:
  static constexpr std::size_t kLeast = 64;

  std::size_t Home(std::uint64_t hash) const { return static_cast<std::size_t>((hash >> 32) * capacity_ >> 32); }

  template <typename HashOf>
  bool MoveTo(std::size_t capacity, HashOf hashOf) {
    Slot* const larger = MakeArrayOrNull<Slot>(capacity);
    if (!larger) return false;
    Slot* const old = slots_;
    const std::size_t oldCapacity = capacity_;
    slots_ = larger;
    capacity_ = capacity;
    for (std::size_t i = 0; i < oldCapacity; ++i) {
      if (!old[i].IsFree()) *Find(hashOf(old[i]), [](const Slot&) { return false; }) = old[i];
    }
    delete[] old;
    return true;
  }

  Slot* slots_ = nullptr;
  std::size_t capacity_ = 0;  // less than 2^32
  std::size_t count_ = 0;
};

}  // namespace steprt

#endif
