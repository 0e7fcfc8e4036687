// Takes the input as a sequence of edits.
#include "edit_checks.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzz::Run(fuzz::CheckEdits, data, size);
}
