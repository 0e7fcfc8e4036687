// A map from 32-bit numbers to 32-bit values above 0, in one array with linear probing: eight bytes a slot, filled to
// seven eighths and grown by half, so that it holds at most 14 bytes a number. Its order is seeded, so that no file can
// be made to collide in it.
#ifndef STEPRT_SUPPORT_NUMBER_MAP_H
#define STEPRT_SUPPORT_NUMBER_MAP_H

#include <cstdint>

namespace steprt {

class NumberMap {
 public:
  NumberMap();
  ~NumberMap() { delete[] slots_; }
  NumberMap(const NumberMap&) = delete;
  NumberMap& operator=(const NumberMap&) = delete;

  // The number's value, 0 for none.
  std::uint32_t Find(std::uint32_t number) const;

  // Asks memory for the number's slot.
  void Prefetch(std::uint32_t number) const {
    if (capacity_ != 0) __builtin_prefetch(&slots_[Home(number)], 1);
  }

  // Where the number's value is kept, in which the caller stores one when it is 0: the number is new then. Null when
  // memory is exhausted. The address is good until the next call.
  [[nodiscard]] std::uint32_t* FindOrAdd(std::uint32_t number);

 private:
  struct Slot {
    std::uint32_t number;
    std::uint32_t value;  // 0: free
  };

  std::uint32_t Home(std::uint32_t number) const;
  Slot* SlotOf(std::uint32_t number) const;
  bool Grow();

  Slot* slots_ = nullptr;
  std::uint32_t capacity_ = 0;
  std::uint32_t count_ = 0;
  std::uint64_t seed_;
};

}  // namespace steprt

#endif
