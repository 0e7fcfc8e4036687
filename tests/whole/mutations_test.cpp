// Files damaged by chance, a seed for each: the read ends, tells what it met, leaves a sound model and nothing else,
// and what it has read is written and read again, and written again as the same bytes.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/sax.h"
#include "support/failing_new.h"
#include "support/faulty_calls.h"
#include "support/golden_files.h"
#include "support/mutator.h"
#include "support/soundness.h"
#include "support/tame.h"
#include "whole/reference/reader.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

constexpr unsigned kMutations = 10000;  // of each form

// What may be told of a file that the library wrote: a reference to the wrong type stays one, and a text of the very
// length that is told of stays as long.
void ExpectTameReports(const Texts& reports) {
  for (const std::string& report : reports) {
    const bool isExpected = report.find("]Reference to wrong object type ''") != std::string::npos ||
                            report.find("]Too long element, truncated") != std::string::npos;
    EXPECT_TRUE(isExpected) << report;
  }
}

std::string Write(ProjModel& model, Form form, const Texts& population) {
  std::string path = TempPath("again.stp");
  std::filesystem::remove(path);  // much faster than to empty it
  const int written = form == Form::kXml ? model.WriteXml(path.data(), "") : model.Write(path.data(), "");
  EXPECT_EQ(written, static_cast<int>(population.size()));
  ExpectSound(model);
  return path;
}

void ExpectComesBack(ProjModel& model, Form form) {
  Tame(model, form);
  const Texts population = Population(model);
  const std::string path = Write(model, form, population);
  const std::string bytes = MaskedBytesOf(path);
  ProjModel back;
  back.Name(path.c_str());
  if (population.empty() && form == Form::kClearText) return;  // it would be read as a document
  const int result = form == Form::kXml ? back.ReadXml(nullptr) : back.Read(true, nullptr);
  const Texts reports = TakeReports(path);
  EXPECT_EQ(result, ResultOf(reports));
  ExpectTameReports(reports);
  EXPECT_EQ(Population(back), population);
  ExpectSound(back);
  if (bytes.size() % 4 != 0) return;  // files take their time
  EXPECT_EQ(MaskedBytesOf(Write(back, form, population)), bytes);
}

// The model's read and that of the reference reader agree; where nothing has come of it, what follows is a document's.
void CheckClearText(const std::string& bytes) {
  Outcome expected = ReadByReference({.bytes = bytes});
  EXPECT_EQ(expected.result, ResultOf(expected.reports));
  if (expected.population.empty()) {
    const Outcome document = ReadDocumentFile(bytes);
    expected.result = document.result;
    expected.reports.insert(expected.reports.end(), document.reports.begin(), document.reports.end());
    expected.population = document.population;
  }
  ProjModel other;
  ProjModel model;
  CurrentModel(&other);
  std::string path = MakeFile("read.xml", bytes);
  const int result = model.Read(false, path.data());
  EXPECT_EQ((Outcome{result, TakeReports(path), Population(model)}), expected);
  EXPECT_EQ(CurrentModel(), &other);
  EXPECT_TRUE(other.IsEmpty());
  ExpectSound(model);
  ExpectComesBack(model, Form::kClearText);
}

// A document in memory and the same from a file in small pieces give the same.
void CheckDocument(const std::string& bytes) {
  const std::string document = bytes.substr(0, bytes.find('\0'));
  ProjModel other;
  ProjModel model;
  CurrentModel(&other);
  model.Name("memory.xml");
  const int result = model.ReadXml(document.c_str());
  const Outcome outcome = {result, TakeReports("memory.xml"), Population(model)};
  EXPECT_EQ(outcome.result, ResultOf(outcome.reports));
  EXPECT_EQ(CurrentModel(), &other);
  EXPECT_TRUE(other.IsEmpty());
  ExpectSound(model);
  if (document.size() % 4 == 0) {
    const FaultyCalls calls({.atMost = [] { return 50; }});
    EXPECT_EQ(ReadDocumentFile(document), outcome);
  }
  ExpectComesBack(model, Form::kXml);
}

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
