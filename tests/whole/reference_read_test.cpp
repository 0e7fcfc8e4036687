// Reads through the library give the instances and the reports of a reader that goes a character at a time.
#include <gtest/gtest.h>

#include "support/faulty_calls.h"
#include "whole/reference/generator.h"
#include "whole/reference/reader.h"

namespace {

using namespace steprt_test;

constexpr unsigned kFiles = 4000;

Outcome ReadByLibrary(const ReadCase& read) {
  const FaultyCalls calls({.atMost = [&] { return read.atMost; }});
  return ReadBytes(read.bytes, read.check);
}

// The same files each time; others with each round of
//   steprt_tests --gtest_filter='ReferenceRead.*' --gtest_shuffle --gtest_random_seed=1 --gtest_repeat=100
TEST(ReferenceRead, GeneratedFilesAreReadAlike) {
  const int round = GTEST_FLAG_GET(shuffle) ? testing::UnitTest::GetInstance()->random_seed() : 0;
  const unsigned first = static_cast<unsigned>(round) * kFiles;
  std::size_t instances = 0;
  std::size_t reports = 0;
  for (unsigned seed = first; seed < first + kFiles; ++seed) {
    const ReadCase read = MakeReadCase(seed);
    const Outcome expected = ReadByReference(read);
    const Outcome outcome = ReadByLibrary(read);
    const std::string what = "seed " + std::to_string(seed) + ": " + testing::PrintToString(read.bytes);
    ASSERT_EQ(outcome.reports, expected.reports) << what;
    ASSERT_EQ(outcome.population, expected.population) << what;
    ASSERT_EQ(outcome.result, expected.result) << what;
    instances += expected.population.size();
    reports += expected.reports.size();
  }
  EXPECT_GT(instances, 2 * kFiles) << "too little is read to say much";
  EXPECT_GT(reports, 2 * kFiles);
}

}  // namespace
