// Whether two populations are equal, and where they are not, in what kind of way.
#ifndef PLAN_COMPARE_H
#define PLAN_COMPARE_H

#include <steprt/step.h>

#include <map>
#include <string>

namespace plan {

// How often the forms change values in one way.
struct Change {
  int values = 0;
  int instances = 0;  // that hold them
};

struct Comparison {
  bool isSound = false;  // each difference is one that the forms are known to make
  int instances = 0;     // compared
  int changed = 0;       // of them
  std::map<std::string, Change> changes;
  std::string difference;  // the first that the forms do not make

  // "all equal", or "equal but for", and the changes in lines of their own.
  std::string Text() const;
};

// Compares instance by instance, in order: the entity, and each of its attributes by name and value. A reference is
// the position of its instance in the population. Reals are equal when they agree in the six significant digits that
// the library writes. `before` is what was written, `after` what was read back with KeepNullMarks.
Comparison Compare(STEPmodel& before, STEPmodel& after);

}  // namespace plan

#endif
