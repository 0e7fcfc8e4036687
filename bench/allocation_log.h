// Counts what a stretch of the program takes from operator new. The operators of this program are replaced, which on
// ELF reaches into the library.
#ifndef STEPRT_BENCH_ALLOCATION_LOG_H
#define STEPRT_BENCH_ALLOCATION_LOG_H

#include <cstddef>

namespace bench {

struct Allocations {
  std::size_t passing;  // bytes held at the worst moment by what was released again before the end
  std::size_t lasting;  // bytes still held at the end
};

// One at a time.
void BeginAllocationLog();
Allocations EndAllocationLog();

}  // namespace bench

#endif
