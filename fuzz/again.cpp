#include "again.h"

#include <string>

#include "check.h"
#include "reports.h"

namespace fuzz {
namespace {

constexpr char kRemark[] = "a remark";

// Of a file, what does not tell the time.
std::string WithoutDate(std::string text) {
  const std::size_t start = text.find("FILE_NAME(");
  STEPRT_CHECK(start != std::string::npos);
  return text.erase(start, text.find('\n', start) - start);
}

std::string Write(Model& model, MemoryFile& file, Form form) {
  const int count = form == Form::kXml ? model.WriteXml(file.Name(), kRemark) : model.Write(file.Name(), kRemark);
  STEPRT_CHECK(count == model.CountWritable());
  return WithoutDate(file.Contents());
}

}  // namespace

void CheckWritesAgain(Model& model, MemoryFile& file, Form form) {
  model.TameAll(form);
  ExpectReports(file.Name(), Speaker::kLibrary);
  const std::string written = Write(model, file, form);

  Model copy;
  copy.Name(file.Name());
  ExpectReports(file.Name(), Speaker::kLibrary);
  const int errors = form == Form::kXml ? copy.ReadXml(nullptr) : STEPread(file.Name(), Schema(), true);
  STEPRT_CHECK(errors == ReportCount());
  STEPRT_CHECK(SurprisingReportCount() == 0);
  copy.CheckSound();
  STEPRT_CHECK(Write(copy, file, form) == written);
}

}  // namespace fuzz
