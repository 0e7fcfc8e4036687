// Reads the input as a file of records that describe their attributes, in clear text or in XML.
#include "target.h"
#include "whole/record_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::Run(steprt_test::CheckRecords, data, size);
}
