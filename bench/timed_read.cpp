#include "timed_read.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "building.h"
#include "pairs.h"
#include "read_floor.h"

namespace bench {
namespace {

// Another run in the same folder may have taken the file away: no figure is better than that of reading nothing.
[[noreturn]] void GiveUp(const std::string& path) {
  std::fprintf(stderr, "%s cannot be read\n", path.c_str());
  std::exit(1);
}

}  // namespace

double TimeRead(const Population& population, Lookup lookup) {
  BeginTurn();
  BuildingModel model;
  const double seconds = TimeOf([&] {
    if (lookup == Lookup::kIndexed) model.PrepareHash();
    model.Read(false, const_cast<char*>(population.path.c_str()));
  });
  if (!model.Inst()) GiveUp(population.path);
  return seconds;
}

double TimeStandardRead(const Population& population) {
  BeginTurn();
  BuildingModel model;
  const double seconds = TimeOf([&] { model.ReadStandard(population.path.c_str()); });
  if (!model.Inst()) GiveUp(population.path);
  return seconds;
}

double TimeReadFloor(const Population& population) {
  BeginTurn();
  BuildingModel model;
  return TimeOf([&] { ReadFloor(population.path); });
}

}  // namespace bench
