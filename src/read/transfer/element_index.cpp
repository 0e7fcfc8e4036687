#include "read/transfer/element_index.h"

#include <chrono>

#include "read/transfer/record.h"
#include "support/ascii.h"
#include "support/memory.h"

namespace steprt {
namespace {

constexpr std::size_t kLeastCapacity = 64;
constexpr std::size_t kKeptCapacity = 1024;  // that stays for the next entity

__extension__ using Wide = unsigned __int128;

// All bits of the product count. Which words cancel one another depends on the factor.
std::uint64_t Mix(std::uint64_t value, std::uint64_t factor) {
  const Wide product = Wide{value} * factor;
  return static_cast<std::uint64_t>(product >> 64) ^ static_cast<std::uint64_t>(product);
}

}  // namespace

bool ElementIndex::Extend(STEPelement** link) {
  if (!link_) link_ = link;
  for (; *link_; link_ = &(*link_)->next) {
    if (count_ >= capacity_ / 2 && !Grow()) return false;
    const std::string_view name = (*link_)->name;
    const std::uint64_t hash = Hash(name);
    Slot* slot = SlotOf(name, hash);
    if (slot->element) continue;
    *slot = {*link_, hash};
    ++count_;
  }
  return true;
}

STEPelement* ElementIndex::Find(std::string_view name) const {
  return capacity_ > 0 ? SlotOf(name, Hash(name))->element : nullptr;
}

void ElementIndex::Clear() {
  link_ = nullptr;
  if (capacity_ > kKeptCapacity) {
    delete[] slots_;
    slots_ = nullptr;
    capacity_ = 0;
  } else if (count_ > 0) {
    std::memset(slots_, 0, capacity_ * sizeof *slots_);
  }
  count_ = 0;
}

std::uint64_t ElementIndex::Hash(std::string_view name) const {
  std::uint64_t sum = seed_;
  std::uint64_t word = 0;
  for (const char c : name) {
    word = word << 8 | static_cast<unsigned char>(ToLower(c));
    if (word >> 56 != 0) sum = Mix(sum ^ std::exchange(word, 0), factor_);
  }
  return Mix(sum ^ word, factor_);
}

// The slot that holds the name, or the free one where it belongs.
ElementIndex::Slot* ElementIndex::SlotOf(std::string_view name, std::uint64_t hash) const {
  for (std::size_t i = hash;; ++i) {
    Slot& slot = slots_[i & (capacity_ - 1)];
    if (!slot.element || (slot.hash == hash && EqualNoCase(slot.element->name, name.data()))) return &slot;
  }
}

// From what a document cannot know: where memory lies, and the time.
void ElementIndex::Seed(std::uint64_t place) {
  constexpr std::uint64_t kOdd = 0x9e3779b97f4a7c15u;
  const auto now = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  seed_ = Mix(place ^ kOdd, now | 1);
  factor_ = Mix(seed_ ^ now, kOdd) | 1;
}

bool ElementIndex::Grow() {
  const std::size_t oldCapacity = capacity_;
  const std::size_t capacity = oldCapacity ? oldCapacity * 2 : kLeastCapacity;
  Slot* larger = MakeArrayOrNull<Slot>(capacity);
  if (!larger) return false;
  if (factor_ == 0) Seed(reinterpret_cast<std::uintptr_t>(larger));
  Slot* old = slots_;
  slots_ = larger;
  capacity_ = capacity;
  for (std::size_t i = 0; i < oldCapacity; ++i) {
    if (old[i].element) *SlotOf(old[i].element->name, old[i].hash) = old[i];
  }
  delete[] old;
  return true;
}

}  // namespace steprt
