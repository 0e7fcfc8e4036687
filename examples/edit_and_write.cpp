// Creates a model and writes it. Then reads the file into another model, edits that and writes it again.
//
//   edit_and_write [FOLDER]
#include <cstdio>
#include <string>

#include "proj/schema.h"

namespace {

// Writes the first file: a wall and its owner.
bool MakeFile(std::string path) {
  proj::Model model;
  auto* owner = new proj::Person;  // joins `model`, which is the current model
  owner->name = "Ada";
  owner->age = 36;
  auto* wall = new proj::Wall;
  wall->name = "North wall";
  wall->owner = owner;
  wall->height = 2.5;
  return model.Write(path.data(), "first") == 2;
}

bool Edit(std::string from, std::string to) {
  proj::Model model;
  if (model.Read(true, from.data()) != 0) return false;  // not a clean read

  auto* wall = static_cast<proj::Wall*>(model.FindFirst(proj::kWall));
  if (!wall) return false;
  wall->height = 2.75;
  auto* door = new proj::Door;
  door->name = "Front door";
  door->owner = wall->owner;
  door->width = 0.9;
  wall->AddDoor(door);

  return model.Write(to.data(), "edited") == 3;  // the number of records
}

}  // namespace

int main(int count, char** arguments) {
  const std::string folder = count > 1 ? arguments[1] : ".";
  const std::string first = folder + "/first.stp", edited = folder + "/edited.stp";
  if (!MakeFile(first) || !Edit(first, edited)) return 1;
  std::printf("%s: a wall of 2.75 m with a door\n", edited.c_str());
  return 0;
}
