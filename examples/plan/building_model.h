// A building model of one schema: the population of a file, and what this program does with it. Implementations use the
// classes that the build compiles from ifc2x3.exp and ifc4.exp. Callers know no schema.
#ifndef PLAN_BUILDING_MODEL_H
#define PLAN_BUILDING_MODEL_H

#include <steprt/record.h>

#include <memory>
#include <string>

#include "building.h"

namespace plan {

struct EditResult {
  std::string wall;    // the label of the wall that was moved; empty if no wall has room for a door
  std::string storey;  // the label of its storey
  double moved = 0;    // metres
  double doorWidth = 0;
};

class BuildingModel {
 public:
  virtual ~BuildingModel() = default;

  // The population: to read, write, list and compare it.
  virtual steprt::Model& Population() = 0;

  virtual Building Extract() = 0;

  // Moves a wall that has room for a door across its own length and adds a door there: opening, door, the relations
  // between them, and the door's place in the storey.
  virtual EditResult MoveWallAndAddDoor() = 0;
};

// An empty model of the schema with this name, compared case-insensitively. Null if the program has no classes for it.
std::unique_ptr<BuildingModel> NewModel(const std::string& schemaName);

// Those that it chooses from, each in its schema_*.cpp.
std::unique_ptr<BuildingModel> NewIfc2x3Model();
std::unique_ptr<BuildingModel> NewIfc4Model();

// The schemas that NewModel knows: "IFC2X3 and IFC4".
std::string KnownSchemas();

}  // namespace plan

#endif
