// plant_client FOLDER - writes a file with the classes that are compiled from plant.exp, and reads it again.
#include <plant.h>

#include <cstring>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string path = std::string(argv[1]) + "/plant.stp";
  {
    plant::Model model;
    auto* pump = new plant::Pump;
    pump->Name = "P1";
    pump->Carries = plant::Medium::steam;
    pump->Owner = new plant::Person;
    pump->Owner->Name = "Ann";
    if (model.Write(path) != 2) return 1;
  }
  plant::Model model;
  if (model.Read(path, true) != 0) return 1;
  int pumps = 0;
  for (plant::Pump& pump : model.All<plant::Pump>()) {
    const bool same = !pump.Power.IsPresent() && pump.Carries.Get() == plant::Medium::steam;
    if (same && std::strcmp(pump.Owner->Name.Get(), "Ann") == 0) ++pumps;
  }
  return pumps == 1 ? 0 : 1;
}
