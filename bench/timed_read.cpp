#include "timed_read.h"

#include "building.h"
#include "pairs.h"
#include "read_floor.h"

namespace bench {

double TimeRead(const Population& population, Lookup lookup) {
  BeginTurn();
  BuildingModel model;
  return TimeOf([&] {
    if (lookup == Lookup::kIndexed) model.PrepareHash();
    model.Read(false, const_cast<char*>(population.path.c_str()));
  });
}

double TimeReadFloor(const Population& population) {
  BeginTurn();
  BuildingModel model;
  return TimeOf([&] { ReadFloor(population.path); });
}

}  // namespace bench
