// Names of a standard read that a record of fixed size does not hold: instance names beyond 31 bits, and keywords.
#ifndef STEPRT_READ_TRANSFER_NAMES_H
#define STEPRT_READ_TRANSFER_NAMES_H

#include <climits>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/hash_table.h"
#include "support/seed.h"

namespace steprt {

// The number of an instance name that is none. It has been reported, and no record has it.
inline constexpr int kRefusedName = INT_MIN;

// Assigns negative numbers to the instance names beyond 31 bits. No other name has a negative one.
class BigNames {
 public:
  BigNames() = default;
  ~BigNames() { delete[] names_; }
  BigNames(const BigNames&) = delete;
  BigNames& operator=(const BigNames&) = delete;

  // The number of a name. Returns 0 when memory runs out.
  int NumberOf(std::uint64_t name);

  // The name that has this number, which is negative.
  std::uint64_t NameOf(int number) const { return names_[-(number + 1)]; }

 private:
  static constexpr std::size_t kLeast = 64;

  struct Slot {
    std::uint64_t name;
    int number;
    bool IsFree() const { return number == 0; }
  };
  HashTable<Slot, 6> table_;
  std::uint64_t* names_ = nullptr;  // in the order of their numbers, -1 first
  std::size_t capacity_ = 0;
  const HashSeed seed_ = ProcessSeed();
};

// Keeps one copy of each keyword.
class KeptKeywords {
 public:
  KeptKeywords() = default;
  ~KeptKeywords();
  KeptKeywords(const KeptKeywords&) = delete;
  KeptKeywords& operator=(const KeptKeywords&) = delete;

  // Returns the copy, which is valid until the end of the read. Returns null when memory runs out.
  [[nodiscard]] const char* Keep(std::string_view keyword);

 private:
  struct Slot {
    char* text;
    bool IsFree() const { return !text; }
  };
  struct Link {  // before each text
    char* last;
  };
  HashTable<Slot, 4> table_;
  char* last_ = nullptr;
  const HashSeed seed_ = ProcessSeed();
};

}  // namespace steprt

#endif
