// Reads the input as an XML document in memory, with or without the schema's index.
#include <cstdint>
#include <string>

#include "check.h"
#include "client.h"
#include "reports.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace fuzz;
  constexpr char kName[] = "a.xml";
  const std::string document(data, data + size);  // it ends at the first byte that is 0
  Model model;
  model.Name(kName);
  if (size % 2 != 0) model.PrepareHash();
  ExpectReports(kName, Speaker::kXmlService);
  const int errors = model.ReadXml(document.c_str());
  STEPRT_CHECK(errors >= -1 && errors <= ReportCount());
  STEPRT_CHECK(!model.Locked() && !model.Changed() && CurrentModel() == &model);
  model.CheckSound();
  return 0;
}
