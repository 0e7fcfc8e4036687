// A building as the drawing sees it: plain structs in metres, in the coordinates of the whole building. Nothing here
// knows of a schema. BuildingModel (building_model.h) fills them from a file, FloorPlans (floor_plan.h) draws on them.
#ifndef PLAN_BUILDING_H
#define PLAN_BUILDING_H

#include <string>
#include <vector>

#include "bodies.h"

namespace plan {

// How the leaves of a door move.
enum class Leaves {
  kSwingLeft,      // one leaf, hinges on the left
  kSwingRight,     // one leaf, hinges on the right
  kBothWaysLeft,   // one leaf that swings to both sides, hinges on the left
  kBothWaysRight,  // hinges on the right
  kTwo,            // two leaves to one side
  kTwoBothWays,    // two leaves, each to both sides
  kTwoOppositeLeft,
  kTwoOppositeRight,
  kSlideLeft,
  kSlideRight,
  kSlideTwo
};

// What is in an opening. The frame's x runs along the wall, its y to the side that a door opens to.
struct Filling {
  enum class Kind { kNone, kDoor, kWindow };
  Kind kind = Kind::kNone;
  Frame frame;
  Leaves leaves = Leaves::kSwingLeft;
};

// Any part of a building, with its shape.
struct Part {
  std::vector<Body> bodies;
  Heights heights;
};

struct Opening : Part {
  Filling filling;
};

struct Wall : Part {
  std::vector<Opening> openings;
};

struct Room : Part {
  std::string number, name;
};

struct Storey {
  std::string name;
  double elevation = 0;  // in the coordinates of the building
  double level = 0;      // as the file names it, relative to the level of the entrance
};

struct Building {
  std::string name;  // of the project
  Vec2 north{0, 1};  // the direction of true north
  bool knowsNorth = false;
  std::vector<Storey> storeys;
  std::vector<Wall> walls;
  std::vector<Part> columns, floors, stairs, furniture;
  std::vector<Part> panels;  // plates and members, as of a glass front
  std::vector<Room> rooms;
};

// Turns the building about the origin, so that most of its walls run along the axes, and north with it. Returns the
// angle in degrees, counter-clockwise; 0 if they do already.
double AlignWithAxes(Building* building);

}  // namespace plan

#endif
