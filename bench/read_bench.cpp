// Reads, against the floor and against one another.
#include "building.h"
#include "fingerprint.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"
#include "timed_read.h"

namespace bench {
namespace {

constexpr int kStrideRecords = 500'000;  // more do not have a number
constexpr double kWantedRead = 1.2;
constexpr double kWantedShuffled = 1.2;
constexpr double kWantedUnhashed = 1.1;
constexpr double kWantedStandard = 1.05;
constexpr double kWantedStandardShuffled = 1.1;  // each reference to a later record notes its place for reports

bool SamePopulation(const Population& population) {
  BuildingModel model;
  if (model.Read(true, const_cast<char*>(population.path.c_str())) != 0) return false;
  const std::uint64_t read = Fingerprint(model.Inst());
  model.Delete();
  ReadFloor(population.path);
  return read == Fingerprint(model.Inst());
}

// With an order whose numbers a flat vector cannot hold, the floor reads the same records in ascending order.
const Population& FloorFile(const Population& population) {
  if (population.order != Order::kStride && population.order != Order::kSparse) return population;
  return PopulationFile(Order::kAscending, population.records);
}

// None where the floor has numbers that a flat vector holds and the library has none such: the ratio only tells what
// scattered numbers cost.
double Wanted(Order order) {
  if (order == Order::kStride || order == Order::kSparse) return 0;
  return order == Order::kShuffled ? kWantedShuffled : kWantedRead;
}

void ReadAgainstFloor(benchmark::State& state, Order order, int records, Lookup lookup) {
  const Population& population = PopulationFile(order, records);
  const Population& floorFile = FloorFile(population);
  if (!SamePopulation(floorFile)) return Fail(state, "the floor reads another population than the library");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeRead(population, lookup); }, [&] { return TimeReadFloor(floorFile); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, population.bytes}, Wanted(order));
}

// The read without an index, measured against one with it.
void ReadUnhashed(benchmark::State& state, int records) {
  const Population& population = PopulationFile(Order::kAscending, records);
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeRead(population, Lookup::kLinear); },
                  [&] { return TimeRead(population, Lookup::kIndexed); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, population.bytes}, kWantedUnhashed);
}

bool StandardReadsTheSame(const Population& population) {
  BuildingModel told;
  BuildingModel standard;
  if (told.Read(true, const_cast<char*>(population.path.c_str())) != 0) return false;
  if (standard.ReadStandard(population.path.c_str()) != 0) return false;
  return Fingerprint(told.Inst()) == Fingerprint(standard.Inst());
}

// A standard read, measured against the read of the same file in the library's own form.
void ReadStandard(benchmark::State& state, Order order, int records) {
  const Population& population = PopulationFile(order, records);
  if (!StandardReadsTheSame(population)) return Fail(state, "a standard read makes another population");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeStandardRead(population); }, [&] { return TimeRead(population, Lookup::kLinear); });
    state.SetIterationTime(pairs.LastSubject());
  }
  const double wanted = order == Order::kShuffled ? kWantedStandardShuffled : kWantedStandard;
  Report(state, pairs, {records, population.bytes}, wanted);
}

void RegisterStandardRead(Order order, int records) {
  Register("read_standard/" + std::string(OrderName(order)) + "/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { ReadStandard(state, order, records); });
}

void RegisterRead(Order order, int records, Lookup lookup) {
  const char* task = lookup == Lookup::kIndexed ? "read_hashed/" : "read/";
  Register(task + std::string(OrderName(order)) + "/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { ReadAgainstFloor(state, order, records, lookup); });
}

}  // namespace

void RegisterReads(int records) {
  RegisterRead(Order::kAscending, records, Lookup::kLinear);
  RegisterRead(Order::kAscending, records, Lookup::kIndexed);
  RegisterRead(Order::kShuffled, records, Lookup::kLinear);
  RegisterRead(Order::kDescending, records, Lookup::kLinear);
  RegisterRead(Order::kSparse, records, Lookup::kLinear);
  if (records <= kStrideRecords) RegisterRead(Order::kStride, records, Lookup::kLinear);
  if (records == 1'000'000) RegisterRead(Order::kStride, kStrideRecords, Lookup::kLinear);
  Register("read_unhashed_to_hashed/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { ReadUnhashed(state, records); });
  for (const Order order : {Order::kAscending, Order::kShuffled, Order::kDescending}) {
    RegisterStandardRead(order, records);
  }
}

}  // namespace bench
