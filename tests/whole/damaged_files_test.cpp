// Files cut at every byte, and reads that come in pieces: each gives what the bytes that arrived give, and the count of
// errors is that of the reports.
#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "support/faulty_calls.h"
#include "support/golden_files.h"
#include "support/proj_schema.h"
#include "support/soundness.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

// All files of a form with their prefixes; a look at one must leave nothing.
template <typename Look>
void ForEveryPrefix(Form form, Look look) {
  for (const GoldenFile& file : GoldenFiles(form)) {
    look("", file);  // what is made once and stays is made now
    for (std::size_t size = 0; size <= file.bytes.size(); ++size) {
      const std::string prefix = file.bytes.substr(0, size);
      const long blocks = LiveBlocks();
      look(prefix, file);
      ASSERT_EQ(LiveBlocks(), blocks) << file.path << " to byte " << size;
      ASSERT_FALSE(testing::Test::HasFailure()) << file.path << " to byte " << size;
    }
  }
}

TEST(DamagedFiles, EveryPrefixOfClearTextIsReadToItsEndAndHoldsNothingAfterwards) {
  std::size_t instances = 0;
  ForEveryPrefix(Form::kClearText, [&](const std::string& prefix, const GoldenFile&) {
    ProjModel model;
    const Outcome whole = ReadBytes(model, prefix);
    EXPECT_EQ(whole.result, static_cast<int>(whole.reports.size()));
    ExpectSound(model);
    if (prefix.empty()) instances = 0;
    EXPECT_GE(whole.population.size(), instances) << "a longer prefix holds no less";
    instances = whole.population.size();
    const FaultyCalls calls({.interrupted = true, .atMost = [] { return 1; }});
    const Outcome pieces = ReadBytes(prefix);
    EXPECT_EQ(pieces.population, whole.population);
    EXPECT_EQ(pieces.reports, whole.reports);
  });
}

TEST(DamagedFiles, EveryPrefixOfADocumentIsReadToItsEndAndHoldsNothingAfterwards) {
  ForEveryPrefix(Form::kXml, [](const std::string& prefix, const GoldenFile& file) {
    ProjModel model;
    model.Name("prefix.xml");
    const int result = model.ReadXml(prefix.c_str());
    const Texts reports = TakeReports("prefix.xml");
    EXPECT_EQ(result, ResultOf(reports));
    const bool isCut = prefix.size() < file.bytes.rfind("</");
    EXPECT_TRUE(!isCut || !reports.empty()) << "a document that ends early is told of";
    ExpectSound(model);
  });
}

}  // namespace
