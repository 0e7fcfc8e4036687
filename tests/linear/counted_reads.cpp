// counted_reads FOLDER [SHAPE] - reads each shape of bench/shapes.h, or one of them, at its size and at twice that.
// Under callgrind, started with --collect-atstart=no, each read becomes a part of its own, named SHAPE/ITEMS. Prints
// those names; exit 1 where a file does not read as it should.
//
// The shape `square`, read when it is asked for only, costs the square of its items: with it, the check must fail.
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstring>

#include "shape_client.h"
#include "shapes.h"

namespace {

using bench::Shape;

void PutSquare(std::string& file, int items) {
  file += "#1=NODE($);\n";
  file.append(static_cast<std::size_t>(items) * static_cast<std::size_t>(items), ';');
}

constexpr Shape kSquare = {"square", bench::Form::kClearText, 0, 400, {0, 1}, {0, 0}, PutSquare};

bool CountRead(const Shape& shape, int items, const std::string& path) {
  if (!WriteShape(shape, items, path)) return false;
  const std::string name = std::string(shape.name) + '/' + std::to_string(items);
  bench::ShapeModel model;
  CALLGRIND_TOGGLE_COLLECT;
  model.Read(shape.form, path);
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(name.c_str());
  std::remove(path.c_str());
  std::puts(name.c_str());
  return model.IsAsExpected(shape, items);
}

// A list of 2,000 reals with as many digits on either side of the point.
void PutDigits(std::string& file, int digits) {
  const std::string number(static_cast<std::size_t>(digits), '7');
  file += "#1=NUMBERS((1";
  for (int i = 0; i < 2'000; ++i) file += "," + number + "." + number;
  file += "));\n";
}

// Digits go eight at a time, so that seven cost what one costs.
constexpr Shape kDigits = {"digits", bench::Form::kClearText, 0, 1, {0, 1}, {0, 0}, PutDigits};
constexpr int kMostDigits = 7;

bool CountShape(const Shape& shape, const std::string& folder, int larger) {
  const std::string path = folder + "/shape.stp";
  // Once without a count, so that what is made at the first use of the library is not in the smaller one.
  bench::ShapeModel model;
  if (!WriteShape(shape, 1, path)) return false;
  model.Read(shape.form, path);
  if (CountRead(shape, shape.counted, path) && CountRead(shape, larger, path)) return true;
  std::fprintf(stderr, "%s does not read as it should\n", shape.name);
  return false;
}

bool CountShapes(std::span<const Shape> shapes, const std::string& folder, const char* only) {
  bool isGood = true;
  for (const Shape& shape : shapes) {
    if (!only || std::strcmp(only, shape.name) == 0) isGood = CountShape(shape, folder, 2 * shape.counted) && isGood;
  }
  return isGood;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const char* only = argc > 2 ? argv[2] : nullptr;
  bool isGood = CountShapes(bench::ClearTextShapes(), argv[1], only);
  isGood = CountShapes(bench::StandardShapes(), argv[1], only) && isGood;
#ifdef STEPRT_TEST_XML
  isGood = CountShapes(bench::XmlShapes(), argv[1], only) && isGood;
#endif
  if (!only) isGood = CountShape(kDigits, argv[1], kMostDigits) && isGood;
  if (only && std::strcmp(only, kSquare.name) == 0) isGood = CountShapes({&kSquare, 1}, argv[1], only) && isGood;
  return isGood ? 0 : 1;
}
