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

bool CountShape(const Shape& shape, const std::string& folder) {
  const std::string path = folder + "/shape.stp";
  // Once without a count, so that what is made at the first use of the library is not in the smaller one.
  bench::ShapeModel model;
  if (!WriteShape(shape, 1, path)) return false;
  model.Read(shape.form, path);
  if (CountRead(shape, shape.counted, path) && CountRead(shape, 2 * shape.counted, path)) return true;
  std::fprintf(stderr, "%s does not read as it should\n", shape.name);
  return false;
}

bool CountShapes(std::span<const Shape> shapes, const std::string& folder, const char* only) {
  bool isGood = true;
  for (const Shape& shape : shapes) {
    if (!only || std::strcmp(only, shape.name) == 0) isGood = CountShape(shape, folder) && isGood;
  }
  return isGood;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const char* only = argc > 2 ? argv[2] : nullptr;
  bool isGood = CountShapes(bench::ClearTextShapes(), argv[1], only);
#ifdef STEPRT_TEST_XML
  isGood = CountShapes(bench::XmlShapes(), argv[1], only) && isGood;
#endif
  if (only && std::strcmp(only, kSquare.name) == 0) isGood = CountShape(kSquare, argv[1]) && isGood;
  return isGood ? 0 : 1;
}
