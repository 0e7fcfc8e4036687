// The dimension lines of a plan.
#ifndef PLAN_DIMENSIONS_H
#define PLAN_DIMENSIONS_H

#include "sheet.h"

namespace plan {

// Below the building and to the left of it: a chain from opening to opening of the outer wall there, and the overall
// length outside of that.
void DrawDimensions(const Sheet& sheet, const FloorPlan& plan, Svg* svg);

}  // namespace plan

#endif
