// Reads the input as a standard file, writes what was read, and reads and writes that again.
#include "target.h"
#include "whole/file_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::Run(steprt_test::CheckStandardWrite, data, size);
}
