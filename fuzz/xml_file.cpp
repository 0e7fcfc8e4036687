// Reads the input as an XML file, whole and in pieces; what came of it writes again.
#include <cstdint>
#include <string>

#include "again.h"
#include "check.h"
#include "client.h"
#include "memory_file.h"
#include "reports.h"
#include "short_reads.h"

namespace {

using namespace fuzz;

std::string Read(Model& model, MemoryFile& file) {
  model.Name(file.Name());
  ExpectReports(file.Name(), Speaker::kXmlService);
  const int errors = model.ReadXml(nullptr);
  STEPRT_CHECK(errors >= -1 && errors <= ReportCount());
  model.CheckSound();
  return ReportTexts();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static MemoryFile file;
  file.Fill(data, size);
  Model model;
  const std::string reports = Read(model, file);
  {
    const ShortReads shortReads(static_cast<std::uint32_t>(size));
    Model other;
    STEPRT_CHECK(Read(other, file) == reports);
    STEPRT_CHECK(other.CountInstances() == model.CountInstances());
  }
  CheckWritesAgain(model, file, Form::kXml);
  return 0;
}
