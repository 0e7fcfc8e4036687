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

std::uint32_t NumberMap::Find(std::uint32_t number) const {
  if (capacity_ == 0) return 0;
  for (std::uint32_t i = Home(number); slots_[i].value != 0; i = i + 1 == capacity_ ? 0 : i + 1) {
    if (slots_[i].number == number) return slots_[i].value;
  }
  return 0;
}

bool NumberMap::Add(std::uint32_t number, std::uint32_t value) {
  if (count_ >= capacity_ - capacity_ / 8 && !Grow()) return false;
  Put({number, value});
  ++count_;
  return true;
}

void NumberMap::Put(Slot slot) {
  std::uint32_t i = Home(slot.number);
  while (slots_[i].value != 0) i = i + 1 == capacity_ ? 0 : i + 1;
  slots_[i] = slot;
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
    if (old[i].value != 0) Put(old[i]);
  }
  delete[] old;
  return true;
}

}  // namespace steprt
