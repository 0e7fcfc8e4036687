// Reads and writes through classes that describe their attributes, against the same through functions by hand.
#include <cstdio>

#include "building.h"
#include "described.h"
#include "fingerprint.h"
#include "pairs.h"
#include "population.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr double kWantedDescribed = 1.1;

// Not inlined, so that a profile counts both clients apart.
template <typename Model>
[[gnu::noinline]] int Read(Model& model, const Population& population) {
  return model.STEPmodel::Read(true, const_cast<char*>(population.path.c_str()));
}

template <typename Model>
[[gnu::noinline]] int Write(Model& model, const std::string& path) {
  return model.STEPmodel::Write(const_cast<char*>(path.c_str()), "");
}

// Both models with the population in them, and a file for each.
class BothClients {
 public:
  explicit BothClients(const Population& population) {
    isRead_ = Read(building_, population) == 0 && Read(described_, population) == 0;
  }
  ~BothClients() {
    std::remove(buildingPath_.c_str());
    std::remove(describedPath_.c_str());
  }
  BothClients(const BothClients&) = delete;
  BothClients& operator=(const BothClients&) = delete;

  bool HaveReadTheSame() {
    return isRead_ && BuildingFingerprint(building_.Inst()) == DescribedFingerprint(described_.Inst());
  }
  bool WriteTheSame(int records) {
    const bool areWhole = Write(building_, buildingPath_) == records && Write(described_, describedPath_) == records;
    return areWhole && FileFingerprint(buildingPath_) == FileFingerprint(describedPath_);
  }
  double TimeBuildingWrite() {
    return TimeOf([&] { Write(building_, buildingPath_); });
  }
  double TimeDescribedWrite() {
    return TimeOf([&] { Write(described_, describedPath_); });
  }

 private:
  BuildingModel building_;
  DescribedModel described_;
  const std::string buildingPath_ = DataFile("written_by_hand.stp");
  const std::string describedPath_ = DataFile("written_described.stp");
  bool isRead_ = false;
};

template <typename Model>
double TimeReadOf(const Population& population) {
  BeginTurn();
  Model model;
  return TimeOf([&] { Read(model, population); });
}

void ReadDescribed(benchmark::State& state, int records) {
  const Population& population = PopulationFile(Order::kAscending, records);
  if (!BothClients(population).HaveReadTheSame()) return Fail(state, "described classes read another population");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeReadOf<DescribedModel>(population); },
                  [&] { return TimeReadOf<BuildingModel>(population); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, population.bytes}, kWantedDescribed);
}

void WriteDescribed(benchmark::State& state, int records) {
  const Population& population = PopulationFile(Order::kAscending, records);
  BothClients clients(population);
  if (!clients.WriteTheSame(records)) return Fail(state, "described classes write other bytes");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return clients.TimeDescribedWrite(); }, [&] { return clients.TimeBuildingWrite(); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, population.bytes}, kWantedDescribed);
}

}  // namespace

void RegisterDescribed(int records) {
  const std::string size = SizeName(records);
  Register("described_read/" + size, TurnsFor(records), [=](benchmark::State& s) { ReadDescribed(s, records); });
  Register("described_write/" + size, TurnsFor(records), [=](benchmark::State& s) { WriteDescribed(s, records); });
}

}  // namespace bench
