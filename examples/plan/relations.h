// The relations of a model, turned round: from a wall to its openings, from an opening to what fills it.
#ifndef PLAN_RELATIONS_H
#define PLAN_RELATIONS_H

#include <map>
#include <vector>

#include "building.h"

namespace plan {

struct Relations {
  explicit Relations(STEPmodel& model);

  std::map<Element*, std::vector<OpeningElement*>> openings;  // of a wall or a slab
  std::map<OpeningElement*, Element*> filling;                // the door or window in an opening
  std::map<Object*, TypeProduct*> type;
  std::map<Product*, RelContainedInSpatialStructure*> containment;
};

}  // namespace plan

#endif
