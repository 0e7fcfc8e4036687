// What a target holds to be true. A breach prints its place and ends the program, in every kind of build.
#ifndef STEPRT_FUZZ_CHECK_H
#define STEPRT_FUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>

#define STEPRT_CHECK(condition)                                                           \
  do {                                                                                    \
    if (!(condition)) {                                                                   \
      std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                       \
    }                                                                                     \
  } while (false)

#endif
