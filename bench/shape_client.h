// The client that reads the shapes: a schema of a few classes and many keywords.
//
//   NODE    a reference to a node          GROUP    a list of those
//   KIND0 .. KIND1999, the same as NODE    NUMBERS  a list of reals
//   TEXT    a text                         WORDS    a list of texts
//   FAMILY  XML only: as many integers, each of a name of its own, as the first one says
#ifndef STEPRT_BENCH_SHAPE_CLIENT_H
#define STEPRT_BENCH_SHAPE_CLIENT_H

#include <string>

#include "shapes.h"
#include "steprt/step.h"

namespace bench {

inline constexpr int kKinds = 2000;

class ShapeModel : public STEPmodel {
 public:
  ShapeModel();

  void Read(Form form, const std::string& path);

  // Whether the shape gave all its instances and reports, and no more.
  bool IsAsExpected(const Shape& shape, int items);

 private:
  long reportsBefore_;
};

}  // namespace bench

#endif
