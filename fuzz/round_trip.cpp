// Reads the input, writes it, reads that and writes it again: the two files are equal, byte for byte but for the date.
#include <cstdint>
#include <string>

#include "check.h"
#include "client.h"
#include "memory_file.h"
#include "reports.h"

namespace {

using namespace fuzz;

constexpr char kRemark[] = "a remark";

// Of a file, what does not tell the time.
std::string WithoutDate(std::string text) {
  const std::size_t start = text.find("FILE_NAME(");
  STEPRT_CHECK(start != std::string::npos);
  return text.erase(start, text.find('\n', start) - start);
}

std::string WriteAndTake(Model& model, MemoryFile& file, int expected) {
  STEPRT_CHECK(model.Write(file.Name(), kRemark) == expected);
  return WithoutDate(file.Contents());
}

void RoundTrip(Model& model, MemoryFile& file) {
  const int count = model.CountWritable();
  const std::string written = WriteAndTake(model, file, count);
  Model copy;
  ExpectReports(file.Name(), Speaker::kLibrary);
  STEPRT_CHECK(STEPread(file.Name(), Schema(), true) == ReportCount());
  STEPRT_CHECK(SurprisingReportCount() == 0);
  copy.CheckSound();
  STEPRT_CHECK(WriteAndTake(copy, file, count) == written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static MemoryFile file;
  file.Fill(data, size);
  Model model;
  ExpectReports(file.Name(), Speaker::kLibrary);
  STEPread(file.Name(), Schema(), false);
  model.TameAll(Form::kClearText);
  RoundTrip(model, file);
  return 0;
}
