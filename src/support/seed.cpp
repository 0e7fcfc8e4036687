#include "support/seed.h"

#include <chrono>

#include "support/hash.h"

namespace steprt {
namespace {

constinit HashSeed processSeed = {0, 0};  // a factor of 0: not made yet

// A file cannot know where the library is in memory, nor the time.
HashSeed MakeSeed() {
  constexpr std::uint64_t kGolden = 0x9e3779b97f4a7c15u;
  const auto place = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&processSeed));
  const auto now = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  const std::uint64_t start = Mix(place ^ kGolden, now | 1);
  return {start, Mix(start ^ now, kGolden) | 1};
}

}  // namespace

HashSeed ProcessSeed() {
  if (processSeed.factor == 0) processSeed = MakeSeed();
  return processSeed;
}

}  // namespace steprt
