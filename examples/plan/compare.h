// Whether two populations are equal.
#ifndef PLAN_COMPARE_H
#define PLAN_COMPARE_H

#include <steprt/step.h>

#include <string>

namespace plan {

struct Comparison {
  bool equal = false;
  int instances = 0;       // compared
  std::string difference;  // the first one, when there is one
};

// Compares instance by instance, in order: the entity, and each of its attributes by name and value. A reference is
// the position of its instance in the population. Reals are equal when they agree in the six significant digits that
// the library writes; an omitted text and an empty one are equal.
Comparison Compare(STEPmodel& a, STEPmodel& b);

}  // namespace plan

#endif
