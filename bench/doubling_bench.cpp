// What a file of twice the items costs, for each shape, from one size to three doublings of it; and what it costs Expat
// alone where the file is a document.
#include <array>
#include <cstdio>
#include <filesystem>

#include "pairs.h"
#include "population.h"
#include "shape_client.h"
#include "shapes.h"
#include "tasks.h"
#include "xml_floor.h"

namespace bench {
namespace {

constexpr int kTurns = 5;
constexpr int kDoublings = 3;
constexpr double kWantedDoubling = 2.2;

// The files of a shape, which go with it.
class ShapeFiles {
 public:
  explicit ShapeFiles(const Shape& shape) : shape_(shape) {
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
    ShapeModel model;
    const double seconds = TimeOf([&] { model.Read(shape_.form, Path(doublings)); });
    isSound_ = isSound_ && model.IsAsExpected(shape_, Items(doublings));
    return seconds;
  }
  double TimeFloor(int doublings) {
    BeginTurn();
    const auto size = static_cast<int>(std::filesystem::file_size(Path(doublings)));
    return TimeOf([&] { isSound_ = ParseXmlFloor(Path(doublings), size) > 0 && isSound_; });
  }
  bool IsSound() const { return areWritten_ && isSound_; }

 private:
  std::string Path(int doublings) const {
    return DataFile(std::string("shape_") + shape_.name + "_" + std::to_string(doublings) + ".stp");
  }

  const Shape& shape_;
  bool areWritten_ = true;
  bool isSound_ = true;
};

using Timer = double (ShapeFiles::*)(int doublings);

void Doubling(benchmark::State& state, const Shape& shape, Timer timer) {
  ShapeFiles files(shape);
  std::array<Pairs, kDoublings> doublings;
  for (auto _ : state) {
    for (int i = 0; i < kDoublings; ++i) {
      doublings[static_cast<std::size_t>(i)].Measure([&] { return (files.*timer)(i + 1); },
                                                     [&] { return (files.*timer)(i); });
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

void RegisterDoublings(std::span<const Shape> shapes) {
  for (const Shape& shape : shapes) {
    Register(std::string("doubling/") + shape.name, kTurns,
             [&shape](benchmark::State& state) { Doubling(state, shape, &ShapeFiles::TimeRead); });
    if (shape.form != Form::kXml) continue;
    Register(std::string("doubling_floor/") + shape.name, kTurns,
             [&shape](benchmark::State& state) { Doubling(state, shape, &ShapeFiles::TimeFloor); });
  }
}

}  // namespace bench
