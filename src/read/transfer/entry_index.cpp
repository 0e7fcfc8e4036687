#include "read/transfer/entry_index.h"

#include <algorithm>

#include "support/memory.h"

namespace steprt {

EntryIndex::Page::Page(std::uint32_t key) : entries() {
  for (std::uint32_t i = 0; i < kPageSize; ++i) entries[i].number = static_cast<int>(~(key * kPageSize + i));
}

EntryIndex::~EntryIndex() {
  for (std::uint32_t key = 0; key < directorySize_; ++key) delete directory_[key];
  delete[] directory_;
}

STEPentry* EntryIndex::Add(int number) {
  const auto bits = static_cast<std::uint32_t>(number);
  Observe(bits);
  STEPentry* entry = EntryInPage(bits);
  if (!entry && AddPage(bits / kPageSize)) entry = EntryInPage(bits);
  if (!entry) return AddScattered(number);
  ++inPages_;
  *entry = {nullptr, number, -1, nullptr};
  return entry;
}

bool EntryIndex::AddPage(std::uint32_t key) {
  const std::uint32_t size = key < directorySize_ ? directorySize_ : std::max(key + 1, directorySize_ * 3 / 2);
  if (!IsWorthwhile(size) || !GrowDirectory(size)) return false;
  directory_[key] = MakeOrNull<Page>(key);
  if (!directory_[key]) return false;
  ++pages_;
  return true;
}

void EntryIndex::Observe(std::uint32_t bits) {
  if (bits < last_) ++falls_;
  last_ = bits;
  highest_ = std::max(highest_, bits);
}

// Whether pages will be full in the end, however empty they are now: where the numbers of a file that counts its
// records from 1 come in any order.
bool EntryIndex::WillBeFull() const { return falls_ > Count() / 4 && highest_ < 1.25 * expected_; }

// What pages hold beside the entries taken may grow by 9 bytes a number, and a little to begin with: a scattered entry
// needs 24 bytes and its place in a map 14, so that a record never holds more than 48.
bool EntryIndex::IsWorthwhile(std::uint32_t directorySize) const {
  constexpr double kSparePerNumber = 9;
  constexpr double kSpare = 1 << 14;
  const double held = (pages_ + 1.0) * sizeof(Page) + static_cast<double>(directorySize) * sizeof(void*);
  const double spare = held - static_cast<double>(inPages_) * sizeof(STEPentry);
  return WillBeFull() || spare <= kSpare + kSparePerNumber * Count();
}

bool EntryIndex::GrowDirectory(std::uint32_t size) {
  if (size == directorySize_) return true;
  Page** larger = MakeArrayOrNull<Page*>(size);
  if (!larger) return false;
  std::copy_n(directory_, directorySize_, larger);
  delete[] directory_;
  directory_ = larger;
  directorySize_ = size;
  return true;
}

STEPentry* EntryIndex::FindScattered(int number) {
  const std::uint32_t place = maps_[MapOf(number)].Find(static_cast<std::uint32_t>(number));
  return place ? &scattered_.At(place - 1) : nullptr;
}

STEPentry* EntryIndex::AddScattered(int number) {
  std::uint32_t* place = maps_[MapOf(number)].FindOrAdd(static_cast<std::uint32_t>(number));
  STEPentry* entry = place ? scattered_.Make() : nullptr;
  if (!entry) return nullptr;
  *place = scattered_.Count();
  *entry = {nullptr, number, -1, nullptr};
  return entry;
}

}  // namespace steprt
