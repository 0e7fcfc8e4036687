// Finds the place of an instance number without a walk. Numbers that stand close together, as an exporter gives them,
// lie in pages of 256 neighbours; scattered ones, for which pages would be wasteful, in a hash map. Together they hold
// at most about 15 bytes a number.
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
    if (const Page* page = FindPage(bits)) {
      if (const std::uint32_t place = page->places[bits % kPageSize]) return place;
    }
    return scattered_.Find(bits);
  }

  // Adds a number that is not there. False, without a change, when memory is exhausted.
  [[nodiscard]] bool Add(int number, std::uint32_t place);

 private:
  static constexpr std::uint32_t kPageSize = 256;
  struct Page {
    std::uint32_t places[kPageSize];
  };

  Page* FindPage(std::uint32_t bits) {
    const std::uint32_t key = bits / kPageSize;
    if (latest_ && key == latestKey_) return latest_;
    const std::uint32_t page = pageMap_.Find(key);
    if (page == 0) return nullptr;
    latestKey_ = key;
    return latest_ = &pages_.At(page - 1);
  }
  Page* AddPage(std::uint32_t bits);
  bool IsPageAffordable() const;

  NumberMap pageMap_;  // number / 256 to the page, counted from 1
  Pool<Page, 16> pages_;
  NumberMap scattered_;
  std::uint32_t count_ = 0;
  std::uint32_t latestKey_ = 0;
  Page* latest_ = nullptr;  // the page found last
};

}  // namespace steprt

#endif
