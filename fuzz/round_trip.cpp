// Reads the input as clear text; what came of it writes again in both forms.
#include <cstdint>

#include "again.h"
#include "client.h"
#include "memory_file.h"
#include "reports.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace fuzz;
  static MemoryFile file;
  file.Fill(data, size);
  Model model;
  ExpectReports(file.Name(), Speaker::kLibrary);
  STEPread(file.Name(), Schema(), false);
  CheckWritesAgain(model, file, Form::kClearText);
  CheckWritesAgain(model, file, Form::kXml);
  return 0;
}
