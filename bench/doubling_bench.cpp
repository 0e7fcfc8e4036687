// What a file of twice the items costs, for each shape, from one size to three doublings of it; and what it costs the
// floor.
#include <array>
#include <cstdio>

#include "pairs.h"
#include "population.h"
#include "shape_client.h"
#include "shapes.h"
#include "tasks.h"

namespace bench {
namespace {

constexpr int kTurns = 5;
constexpr int kDoublings = 3;
constexpr double kWantedDoubling = 2.2;

// The files of a shape, which go with it.
class ShapeFiles {
 public:
  ShapeFiles(const Shape& shape, ShapeFloor floor) : shape_(shape), floor_(floor) {
    for (int i = 0; i <= kDoublings; ++i) areWritten_ = WriteShape(shape, Items(i), Path(i)) && areWritten_;
  }
  ~ShapeFiles() {
    for (int i = 0; i <= kDoublings; ++i) std::remove(Path(i).c_str());
  }
  ShapeFiles(const ShapeFiles&) = delete;
  ShapeFiles& operator=(const ShapeFiles&) = delete;

  int Items(int doublings) const { return shape_.measured << doublings; }

  double TimeRead(int doublings) {
    BeginTurn();
    if (floor_) return TimeOf([&] { isSound_ = floor_(Path(doublings)) && isSound_; });
    ShapeModel model;
    const double seconds = TimeOf([&] { model.Read(shape_.form, Path(doublings)); });
    isSound_ = isSound_ && model.IsAsExpected(shape_, Items(doublings));
    return seconds;
  }
  bool IsSound() const { return areWritten_ && isSound_; }

 private:
  std::string Path(int doublings) const {
    return DataFile(std::string("shape_") + shape_.name + "_" + std::to_string(doublings) + ".stp");
  }

  const Shape& shape_;
  const ShapeFloor floor_;  // in place of the library, or null
  bool areWritten_ = true;
  bool isSound_ = true;
};

void Doubling(benchmark::State& state, const Shape& shape, ShapeFloor floor) {
  ShapeFiles files(shape, floor);
  std::array<Pairs, kDoublings> doublings;
  for (auto _ : state) {
    for (int i = 0; i < kDoublings; ++i) {
      doublings[static_cast<std::size_t>(i)].Measure([&] { return files.TimeRead(i + 1); },
                                                     [&] { return files.TimeRead(i); });
    }
    state.SetIterationTime(doublings.back().LastSubject());
  }
  if (!files.IsSound()) return Fail(state, "the file does not read as it should");
  for (int i = 0; i < kDoublings; ++i) {
    state.counters["ratio_to/" + SizeName(files.Items(i + 1))] = doublings[static_cast<std::size_t>(i)].Ratio();
  }
  state.counters["ns_per_item"] = doublings.back().SubjectSeconds() * 1e9 / files.Items(kDoublings);
  state.counters["wanted"] = kWantedDoubling;
}

}  // namespace

void RegisterDoublings(std::span<const Shape> shapes, ShapeFloor floor) {
  for (const Shape& shape : shapes) {
    Register(std::string("doubling/") + shape.name, kTurns,
             [&shape](benchmark::State& state) { Doubling(state, shape, nullptr); });
    if (!floor) continue;
    Register(std::string("doubling_floor/") + shape.name, kTurns,
             [&shape, floor](benchmark::State& state) { Doubling(state, shape, floor); });
  }
}

}  // namespace bench
