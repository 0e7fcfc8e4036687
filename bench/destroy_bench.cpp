// The end of a model, against the end of the same objects on a plain chain, deleted one by one.
#include "building.h"
#include "fingerprint.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr double kWantedDestruction = 1.3;

double TimeModelEnd(const Population& population) {
  BeginTurn();
  BuildingModel model;
  ReadFloor(population.path);
  return TimeOf([&] { model.Delete(); });
}

// Objects of no model.
STEPheader* ReadPlainChain(const Population& population) {
  CurrentModel(nullptr);
  return ReadFloor(population.path);
}

void DeleteChain(STEPheader* first) {
  while (first) {
    STEPheader* next = first->next;
    delete first;
    first = next;
  }
}

double TimePlainEnd(const Population& population) {
  BeginTurn();
  STEPheader* first = ReadPlainChain(population);
  return TimeOf([&] { DeleteChain(first); });
}

bool SameObjects(const Population& population) {
  BuildingModel model;
  ReadFloor(population.path);
  const std::uint64_t inModel = Fingerprint(model.Inst());
  STEPheader* first = ReadPlainChain(population);
  const bool isSame = Fingerprint(first) == inModel;
  DeleteChain(first);
  return isSame;
}

void DestroyAgainstPlain(benchmark::State& state, int records) {
  const Population& population = PopulationFile(Order::kAscending, records);
  if (!SameObjects(population)) return Fail(state, "the chain holds other objects than the model");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeModelEnd(population); }, [&] { return TimePlainEnd(population); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, population.bytes}, kWantedDestruction);
}

}  // namespace

void RegisterDestruction(int records) {
  Register("destroy/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { DestroyAgainstPlain(state, records); });
}

}  // namespace bench
