#include "hash.h"

#include <cstring>
#include <random>

namespace exchange {

std::uint64_t HashSeed() {
  static const std::uint64_t seed = [] {
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
  }();
  return seed;
}

// Eight bytes at a time.
std::size_t HashText::operator()(std::string_view text) const {
  std::uint64_t hash = HashSeed() ^ text.size();
  while (text.size() >= 8) {
    std::uint64_t word;
    std::memcpy(&word, text.data(), 8);
    hash = HashNumber(word, hash);
    text.remove_prefix(8);
  }
  std::uint64_t rest = 0;
  std::memcpy(&rest, text.data(), text.size());
  return static_cast<std::size_t>(HashNumber(rest, hash));
}

}  // namespace exchange
