// Finds the place of an instance number without a walk. Numbers that stand close together, as an exporter gives them,
// lie in pages of 256 neighbours; scattered ones, for which pages would be wasteful, in a hash map. Together they hold
// at most 24 bytes a number, and 4 where numbers are dense.
#ifndef STEPRT_READ_NUMBER_INDEX_H
#define STEPRT_READ_NUMBER_INDEX_H

#include <cstddef>
#include <cstdint>

#include "support/number_map.h"
#include "support/pool.h"

namespace steprt {

class NumberIndex {
 public:
  // The number's place, counted from 1; 0 for a number that is not there.
  std::uint32_t Find(int number) {
    const auto bits = static_cast<std::uint32_t>(number);
    const Page* page = FindPage(bits);
    return page ? page->places[bits % kPageSize] : scattered_.Find(bits);
  }

  // Where the number's place is kept, in which the caller stores it when it is 0: the number is new then. Null when
  // memory is exhausted. The address is good until the next call.
  [[nodiscard]] std::uint32_t* FindOrAdd(int number);

 private:
  static constexpr std::uint32_t kPageSize = 256;
  struct Page {
    std::uint32_t places[kPageSize];
  };
  struct FoundPage {
    std::uint32_t key;
    Page* page;
  };
  static constexpr std::uint32_t kFoundPages = 64;

  Page* FindPage(std::uint32_t bits) {
    const std::uint32_t key = bits / kPageSize;
    FoundPage& found = found_[key % kFoundPages];
    if (found.page && found.key == key) return found.page;
    const std::uint32_t page = pageMap_.Find(key);
    if (page == 0) return nullptr;
    found = {key, &pages_.At(page - 1)};
    return found.page;
  }
  Page* AddPage(std::uint32_t bits);
  bool IsPageAffordable() const;

  NumberMap pageMap_;  // number / 256 to the page, counted from 1
  Pool<Page, 16> pages_;
  NumberMap scattered_;  // the numbers without a page; what moves to one stays behind and is not asked for again
  std::uint32_t count_ = 0;
  FoundPage found_[kFoundPages] = {};  // the pages found last
};

}  // namespace steprt

#endif
