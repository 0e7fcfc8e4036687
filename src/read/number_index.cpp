#include "read/number_index.h"

namespace steprt {

bool NumberIndex::Add(int number, std::uint32_t place) {
  const auto bits = static_cast<std::uint32_t>(number);
  Page* page = FindPage(bits);
  if (!page && IsPageAffordable()) page = AddPage(bits);
  if (page) {
    page->places[bits % kPageSize] = place;
  } else if (!scattered_.Add(bits, place)) {
    return false;
  }
  ++count_;
  return true;
}

// Pages may take what 14 bytes a number leave beside the map, and a little to begin with.
bool NumberIndex::IsPageAffordable() const {
  constexpr std::size_t kBytesPerNumber = 14;
  constexpr std::size_t kStart = 1 << 17;
  const std::size_t used = (std::size_t{pages_.Count()} + 1) * sizeof(Page) + scattered_.Bytes();
  return used <= kStart + kBytesPerNumber * count_;
}

NumberIndex::Page* NumberIndex::AddPage(std::uint32_t bits) {
  Page* page = pages_.Make();
  if (!page || !pageMap_.Add(bits / kPageSize, pages_.Count())) return nullptr;
  return page;
}

}  // namespace steprt
