// Floor plans: what the cut through a storey shows, in metres, ready to be drawn.
#ifndef PLAN_FLOOR_PLAN_H
#define PLAN_FLOOR_PLAN_H

#include <string>
#include <vector>

#include "building.h"
#include "region.h"

namespace plan {

constexpr double kCutAboveFloor = 1.1;  // metres

// A hole that an opening leaves in a wall: a box in its own axes.
struct WallHole {
  Vec2 origin, along, across;  // unit vectors; a door swings to the side of `across`
  double left = 0, right = 0;  // along the wall
  double back = 0, front = 0;  // across it
  Vec2 At(double a, double c) const { return origin + along * a + across * c; }
};

struct DoorSymbol {
  WallHole hole;
  Leaves leaves = Leaves::kSwingLeft;

  // The box that the leaves need when they are open.
  Box Swing() const;
};

struct RoomLabel {
  Region region;
  std::string number, name;
  double area = 0;
};

struct FloorPlan {
  std::string name;
  double elevation = 0, level = 0;  // see Storey
  std::vector<Region> walls;        // openings taken out
  std::vector<Region> columns;
  std::vector<Region> panels;
  std::vector<Region> floors;
  std::vector<Region> treads;       // of stairs below the cut
  std::vector<Region> treadsAbove;  // and above it
  std::vector<Polygon> furniture;   // the lowest first
  std::vector<DoorSymbol> doors;
  std::vector<WallHole> windows;
  std::vector<RoomLabel> rooms;

  bool IsEmpty() const { return walls.empty(); }
  Box WallBounds() const;
  Box Bounds() const;  // of all that is drawn
};

// One plan for each storey, the lowest first; an empty one where the plane cuts nothing.
std::vector<FloorPlan> FloorPlans(const Building& building);

}  // namespace plan

#endif
