#include "read/number_index.h"

namespace steprt {

std::uint32_t* NumberIndex::FindOrAdd(int number) {
  const auto bits = static_cast<std::uint32_t>(number);
  Page* page = FindPage(bits);
  if (!page && IsPageAffordable()) page = AddPage(bits);
  std::uint32_t* place = page ? &page->places[bits % kPageSize] : scattered_.FindOrAdd(bits);
  if (place && *place == 0) ++count_;
  return place;
}

// Pages may take what 10 bytes a number leave beside the map, and a little to begin with. The map needs 23 while it
// grows, and an entry of the instance table 24, so that a record never holds more than 48.
bool NumberIndex::IsPageAffordable() const {
  constexpr std::size_t kBytesPerNumber = 10;
  constexpr std::size_t kStart = 1 << 17;
  const std::size_t used = (std::size_t{pages_.Count()} + 1) * sizeof(Page) + scattered_.Bytes();
  return used <= kStart + kBytesPerNumber * count_;
}

NumberIndex::Page* NumberIndex::AddPage(std::uint32_t bits) {
  Page* page = pages_.Make();
  if (!page) return nullptr;
  const std::uint32_t key = bits / kPageSize;
  std::uint32_t* place = pageMap_.FindOrAdd(key);
  if (!place) return nullptr;
  *place = pages_.Count();
  if (scattered_.IsEmpty()) return page;
  for (std::uint32_t i = 0; i < kPageSize; ++i) page->places[i] = scattered_.Find(key * kPageSize + i);
  return page;
}

}  // namespace steprt
