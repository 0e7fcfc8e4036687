// Whether a record costs more in a large population. The floor's growth is beside the library's: what the machine's
// caches cost shows in both.
#include "building.h"
#include "pairs.h"
#include "population.h"
#include "tasks.h"
#include "timed_read.h"

namespace bench {
namespace {

constexpr int kBase = 100'000;
constexpr double kWantedGrowth = 1.1;

// The mean of enough reads to take as long as one of `records`, for a record.
template <typename TimeOne>
double SecondsPerRecord(int records, int repeats, TimeOne timeOne) {
  double seconds = 0;
  for (int i = 0; i < repeats; ++i) seconds += timeOne();
  return seconds / repeats / records;
}

void Growth(benchmark::State& state, int records) {
  const Population& base = PopulationFile(Order::kAscending, kBase);
  const Population& large = PopulationFile(Order::kAscending, records);
  const int repeats = records / kBase;
  Pairs library;
  Pairs floor;
  for (auto _ : state) {
    library.Measure([&] { return SecondsPerRecord(records, 1, [&] { return TimeRead(large, Lookup::kLinear); }); },
                    [&] { return SecondsPerRecord(kBase, repeats, [&] { return TimeRead(base, Lookup::kLinear); }); });
    floor.Measure([&] { return SecondsPerRecord(records, 1, [&] { return TimeReadFloor(large); }); },
                  [&] { return SecondsPerRecord(kBase, repeats, [&] { return TimeReadFloor(base); }); });
    state.SetIterationTime(library.LastSubject() * records);
  }
  state.counters["ns_per_record"] = library.SubjectSeconds() * 1e9;
  state.counters["base_ns_per_record"] = library.FloorSeconds() * 1e9;
  state.counters["ratio"] = library.Ratio();
  state.counters["floor_ratio"] = floor.Ratio();
  state.counters["wanted"] = kWantedGrowth;
}

}  // namespace

void RegisterGrowth(int records) {
  if (records <= kBase) return;
  Register("read_growth_100k_to/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { Growth(state, records); });
}

}  // namespace bench
