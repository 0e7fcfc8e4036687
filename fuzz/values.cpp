// Takes the input as numbers and texts of values.
#include "target.h"
#include "value_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::Run(fuzz::CheckValues, data, size);
}
