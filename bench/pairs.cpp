#include "pairs.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <limits>

namespace bench {
namespace {

bool isFresh = false;
bool hasFailed = false;

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

}  // namespace

double ThreadSeconds() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void SetMemory(Memory memory) {
  isFresh = memory == Memory::kFresh;
  if (isFresh) return;
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
}

// To take and give back a large block makes the allocator join what is free.
void BeginTurn() {
  constexpr std::size_t kLarge = 1 << 20;
  void* volatile block = std::malloc(kLarge);
  std::free(block);
  if (isFresh) malloc_trim(0);
}

double Pairs::Ratio() const {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < subject_.size(); ++i) ratios.push_back(subject_[i] / floor_[i]);
  return Median(ratios);
}

double Pairs::SubjectSeconds() const { return *std::min_element(subject_.begin(), subject_.end()); }

double Pairs::FloorSeconds() const { return *std::min_element(floor_.begin(), floor_.end()); }

int TurnsFor(int records) {
  if (records <= 10'000) return 60;
  if (records <= 100'000) return 20;
  return records <= 1'000'000 ? 8 : 5;
}

void Report(benchmark::State& state, const Pairs& pairs, Volume volume, double wanted) {
  state.counters["ns_per_record"] = pairs.SubjectSeconds() * 1e9 / volume.records;
  state.counters["floor_ns_per_record"] = pairs.FloorSeconds() * 1e9 / volume.records;
  state.counters["MB_per_s"] = static_cast<double>(volume.bytes) * 1e-6 / pairs.SubjectSeconds();
  state.counters["ratio"] = pairs.Ratio();
  if (wanted > 0) state.counters["wanted"] = wanted;
}

void Fail(benchmark::State& state, const char* why) {
  hasFailed = true;
  state.SkipWithError(why);
}

bool HasFailed() { return hasFailed; }

std::string SizeName(int records) {
  if (records % 1'000'000 == 0) return std::to_string(records / 1'000'000) + "M";
  return std::to_string(records / 1'000) + "k";
}

}  // namespace bench
