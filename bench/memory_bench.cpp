// What the library takes for itself during a read, beside the client's objects, lists and texts.
#include "allocation_log.h"
#include "building.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr double kWantedBytes = 48;

// Of the objects of a population, lists and texts included.
std::size_t ClientBytes(const Population& population) {
  BuildingModel model;
  BeginAllocationLog();
  ReadFloor(population.path);
  return EndAllocationLog().lasting;
}

Allocations ReadBytes(const Population& population) {
  BuildingModel model;
  BeginAllocationLog();
  model.Read(false, const_cast<char*>(population.path.c_str()));
  return EndAllocationLog();
}

// A population whose numbers no flat vector can hold has the objects of the ascending one.
Order ClientOrder(Order order) { return order == Order::kStride ? Order::kAscending : order; }

void MeasureMemory(benchmark::State& state, Order order, int records) {
  const Population& population = PopulationFile(order, records);
  Allocations allocations = {};
  for (auto _ : state) {
    allocations = ReadBytes(population);
    state.SetIterationTime(1e-9);  // the time of a read that is logged says nothing
  }
  const std::size_t client = ClientBytes(PopulationFile(ClientOrder(order), records));
  if (allocations.lasting != client) Fail(state, "the library holds memory when the read has ended");
  state.counters["bytes_per_record"] = static_cast<double>(allocations.passing) / records;
  state.counters["client_bytes_per_record"] = static_cast<double>(client) / records;
  state.counters["wanted"] = kWantedBytes;
}

}  // namespace

void RegisterMemory(int records) {
  if (records > 1'000'000) return;  // the log itself would be too large
  for (const Order order : {Order::kAscending, Order::kShuffled, Order::kDescending, Order::kSparse, Order::kStride}) {
    if (order == Order::kStride && records > 500'000) continue;
    Register("read_memory/" + std::string(OrderName(order)) + "/" + SizeName(records), 1,
             [=](benchmark::State& state) { MeasureMemory(state, order, records); });
  }
}

}  // namespace bench
