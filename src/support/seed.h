// The seed of the library's hashes: one for the process, so that nobody can write a file whose names or numbers
// collide.
#ifndef STEPRT_SUPPORT_SEED_H
#define STEPRT_SUPPORT_SEED_H

#include <cstdint>

namespace steprt {

struct HashSeed {
  std::uint64_t start;
  std::uint64_t factor;  // odd
};

// The same in every call. It decides only where a record is in a table, never what is found there.
HashSeed ProcessSeed();

}  // namespace steprt

#endif
