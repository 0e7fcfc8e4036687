// Hashes with a seed of the process, so that no file can be made to collide.
#ifndef STEPRT_EXCHANGE_HASH_H
#define STEPRT_EXCHANGE_HASH_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace exchange {

std::uint64_t HashSeed();

inline std::uint64_t HashNumber(std::uint64_t number, std::uint64_t seed) {
  number = (number ^ seed) * 0x9E3779B97F4A7C15U;
  number = (number ^ number >> 32) * 0xD6E8FEB86659FD93U;
  return number ^ number >> 32;
}

struct HashText {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};

template <class Value>
using TextMap = std::unordered_map<std::string, Value, HashText, std::equal_to<>>;

}  // namespace exchange

#endif
