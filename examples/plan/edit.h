// Editing: a wall is moved, and a door is set into it.
#ifndef PLAN_EDIT_H
#define PLAN_EDIT_H

#include <string>

#include "floor_plan.h"

namespace plan {

struct EditResult {
  std::string wall;      // the label of the wall that was moved; empty if no wall would do
  std::string storey;    // the label of its storey
  double moved = 0;      // metres
  double doorWidth = 0;  // metres; 0 if memory ran out for the door
};

// Moves a wall that has room for a door, across its own length, and adds a door there: opening, door, the relations
// between them, and the door's place in the storey.
EditResult MoveWallAndAddDoor(STEPmodel& model);

}  // namespace plan

#endif
