// A map from 32-bit numbers to 32-bit values above 0, in one array with linear probing: eight bytes a slot, filled to
// seven eighths and grown by half, so that it holds at most 14 bytes a number. Its order is seeded, so that no file can
// be made to collide in it.
#ifndef STEPRT_SUPPORT_NUMBER_MAP_H
#define STEPRT_SUPPORT_NUMBER_MAP_H

#include <cstddef>
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

  // Adds a number that is not there. False, without a change, when memory is exhausted.
  [[nodiscard]] bool Add(std::uint32_t number, std::uint32_t value);

  bool IsEmpty() const { return count_ == 0; }
  std::size_t Bytes() const { return std::size_t{capacity_} * sizeof(Slot); }

 private:
  struct Slot {
    std::uint32_t number;
    std::uint32_t value;  // 0: free
  };

  std::uint32_t Home(std::uint32_t number) const;
  void Put(Slot slot);
  bool Grow();

  Slot* slots_ = nullptr;
  std::uint32_t capacity_ = 0;
  std::uint32_t count_ = 0;
  std::uint64_t seed_;
};

}  // namespace steprt

#endif
