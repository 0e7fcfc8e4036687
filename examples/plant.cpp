// The program of the README: reads a file, makes each wall higher and writes the file again.
//
//   plant [FOLDER]    makes and edits plant.stp in the folder, the current one by default
#include <steprt/record.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

const char kFile[] =
    "ISO-10303-21;\n"
    "HEADER;\n"
    "FILE_SCHEMA(('PLANT'));\n"
    "ENDSEC;\n"
    "DATA;\n"
    "#1=WALL(2.75,#3);\n"
    "#2=WALL($,$);\n"  // of no known height
    "#3=PERSON('Ada');\n"
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

struct Person : steprt::Entity<Person, 1> {
  static constexpr const char* kKeyword = "PERSON";
  steprt::Text Name;
  void Describe(steprt::Description& d) override { d("Name", Name); }
};
struct Wall : steprt::Entity<Wall, 2> {
  static constexpr const char* kKeyword = "WALL";
  steprt::Real Height;
  steprt::Ref<Person> Owner;
  void Describe(steprt::Description& d) override { d("Height", Height)("Owner", Owner); }
};
auto plant = steprt::Schema<Person, Wall>("PLANT");

int RaiseWalls(const std::string& path) {
  steprt::Model model(&plant);
  if (model.Read(path) != 0) std::puts("The file has faults");
  for (Wall& wall : model.All<Wall>()) wall.Height = wall.Height.Or(2.5) + 0.2;
  return model.Write(path, "edited");  // the number of records, or -1 if the file could not be written
}

}  // namespace

int main(int count, char** arguments) {
  const std::string path = std::string(count > 1 ? arguments[1] : ".") + "/plant.stp";
  std::ofstream(path) << kFile;
  const int records = RaiseWalls(path);
  std::printf("%s: %d records\n", path.c_str(), records);
  return records == 3 ? 0 : 1;
}
