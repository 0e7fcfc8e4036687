// Reads the input as a clear-text file, with and without the schema check and the schema's index, and writes what came
// of it, wild values and all.
#include <cstdint>
#include <string>

#include "check.h"
#include "client.h"
#include "memory_file.h"
#include "reports.h"
#include "short_reads.h"

namespace {

using namespace fuzz;

struct Outcome {
  std::string reports;
  int instances;
};

// By the driver itself, so that the XML service stays out of it.
Outcome ReadByDriver(MemoryFile& file, bool check, bool indexed) {
  Model model;
  if (indexed) model.PrepareHash();
  ExpectReports(file.Name(), Speaker::kLibrary);
  STEPRT_CHECK(STEPread(file.Name(), Schema(), check) == ReportCount());
  model.CheckSound();
  return {ReportTexts(), model.CountInstances()};
}

void CheckShortReads(MemoryFile& file, bool indexed, std::uint32_t seed) {
  const Outcome whole = ReadByDriver(file, false, indexed);
  const ShortReads shortReads(seed);
  const Outcome pieces = ReadByDriver(file, false, indexed);
  STEPRT_CHECK(pieces.reports == whole.reports);
  STEPRT_CHECK(pieces.instances == whole.instances);
}

void ReadAndWriteByModel(MemoryFile& file, bool indexed) {
  Model model;
  if (indexed) model.PrepareHash();
  ExpectReports(file.Name(), Speaker::kXmlService);
  const int errors = model.Read(true, file.Name());
  STEPRT_CHECK(errors >= -1 && errors <= ReportCount());
  STEPRT_CHECK(!model.Locked() && !model.Changed());
  model.CheckSound();

  ExpectReports(file.Name(), Speaker::kLibrary);
  STEPRT_CHECK(model.Write(file.Name(), nullptr) == model.CountWritable());
  model.CheckSound();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static MemoryFile file;
  const bool indexed = size % 2 != 0;
  file.Fill(data, size);
  CheckShortReads(file, indexed, static_cast<std::uint32_t>(size));
  ReadAndWriteByModel(file, !indexed);
  return 0;
}
