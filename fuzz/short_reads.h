// Lets the system's read give a few bytes at a time, and be interrupted now and then, for its own life: so every token
// lies across the end of a block.
#ifndef STEPRT_FUZZ_SHORT_READS_H
#define STEPRT_FUZZ_SHORT_READS_H

#include <cstdint>

namespace fuzz {

class ShortReads {
 public:
  explicit ShortReads(std::uint32_t seed);
  ~ShortReads();
  ShortReads(const ShortReads&) = delete;
  ShortReads& operator=(const ShortReads&) = delete;
};

}  // namespace fuzz

#endif
