// Whether two populations are equal, and in what way they are not.
#ifndef PLAN_COMPARE_H
#define PLAN_COMPARE_H

#include <steprt/record.h>

#include <string>
#include <vector>

namespace plan {

struct Comparison {
  int instances = 0;                  // compared
  int rounded = 0;                    // values with reals that agree at six digits only
  int unresolved = 0;                 // values with references that the file could not resolve, which are written as $
  int lost = 0;                       // values, or instances, that differ otherwise
  std::vector<std::string> examples;  // of what is lost, the first few

  // "all equal", or what differs, each in a line of its own.
  std::string Text() const;
};

// Compares instance by instance, in order: the class, and each attribute. References are equal if they mean instances
// at the same place. Both populations get the numbers of these places.
Comparison Compare(steprt::Model& before, steprt::Model& after);

}  // namespace plan

#endif
