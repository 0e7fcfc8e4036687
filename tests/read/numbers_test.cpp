// Instance numbers of every sort: all are told apart, and neither time nor memory suffers from the worst of them.
#include <gtest/gtest.h>

#include <chrono>

#include "support/failing_new.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

struct Numbering {
  const char* name;
  int (*number)(int i);
};
const Numbering kNumberings[] = {
    {"ascending", [](int i) { return i + 1; }},
    {"descending", [](int i) { return 400000 - i; }},
    {"shuffled", [](int i) { return static_cast<int>((i + 1) * 7919LL % 400009); }},
    {"in steps of 4096", [](int i) { return (i + 1) * 4096; }},
    {"scattered", [](int i) { return static_cast<int>((i + 1) * 1000003LL % 637558973); }},
};

// Records of PROBE, which makes no instance; each refers to the one before it.
std::string File(const Numbering& numbering, int count) {
  std::string data;
  for (int i = 0; i < count; ++i) {
    data += "#" + std::to_string(numbering.number(i)) + "=PROBE(#" + std::to_string(numbering.number(i ? i - 1 : 0)) +
            ");\n";
  }
  return MakeFile("numbers.stp", InFrame(data));
}

struct Cost {
  double seconds;
  std::size_t bytes;  // at most at one time
};

// Reads a file whose read function gives one and the same instance, so that all memory taken is the library's.
Cost CostOfRead(const Numbering& numbering, int count) {
  ProjModel model;
  auto* object = new Entity(kWall);
  int known = 0;
  SetProbe({"", -1, [&](STEPtransfer* t) {
              STEPheader* before = nullptr;
              xrSTEPref(t, "A", &before, kProduct, false);
              known += before == object;
              return object;
            }});
  std::string path = File(numbering, count);
  const std::size_t bytesBefore = LiveBytes();
  ResetPeak();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(STEPread(path.data(), ProjSchema(), false), 1) << "the first record refers to itself";
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  const std::size_t bytes = PeakBytes() - bytesBefore;
  TakeReports(path);
  EXPECT_EQ(LiveBytes(), bytesBefore) << numbering.name << ": something stays";
  EXPECT_EQ(known, count - 1) << numbering.name;
  SetProbe({});
  return {time.count(), bytes};
}

TEST(Numbers, ARecordCostsFortyEightBytesAtMostWhateverItsNumber) {
  constexpr int kCount = 125500;          // just behind a growth of the map from numbers to places, when most is held
  constexpr std::size_t kFixed = 300000;  // the transfer, the file's block, the first pages
  for (const Numbering& each : kNumberings) {
    EXPECT_LE(CostOfRead(each, kCount).bytes, kFixed + std::size_t{kCount} * 48) << each.name;
  }
}

// A walk of a bucket would take a minute for the numbers in steps of 4096.
TEST(Numbers, TimeGrowsWithTheFileAndNotFaster) {
  constexpr int kFew = 5000;
  constexpr int kMany = 40 * kFew;
  for (const Numbering& each : kNumberings) {
    const double few = CostOfRead(each, kFew).seconds;
    EXPECT_LT(CostOfRead(each, kMany).seconds, 40 * 12 * few + 2.0) << each.name;
  }
}

TEST(Numbers, OfAnySizeAreToldApart) {
  std::string data;
  Texts expected;
  for (const long long number : {1LL, 4097LL, -4095LL, 0LL, 256LL, 255LL, 65536LL, 2147483647LL, -2147483648LL}) {
    const std::string text = std::to_string(number);
    data +=
        "#" + text + "=PERSON(" + text + ");#" + std::to_string(7000000 + expected.size()) + "=DOOR(#" + text + ");";
    expected.push_back("PERSON(" + text + ")");
    expected.push_back("DOOR(@" + std::to_string(expected.size()) + ")");
  }
  const Outcome outcome = ReadData(data);
  EXPECT_EQ(outcome.population, expected);
  EXPECT_EQ(outcome.reports, Texts(9, "(1) [DOOR]Reference to wrong object type ''"));
}

}  // namespace
