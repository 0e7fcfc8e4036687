// Reads the input as a clear-text file, with and without the schema check and the schema's index, and writes what came
// of it, wild values and all.
#include <cstdint>

#include "check.h"
#include "client.h"
#include "memory_file.h"
#include "reports.h"

namespace {

using namespace fuzz;

// The driver itself, so that the XML service stays out of it.
void ReadByDriver(MemoryFile& file, bool check, bool indexed) {
  Model model;
  if (indexed) model.PrepareHash();
  ExpectReports(file.Name(), Speaker::kLibrary);
  STEPRT_CHECK(STEPread(file.Name(), Schema(), check) == ReportCount());
  model.CheckSound();
}

void ReadByModel(MemoryFile& file, bool check, bool indexed) {
  Model model;
  if (indexed) model.PrepareHash();
  ExpectReports(file.Name(), Speaker::kXmlService);
  const int errors = model.Read(check, file.Name());
  STEPRT_CHECK(errors >= -1 && errors <= ReportCount());
  STEPRT_CHECK(!model.Locked() && !model.Changed());
  model.CheckSound();

  ExpectReports(file.Name(), Speaker::kLibrary);
  const int writable = model.CountWritable();
  STEPRT_CHECK(model.Write(file.Name(), nullptr) == writable);
  model.CheckSound();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static MemoryFile file;
  const bool indexed = size % 2 != 0;
  file.Fill(data, size);
  ReadByDriver(file, false, indexed);
  ReadByModel(file, true, !indexed);
  return 0;
}
