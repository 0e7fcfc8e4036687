// Creates a model and writes it. Then reads the file into another model, edits that and writes it again.
//
//   edit_and_write [FOLDER]
#include <cstdio>
#include <string>

#include "proj/schema.h"

namespace {

// Writes the first file: a wall and its owner.
bool MakeFile(const std::string& path) {
  steprt::Model model(&proj::schema);
  auto* owner = new proj::Person;  // joins `model`, which is the current model
  owner->Name = "Ada";
  owner->Age = 36;
  auto* wall = new proj::Wall;
  wall->Name = "North wall";
  wall->Owner = owner;
  wall->Height = 2.5;
  return model.Write(path, "first") == 2;
}

bool Edit(const std::string& from, const std::string& to) {
  steprt::Model model(&proj::schema);
  if (model.Read(from, true) != 0) return false;  // not a clean read, or a file of another schema

  for (proj::Wall& wall : model.All<proj::Wall>()) {
    wall.Height = wall.Height.Get() + 0.25;
    auto* door = new proj::Door;
    door->Name = "Front door";
    door->Owner = wall.Owner.Get();
    door->Width = 0.9;
    wall.Doors.Add(door);
  }
  return model.Write(to, "edited") == 3;  // the number of records
}

}  // namespace

int main(int count, char** arguments) {
  const std::string folder = count > 1 ? arguments[1] : ".";
  const std::string first = folder + "/first.stp", edited = folder + "/edited.stp";
  if (!MakeFile(first) || !Edit(first, edited)) return 1;
  std::printf("%s: a wall of 2.75 m with a door\n", edited.c_str());
  return 0;
}
