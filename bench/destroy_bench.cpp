// The end of a model, against deletes of the same objects one by one: along a chain, and out of an array.
#include <vector>

#include "building.h"
#include "fingerprint.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr double kWantedDestruction = 1.15;

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

double TimeChainEnd(const Population& population) {
  BeginTurn();
  STEPheader* first = ReadPlainChain(population);
  return TimeOf([&] { DeleteChain(first); });
}

double TimeArrayEnd(const Population& population) {
  BeginTurn();
  std::vector<STEPheader*> objects;
  for (STEPheader* object = ReadPlainChain(population); object; object = object->next) objects.push_back(object);
  return TimeOf([&] {
    for (STEPheader* object : objects) delete object;
  });
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

void DestroyAgainst(double (*timeFloor)(const Population&), benchmark::State& state, int records) {
  const Population& population = PopulationFile(Order::kAscending, records);
  if (!SameObjects(population)) return Fail(state, "the chain holds other objects than the model");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return TimeModelEnd(population); }, [&] { return timeFloor(population); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, population.bytes}, kWantedDestruction);
}

}  // namespace

void RegisterDestruction(int records) {
  Register("destroy/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { DestroyAgainst(TimeChainEnd, state, records); });
  Register("destroy_to_array/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { DestroyAgainst(TimeArrayEnd, state, records); });
}

}  // namespace bench
