// Two things measured against each other. The machine's speed changes while a benchmark runs, so the two take turns
// and each turn has one ratio; what is told is the median of the ratios.
#ifndef STEPRT_BENCH_PAIRS_H
#define STEPRT_BENCH_PAIRS_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace bench {

// Seconds that this thread has used the processor for, in the system's calls as well. What other programs do meanwhile
// counts as little as it can.
double ThreadSeconds();

// The time that the action takes.
template <typename Action>
double TimeOf(Action action) {
  const double start = ThreadSeconds();
  action();
  return ThreadSeconds() - start;
}

// What a turn starts with.
enum class Memory {
  kKept,  // memory that the process has had before, so that no turn pays for the system's pages: what they cost is much
          // on some machines, is the same for both sides, and hides the difference
  kFresh  // none, as in a program that reads one file and ends
};
void SetMemory(Memory memory);

// Goes in front of each turn: the allocator finds what is free in one piece, in order.
void BeginTurn();

class Pairs {
 public:
  // One turn: two functions that give seconds. They swap places from turn to turn.
  template <typename Subject, typename Floor>
  void Measure(Subject subject, Floor floor) {
    const bool floorFirst = subject_.size() % 2 == 1;
    const double before = floorFirst ? floor() : 0;
    subject_.push_back(subject());
    floor_.push_back(floorFirst ? before : floor());
  }

  double LastSubject() const { return subject_.back(); }
  double Ratio() const;
  double SubjectSeconds() const;  // the least
  double FloorSeconds() const;    // the least

 private:
  std::vector<double> subject_;
  std::vector<double> floor_;
};

// How many turns a population of this size is worth.
int TurnsFor(int records);

struct Volume {
  int records;
  std::size_t bytes;
};

// Fills in the counters: ns_per_record, floor_ns_per_record, MB_per_s, ratio, and `wanted`, above which the ratio is
// worse than it should be; none for 0.
void Report(benchmark::State& state, const Pairs& pairs, Volume volume, double wanted);

// Ends the benchmark with an error, and the program with a failure.
void Fail(benchmark::State& state, const char* why);
bool HasFailed();

// Registers a benchmark that takes its own time.
template <typename Function>
void Register(const std::string& name, int turns, Function function) {
  benchmark::RegisterBenchmark(name.c_str(), function)
      ->UseManualTime()
      ->Iterations(turns)
      ->Unit(benchmark::kMillisecond);
}

// 10k, 100k, 1M
std::string SizeName(int records);

}  // namespace bench

#endif
