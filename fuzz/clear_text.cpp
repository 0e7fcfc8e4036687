// Reads the input as a file in clear text; what came of it is written and read again in both forms.
#include "target.h"
#include "whole/file_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::Run(steprt_test::CheckClearText, data, size);
}
