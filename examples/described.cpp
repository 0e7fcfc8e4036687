// Entity classes that describe their attributes once: a file is read, edited and written without a read or a write
// function. The attributes may be omitted, nested lists or typed values.
//
//   described [FOLDER]    writes a small file into the folder, the current one by default, and reads it back
#include <steprt/record.h>

#include <cstdio>
#include <string>

namespace {

struct Person : steprt::Entity<Person, 1> {
  static constexpr const char* kKeyword = "PERSON";
  steprt::Text Name;
  steprt::Integer Age;
  void Describe(steprt::Description& d) override { d("Name", Name)("Age", Age); }
};

struct Wall : steprt::Entity<Wall, 2> {
  static constexpr const char* kKeyword = "WALL";
  steprt::Real Height;
  steprt::Ref<Person> Owner;
  steprt::List<steprt::List<steprt::Real>> Corners;
  steprt::Value Finish;  // of any type: PAINT('white'), or $
  void Describe(steprt::Description& d) override {
    d("Height", Height)("Owner", Owner)("Corners", Corners)("Finish", Finish);
  }
};

auto plant = steprt::Schema<Person, Wall>("PLANT");

// Instances join the current model, which owns them.
void Build() {
  auto* owner = new Person;
  owner->Name = "Ann";
  auto* wall = new Wall;
  wall->Owner = owner;
  wall->Finish.SetTyped("PAINT").SetText("white");
  for (const double x : {0.0, 4.5}) {
    steprt::List<steprt::Real>& corner = wall->Corners.Add();
    corner.Add(x);
    corner.Add(0);
  }
}

int Fail(const char* what) {
  std::fprintf(stderr, "described: %s\n", what);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string path = std::string(argc > 1 ? argv[1] : ".") + "/described.stp";
  steprt::Model first(&plant);
  Build();
  if (first.Write(path) != 2) return Fail("the file could not be written");

  steprt::Model model(&plant);
  if (model.Read(path) != 0) return Fail("the file could not be read");
  for (Wall& wall : model.All<Wall>()) {
    std::printf("%s's wall is %.1f m high\n", wall.Owner->Name.Get(), wall.Height.Or(2.5));
    wall.Height = wall.Height.Or(2.5) + 0.2;
  }
  if (model.Write(path, "edited") != 2) return Fail("the file could not be written");
  for (steprt::Record& record : model.All<steprt::Record>()) std::printf("%s\n", steprt::Print(record).c_str());
  return 0;
}
