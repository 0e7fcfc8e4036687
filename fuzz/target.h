// What each target needs to use the tests' own checks outside of a test program.
#ifndef STEPRT_FUZZ_TARGET_H
#define STEPRT_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

// From now on a failed expectation of Google Test ends the program. PROBE has attributes of most kinds. Call it first;
// later calls do nothing.
void SetUp();

// Calls the check with the input. Returns 0, as a target must.
int Run(void (*check)(const std::string& bytes), const std::uint8_t* data, std::size_t size);

}  // namespace fuzz

#endif
