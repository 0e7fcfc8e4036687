// Reads the input as an XML document, in memory and from a file; what came of it is written and read again.
#include "target.h"
#include "whole/file_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::Run(steprt_test::CheckDocument, data, size);
}
