#include "read/transfer/entry_index.h"

#include <algorithm>

#include "support/memory.h"

namespace steprt {

EntryIndex::Page::Page(std::uint32_t key) : entries() {
  for (std::uint32_t i = 0; i < kPageSize; ++i) entries[i].number = FreeNumber(key * kPageSize + i);
}

EntryIndex::~EntryIndex() {
  for (std::size_t key = 0; key < directorySize_; ++key) delete directory_[key];
  delete[] directory_;
}

STEPentry* EntryIndex::AddElsewhere(int number) {
  const auto bits = static_cast<std::uint32_t>(number);
  return AddPage(bits / kPageSize) ? Take(EntryInPage(bits), number) : AddScattered(number);
}

bool EntryIndex::AddPage(std::uint32_t key) {
  const std::size_t size = key < directorySize_ ? directorySize_ : LargerCapacity(directorySize_, key + 1);
  if (!IsWorthwhile(size) || !GrowDirectory(size)) return false;
  directory_[key] = MakeOrNull<Page>(key);
  if (!directory_[key]) return false;
  ++pages_;
  return true;
}

// Whether the pages will be full in the end, however empty they are now: the numbers fall often, so they come in no
// order, and the highest is not far above the count that is expected, so they are dense.
bool EntryIndex::WillBeFull() const {
  constexpr std::uint32_t kFallsOfShuffled = 4;  // every fourth number; every second falls where all are shuffled
  constexpr double kSlack = 1.25;                // the expected count is an estimate from the length of the records
  return falls_ > Count() / kFallsOfShuffled && highest_ < kSlack * expected_;
}

// A scattered entry takes 16 bytes and its slot up to 14. What pages hold besides the entries taken may grow by 9 bytes
// a number, and a little at the start. So a record holds at most 16 + 14 + 9 bytes, below the 48 that are promised.
bool EntryIndex::IsWorthwhile(std::size_t directorySize) const {
  constexpr double kSparePerNumber = 9;
  constexpr double kSpareAtStart = 1 << 14;
  const double held = (pages_ + 1.0) * sizeof(Page) + static_cast<double>(directorySize) * sizeof(void*);
  const double spare = held - static_cast<double>(inPages_) * sizeof(STEPentry);
  return WillBeFull() || spare <= kSpareAtStart + kSparePerNumber * Count();
}

bool EntryIndex::GrowDirectory(std::size_t size) {
  if (size == directorySize_) return true;
  const std::size_t used = directorySize_;
  Page** larger = MakeLargerOrNull(directory_, used, &directorySize_, size);
  if (!larger) return false;
  std::fill(larger + used, larger + directorySize_, nullptr);
  delete[] directory_;
  directory_ = larger;
  return true;
}

STEPentry* EntryIndex::FindScattered(int number) {
  const Slot* slot = FindSlot(static_cast<std::uint32_t>(number));
  return slot && !slot->IsFree() ? &scattered_.At(slot->place - 1) : nullptr;
}

STEPentry* EntryIndex::AddScattered(int number) {
  const auto bits = static_cast<std::uint32_t>(number);
  Table& table = tables_[TableIndex(bits)];
  if (!table.Reserve(1, [this](const Slot& slot) { return HashNumber(slot.number, seed_); })) return nullptr;
  STEPentry* entry = scattered_.Make();
  if (!entry) return nullptr;
  *FindSlot(bits) = {bits, scattered_.Count()};
  table.NoteTaken();
  *entry = {number, -1, nullptr};
  return entry;
}

}  // namespace steprt
