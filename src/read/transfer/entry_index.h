// Holds the entries of the instance table and finds them by number without a walk. Numbers that stand close together,
// as an exporter gives them, lie in pages of 256 neighbours, in a directory by number, where a entry is one look away;
// scattered ones, for which pages would be wasteful, lie in a pool and are found through hash maps. A entry never
// moves.
#ifndef STEPRT_READ_TRANSFER_ENTRY_INDEX_H
#define STEPRT_READ_TRANSFER_ENTRY_INDEX_H

#include <cstdint>

#include "steprt/instance.h"
#include "support/number_map.h"
#include "support/pool.h"

// One entry of the instance table.
struct STEPentry {
  STEPentry* next;     // next in bucket
  int number;          // the instance number written in the file
  int type;            // of the object when it was last looked at
  STEPheader* object;  // null until the record's read function has returned, and for ever if it made none
};

namespace steprt {

// Asks memory for what a reference to the object is tested against.
inline void PrefetchType(const STEPheader* object) {
  if (object) __builtin_prefetch(&object->type);
}

class EntryIndex {
 public:
  EntryIndex() = default;
  ~EntryIndex();
  EntryIndex(const EntryIndex&) = delete;
  EntryIndex& operator=(const EntryIndex&) = delete;

  // The number's entry; null for a number that is not there.
  STEPentry* Find(int number) {
    STEPentry* entry = EntryInPage(static_cast<std::uint32_t>(number));
    if (entry && entry->number == number) return entry;
    return scattered_.Count() == 0 ? nullptr : FindScattered(number);
  }

  // Asks memory for the number's entry, which is given, or for its place in a map: null.
  const STEPentry* Prefetch(int number) const {
    const auto bits = static_cast<std::uint32_t>(number);
    const STEPentry* entry = EntryInPage(bits);
    entry ? __builtin_prefetch(entry, 1) : maps_[MapOf(number)].Prefetch(bits);
    return entry;
  }

  // A entry for a number that has none, in no bucket yet and without an object. Null when memory is exhausted.
  [[nodiscard]] STEPentry* Add(int number);

  std::uint32_t Count() const { return inPages_ + scattered_.Count(); }

  // Tells how many numbers there will be, as far as one can know: where they come in any order, pages are made at once.
  void Expect(double count) { expected_ = count; }

 private:
  static constexpr std::uint32_t kPageSize = 256;
  static constexpr std::uint32_t kMaps = 64;
  struct Page {
    explicit Page(std::uint32_t key);
    STEPentry entries[kPageSize];  // one without its own number is free
  };

  STEPentry* EntryInPage(std::uint32_t bits) const {
    const std::uint32_t key = bits / kPageSize;
    Page* page = key < directorySize_ ? directory_[key] : nullptr;
    return page ? &page->entries[bits % kPageSize] : nullptr;
  }
  bool AddPage(std::uint32_t key);
  void Observe(std::uint32_t bits);
  bool WillBeFull() const;
  bool IsWorthwhile(std::uint32_t directorySize) const;
  bool GrowDirectory(std::uint32_t size);

  STEPentry* FindScattered(int number);
  STEPentry* AddScattered(int number);
  static std::uint32_t MapOf(int number) {
    return static_cast<std::uint32_t>(number) * 0x9e3779b1u / (~0u / kMaps + 1);
  }

  Page** directory_ = nullptr;  // by number / 256; null where there is no page
  std::uint32_t directorySize_ = 0;
  std::uint32_t pages_ = 0;
  std::uint32_t inPages_ = 0;  // entries taken

  double expected_ = 0;
  std::uint32_t highest_ = 0;  // number
  std::uint32_t last_ = 0;     // number
  std::uint32_t falls_ = 0;    // numbers below the one before

  Pool<STEPentry> scattered_;
  NumberMap maps_[kMaps];  // to the place in scattered_, counted from 1; many, so that few numbers move when one grows
};

}  // namespace steprt

#endif
