// The sheet of paper that all plans of a building share: size, scale, and where the building lies on it.
#ifndef PLAN_SHEET_H
#define PLAN_SHEET_H

#include <string>
#include <vector>

#include "floor_plan.h"
#include "svg.h"

namespace plan {

struct Sheet {
  const char* format = "A4";
  double width = 297, height = 210;  // millimetres
  int scale = 100;                   // 1 : scale
  Box building;                      // metres
  Vec2 corner;                       // where its lower left corner lies on the sheet

  // A place of the building, in metres, on the sheet.
  Vec2 On(Vec2 place) const {
    return {corner.x + Millimetres(place.x - building.low.x), corner.y - Millimetres(place.y - building.low.y)};
  }
  double Millimetres(double metres) const { return metres * 1000 / scale; }
};

// The largest usual scale at which all plans fit on A4 or A3, and the smaller of these two for it.
Sheet SheetFor(const std::vector<FloorPlan>& plans);

// Frame, title block and scale bar.
void DrawFrame(const Sheet& sheet, const std::string& project, const FloorPlan& plan, Svg* svg);

}  // namespace plan

#endif
