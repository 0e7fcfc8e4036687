// Instance numbers of every sort: neither time nor memory suffers from the worst of them.
#include <gtest/gtest.h>

#include <chrono>

#include "support/failing_new.h"
#include "support/numberings.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

struct Cost {
  double seconds;
  std::size_t bytes;  // at most at one time
};

// Reads records of PROBE, each of which refers to the one before it, with a function that returns one and the same
// instance, so that all memory taken is the library's.
Cost CostOfRead(const Numbering& numbering, std::uint32_t count) {
  const auto number = [&](std::uint32_t i) { return "#" + std::to_string(static_cast<int>(numbering.number(i))); };
  std::string data;
  for (std::uint32_t i = 0; i < count; ++i) data += number(i) + "=PROBE(" + number(i ? i - 1 : 0) + ");\n";
  std::string path = MakeFile("numbers.stp", InFrame(data));
  ProjModel model;
  auto* object = new Entity(kWall);
  std::uint32_t known = 0;
  SetProbe({"", -1, [&](STEPtransfer* t) {
              STEPheader* before = nullptr;
              xrSTEPref(t, "A", &before, kProduct, false);
              known += before == object;
              return object;
            }});
  const std::size_t bytesBefore = LiveBytes();
  ResetPeak();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(STEPread(path.data(), ProjSchema(), false), 1) << "the first record refers to itself";
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  const std::size_t bytes = PeakBytes() - bytesBefore;
  TakeReports(path);
  EXPECT_EQ(LiveBytes(), bytesBefore) << numbering.name << ": something stays";
  EXPECT_EQ(known, count - 1) << numbering.name;
  return {time.count(), bytes};
}

// A walk of a bucket would take a minute for the numbers in steps of 4096.
TEST(Numbers, ARecordCostsFortyEightBytesAtMostAndTimeGrowsWithTheFileAndNotFaster) {
  constexpr std::uint32_t kFew = 5000;
  constexpr std::uint32_t kMany = 125500;  // just after a growth of the map from numbers to places, when most is held
  constexpr std::size_t kFixed = 300000;   // the transfer, the file's block, the first pages
  for (const Numbering& each : kNumberings) {
    const double few = CostOfRead(each, kFew).seconds;
    const Cost many = CostOfRead(each, kMany);
    EXPECT_LT(many.seconds, kMany / kFew * 12 * few + 2.0) << each.name;
    EXPECT_LE(many.bytes, kFixed + std::size_t{kMany} * 48) << each.name;
  }
}

}  // namespace
