// Draws a floor plan on its sheet.
#ifndef PLAN_DRAWING_H
#define PLAN_DRAWING_H

#include <string>

#include "sheet.h"

namespace plan {

// Writes the plan as an SVG file; false if it cannot be written.
bool DrawPlan(const FloorPlan& plan, const Sheet& sheet, const Caption& caption, const std::string& path);

}  // namespace plan

#endif
