#include "support/number_map.h"

#include <chrono>

#include "support/memory.h"

namespace steprt {
namespace {

constexpr std::uint64_t kMixer = 0x9e3779b97f4a7c15ull;

std::uint64_t Mix(std::uint64_t x) {
  x ^= x >> 32;
  x *= 0xd6e8feb86659fd93ull;
  x ^= x >> 32;
  x *= 0xd6e8feb86659fd93ull;
  return x ^ (x >> 32);
}

}  // namespace

// Time and place make the seed; it decides only where a number lies, never what is found.
NumberMap::NumberMap()
    : seed_(Mix(reinterpret_cast<std::uintptr_t>(this) ^
                static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) * kMixer)) {}

std::uint32_t NumberMap::Home(std::uint32_t number) const {
  const std::uint64_t mixed = Mix(number ^ seed_) >> 32;
  return static_cast<std::uint32_t>(mixed * capacity_ >> 32);
}

std::uint32_t NumberMap::Find(std::uint32_t number) const { return capacity_ == 0 ? 0 : SlotOf(number)->value; }

std::uint32_t* NumberMap::FindOrAdd(std::uint32_t number) {
  Slot* slot = capacity_ == 0 ? nullptr : SlotOf(number);
  if (slot && slot->value != 0) return &slot->value;
  if (count_ >= capacity_ - capacity_ / 8) {
    if (!Grow()) return nullptr;
    slot = SlotOf(number);
  }
  slot->number = number;
  ++count_;
  return &slot->value;
}

// The slot that holds the number, or the free one where it belongs.
NumberMap::Slot* NumberMap::SlotOf(std::uint32_t number) const {
  std::uint32_t i = Home(number);
  while (slots_[i].value != 0 && slots_[i].number != number) i = i + 1 == capacity_ ? 0 : i + 1;
  return &slots_[i];
}

bool NumberMap::Grow() {
  const std::uint32_t oldCapacity = capacity_;
  const std::uint32_t capacity = oldCapacity ? oldCapacity + oldCapacity / 2 : 64;
  Slot* larger = MakeArrayOrNull<Slot>(capacity);
  if (!larger) return false;
  Slot* old = slots_;
  slots_ = larger;
  capacity_ = capacity;
  for (std::uint32_t i = 0; i < oldCapacity; ++i) {
    if (old[i].value != 0) *SlotOf(old[i].number) = old[i];
  }
  delete[] old;
  return true;
}

}  // namespace steprt
