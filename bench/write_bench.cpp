// Writes, against the floor.
#include <cstdio>

#include "building.h"
#include "fingerprint.h"
#include "pairs.h"
#include "population.h"
#include "read_floor.h"
#include "tasks.h"
#include "write_floor.h"

namespace bench {
namespace {

constexpr double kWantedWrite = 1.15;

class WriteTask {
 public:
  explicit WriteTask(const Population& population)
      : path_(DataFile("written.stp")), floorPath_(DataFile("written_floor.stp")) {
    ReadFloor(population.path);
  }
  ~WriteTask() {
    std::remove(path_.c_str());
    std::remove(floorPath_.c_str());
  }
  WriteTask(const WriteTask&) = delete;
  WriteTask& operator=(const WriteTask&) = delete;

  double TimeWrite() {
    return TimeOf([&] { written_ = model_.Write(const_cast<char*>(path_.c_str()), ""); });
  }
  double TimeFloor() {
    return TimeOf([&] { WriteFloor(floorPath_, model_.Inst()); });
  }
  bool IsSameFile(int records) {
    TimeWrite();
    TimeFloor();
    return written_ == records && FileFingerprint(path_) == FileFingerprint(floorPath_);
  }
  std::size_t Bytes() const {
    std::FILE* file = std::fopen(path_.c_str(), "rb");
    std::fseek(file, 0, SEEK_END);
    const long bytes = std::ftell(file);
    std::fclose(file);
    return static_cast<std::size_t>(bytes);
  }

 private:
  BuildingModel model_;
  const std::string path_;
  const std::string floorPath_;
  int written_ = 0;
};

void WriteAgainstFloor(benchmark::State& state, int records) {
  WriteTask task(PopulationFile(Order::kAscending, records));
  if (!task.IsSameFile(records)) return Fail(state, "the floor writes other bytes than the library");
  Pairs pairs;
  for (auto _ : state) {
    pairs.Measure([&] { return task.TimeWrite(); }, [&] { return task.TimeFloor(); });
    state.SetIterationTime(pairs.LastSubject());
  }
  Report(state, pairs, {records, task.Bytes()}, kWantedWrite);
}

}  // namespace

void RegisterWrites(int records) {
  Register("write/" + SizeName(records), TurnsFor(records),
           [=](benchmark::State& state) { WriteAgainstFloor(state, records); });
}

}  // namespace bench
