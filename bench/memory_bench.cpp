// What the library takes for itself during a read, beside the client's objects, lists and texts: so much for each
// record, and so much for each reference to a record further on, which is pending until the file has ended.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string_view>
#include <unordered_set>

#include "allocation_log.h"
#include "building.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr double kWantedPerRecord = 48;
constexpr double kWantedPerPending = 24;

// Of the objects of a population, lists and texts included.
std::size_t ClientBytes(const Population& population) {
  BuildingModel model;
  BeginAllocationLog();
  ReadFloor(population.path);
  return EndAllocationLog().lasting;
}

Allocations ReadBytes(const std::string& path) {
  BuildingModel model;
  BeginAllocationLog();
  model.Read(false, const_cast<char*>(path.c_str()));
  return EndAllocationLog();
}

std::string TextOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

constexpr std::string_view kDataStart = "\nDATA;\n";
constexpr std::string_view kDataEnd = "\nENDSEC;\nEND-";

// The same file with its records in the opposite order, so that every reference points forward.
class TurnedFile {
 public:
  explicit TurnedFile(const Population& population) : path_(DataFile("turned.stp")) {
    const std::string text = TextOf(population.path);
    const std::size_t start = text.find(kDataStart) + kDataStart.size();
    const std::size_t end = text.find(kDataEnd) + 1;
    std::ofstream file(path_, std::ios::binary);
    file << text.substr(0, start);
    for (std::size_t last = end; last > start;) {
      const std::size_t first = text.rfind('\n', last - 2) + 1;
      file << std::string_view(text).substr(first, last - first);
      last = first;
    }
    file << text.substr(end);
  }
  ~TurnedFile() { std::remove(path_.c_str()); }
  TurnedFile(const TurnedFile&) = delete;
  TurnedFile& operator=(const TurnedFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  const std::string path_;
};

// How many references point to a record further on. The texts of a population hold no `#`.
std::size_t CountPending(const std::string& path) {
  const std::string text = TextOf(path);
  std::unordered_set<int> passed;
  std::size_t pending = 0;
  for (std::size_t at = text.find(kDataStart); (at = text.find('#', at)) != std::string::npos; ++at) {
    const int number = std::atoi(text.c_str() + at + 1);
    if (text[at - 1] == '\n')
      passed.insert(number);
    else if (passed.count(number) == 0)
      ++pending;
  }
  return pending;
}

// A population whose numbers no flat vector can hold has the objects of the ascending one.
Order ClientOrder(Order order) { return order == Order::kStride ? Order::kAscending : order; }

// What a file's read takes. `client` is a population of the same objects.
Allocations MeasureFile(benchmark::State& state, const std::string& path, const Population& client) {
  Allocations allocations = {};
  for (auto _ : state) {
    allocations = ReadBytes(path);
    state.SetIterationTime(1e-9);  // the time of a read that is logged says nothing
  }
  const std::size_t clientBytes = ClientBytes(client);
  if (allocations.lasting != clientBytes) Fail(state, "the library holds memory when the read has ended");
  const double records = client.records;
  const double pending = static_cast<double>(CountPending(path)) / records;
  state.counters["bytes_per_record"] = static_cast<double>(allocations.passing) / records;
  state.counters["client_bytes_per_record"] = static_cast<double>(clientBytes) / records;
  state.counters["pending_per_record"] = pending;
  state.counters["wanted"] = kWantedPerRecord + kWantedPerPending * pending;
  return allocations;
}

void MeasureMemory(benchmark::State& state, Order order, int records) {
  MeasureFile(state, PopulationFile(order, records).path, PopulationFile(ClientOrder(order), records));
}

// What the references take is what the same records take less where none is pending.
void MeasurePending(benchmark::State& state, int records) {
  const Population& ascending = PopulationFile(Order::kAscending, records);
  const TurnedFile turned(ascending);
  const std::size_t bytes = MeasureFile(state, turned.Path(), ascending).passing;
  const auto extra = static_cast<double>(bytes) - static_cast<double>(ReadBytes(ascending.path).passing);
  state.counters["bytes_per_pending"] = extra / static_cast<double>(CountPending(turned.Path()));
}

}  // namespace

void RegisterMemory(int records) {
  if (records > 1'000'000) return;  // the log itself would be too large
  for (const Order order : {Order::kAscending, Order::kShuffled, Order::kDescending, Order::kSparse, Order::kStride}) {
    if (order == Order::kStride && records > 500'000) continue;
    Register("read_memory/" + std::string(OrderName(order)) + "/" + SizeName(records), 1,
             [=](benchmark::State& state) { MeasureMemory(state, order, records); });
  }
  Register("read_memory/forward/" + SizeName(records), 1,
           [=](benchmark::State& state) { MeasurePending(state, records); });
}

}  // namespace bench
