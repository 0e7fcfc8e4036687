// The small files of the golden cases, damaged: cut at every byte, or at random, one seed for each file. A read ends,
// reports what it met and leaves a sound model and nothing else. What it has read comes back after a write.
#include <gtest/gtest.h>

#include "platform/sax.h"
#include "support/failing_new.h"
#include "support/golden_files.h"
#include "support/mutator.h"
#include "whole/file_checks.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

constexpr unsigned kMutations = 10000;  // of each form

struct Check {
  const char* name;
  Form form;
  void (*check)(const std::string& bytes);
};

std::vector<Check> Checks() {
  std::vector<Check> checks = {{"OfClearText", Form::kClearText, CheckClearText},
                               {"OfStandardFiles", Form::kClearText, CheckStandard}};
  if (steprt::saxService) checks.push_back({"OfDocuments", Form::kXml, CheckDocument});
  return checks;
}

class DamagedFiles : public testing::TestWithParam<Check> {
 protected:
  // What is made once and stays is made by the first check of all.
  void Expect(const std::string& bytes, const std::string& what) {
    const long blocks = LiveBlocks();
    GetParam().check(bytes);
    EXPECT_EQ(LiveBlocks(), blocks);
    if (HasFailure()) FAIL() << what << ": " << testing::PrintToString(bytes);
  }
};

TEST_P(DamagedFiles, AreReadToTheByteThatIsTheirLast) {
  GetParam().check("");
  for (const GoldenFile& file : GoldenFiles(GetParam().form)) {
    for (std::size_t size = 0; size <= file.bytes.size() && !HasFatalFailure(); ++size) {
      const std::string prefix = file.bytes.substr(0, size);
      Expect(prefix, file.path.string() + " to byte " + std::to_string(size));
      const bool isCut = file.form == Form::kXml && size < file.bytes.rfind("</");
      EXPECT_TRUE(!isCut || !ReadDocument(prefix).reports.empty())
          << "a document that ends early is told of: " << prefix;
    }
  }
}

// Other seeds with each round of
//   steprt_tests --gtest_filter='*DamagedFiles.*' --gtest_shuffle --gtest_random_seed=1 --gtest_repeat=100
TEST_P(DamagedFiles, AreReadToTheirEndAndComeBackHoweverTheyAreDamaged) {
  std::vector<std::string> files;
  for (const GoldenFile& file : GoldenFiles(GetParam().form)) files.push_back(file.bytes);
  GetParam().check(files.front());
  const int round = GTEST_FLAG_GET(shuffle) ? testing::UnitTest::GetInstance()->random_seed() : 0;
  const unsigned first = static_cast<unsigned>(round) * kMutations;
  for (unsigned seed = first; seed < first + kMutations && !HasFatalFailure(); ++seed)
    Expect(Mutated(files, seed), "seed " + std::to_string(seed));
}

INSTANTIATE_TEST_SUITE_P(Forms, DamagedFiles, testing::ValuesIn(Checks()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
