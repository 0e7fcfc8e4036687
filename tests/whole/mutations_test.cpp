// Files damaged at random, one seed for each: a read ends, reports what it met and leaves a sound model and nothing
// else. What it has read is written, read again and written again as the same bytes.
#include <gtest/gtest.h>

#include "platform/sax.h"
#include "support/failing_new.h"
#include "support/golden_files.h"
#include "support/mutator.h"
#include "whole/file_checks.h"

namespace {

using namespace steprt_test;

constexpr unsigned kMutations = 10000;  // of each form

// Other seeds with each round of
//   steprt_tests --gtest_filter='*Mutations.*' --gtest_shuffle --gtest_random_seed=1 --gtest_repeat=100
void CheckMutations(Form form, void (*check)(const std::string& bytes)) {
  std::vector<std::string> files;
  for (const GoldenFile& file : GoldenFiles(form)) files.push_back(file.bytes);
  check(files.front());  // what is made once and stays is made now
  const int round = GTEST_FLAG_GET(shuffle) ? testing::UnitTest::GetInstance()->random_seed() : 0;
  const unsigned first = static_cast<unsigned>(round) * kMutations;
  for (unsigned seed = first; seed < first + kMutations; ++seed) {
    const std::string bytes = Mutated(files, seed);
    const long blocks = LiveBlocks();
    check(bytes);
    EXPECT_EQ(LiveBlocks(), blocks);
    if (testing::Test::HasFailure()) FAIL() << "seed " << seed << ": " << testing::PrintToString(bytes);
  }
}

struct Check {
  const char* name;
  Form form;
  void (*check)(const std::string& bytes);
};

std::vector<Check> Checks() {
  std::vector<Check> checks = {{"OfClearText", Form::kClearText, CheckClearText}};
  if (steprt::saxService) checks.push_back({"OfDocuments", Form::kXml, CheckDocument});
  return checks;
}

class Mutations : public testing::TestWithParam<Check> {};

TEST_P(Mutations, AreReadToTheirEndAndComeBack) { CheckMutations(GetParam().form, GetParam().check); }

INSTANTIATE_TEST_SUITE_P(Forms, Mutations, testing::ValuesIn(Checks()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
