// The instance names of a file: which are used, which are referred to, and the types of their instances.
#ifndef STEPRT_EXCHANGE_NAMES_H
#define STEPRT_EXCHANGE_NAMES_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace exchange {

// What a name refers to; a check against a schema has its own numbers from kFirstType on.
inline constexpr std::uint16_t kUnknownType = 0;
inline constexpr std::uint16_t kFirstType = 1;
inline constexpr std::uint16_t kLastType = 0xFFFF;

// A hash table of blocks, each for eight neighbouring names: 4 bytes for a name where names are dense, 32 where they
// are scattered, and up to twice that for free blocks.
class Names {
 public:
  Names();

  // False if the name is used already; the first use stays.
  bool Define(std::uint64_t name, std::uint16_t type);
  void Refer(std::uint64_t name);

  bool IsDefined(std::uint64_t name) const;
  std::uint16_t TypeOf(std::uint64_t name) const;  // kUnknownType if it is not defined
  // True if a name is referred to that is not defined.
  bool AnyDangling() const;

 private:
  struct Block {
    std::uint64_t key = kFree;  // name / 8
    std::uint8_t defined = 0;   // one bit for each name
    std::uint8_t referred = 0;
    std::uint16_t types[8] = {};
  };
  static constexpr std::uint64_t kFree = ~std::uint64_t{0};  // larger than any key

  std::size_t SlotOf(std::uint64_t key) const;
  Block& BlockOf(std::uint64_t name);
  const Block* Find(std::uint64_t name) const;
  void Grow();

  std::vector<Block> blocks_;
  std::size_t used_ = 0;
  std::size_t last_ = 0;  // names come in runs
  std::uint64_t seed_;
};

}  // namespace exchange

#endif
