// Classes that the build compiles from plant.exp: makes a small plant, writes it, reads it and lists it.
#include <plant.h>

#include <cstdio>

namespace {

int Write(const std::string& path) {
  plant::Model model;  // becomes the current model, which new instances join
  auto* owner = new plant::Person;
  owner->Name = "Ann";
  auto* pump = new plant::Pump;
  pump->Name = "P1";
  pump->Owner = owner;
  pump->Carries = plant::Medium::steam;
  pump->Limits.Add().SetTyped("PRESSURE").SetReal(16);
  auto* line = new plant::Line;
  line->Name = "L1";
  line->Connects.Add(pump);
  line->Connects.Add(pump);
  return model.Write(path);
}

int List(const std::string& path) {
  plant::Model model;
  if (model.Read(path, true) != 0) return -1;
  int found = 0;
  for (plant::Equipment& equipment : model.All<plant::Equipment>()) {  // pumps and lines
    std::printf("%s\n", steprt::Print(equipment).c_str());
    ++found;
  }
  for (plant::Pump& pump : model.All<plant::Pump>()) {
    std::printf("%s carries %s", pump.Name.Get(), pump.Carries.Get() == plant::Medium::steam ? "steam" : "water");
    if (pump.Owner.Get()) std::printf(" and belongs to %s", pump.Owner->Name.Get());
    std::printf(pump.Power.IsPresent() ? ", %g kW" : ", power unknown", pump.Power.Get());
    for (plant::Limit& limit : pump.Limits) {
      if (limit.Is("PRESSURE")) std::printf(", at most %g bar", limit.First().Real());
    }
    std::printf("\n");
  }
  return found;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string path = std::string(argc > 1 ? argv[1] : ".") + "/plant.stp";
  return Write(path) == 3 && List(path) == 2 ? 0 : 1;
}
