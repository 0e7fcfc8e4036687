// The sheet of paper that a plan is drawn on: its size and scale, and where the building is on it.
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
  Box drawn;                         // what is drawn, in metres
  Vec2 corner;                       // where its lower left corner is on the sheet

  // A place of the building, in metres, on the sheet.
  Vec2 On(Vec2 place) const {
    return {corner.x + Millimetres(place.x - drawn.low.x), corner.y - Millimetres(place.y - drawn.low.y)};
  }
  double Millimetres(double metres) const { return metres * 1000 / scale; }
};

// The largest usual scale at which each of the plans fits on A3.
int ScaleFor(const std::vector<FloorPlan>& plans);

// The smallest sheet for a plan at this scale, with the plan in its middle.
Sheet SheetFor(const FloorPlan& plan, int scale);

// What a sheet says about its drawing besides the plan's own name and level.
struct Caption {
  std::string project;
  std::string note;  // in the upper left corner; may be empty
  bool hasNorth = false;
  Vec2 north{0, 1};  // the direction of true north
};

// Frame, title block, scale bar, north arrow and note.
void DrawFrame(const Sheet& sheet, const Caption& caption, const FloorPlan& plan, Svg* svg);

}  // namespace plan

#endif
