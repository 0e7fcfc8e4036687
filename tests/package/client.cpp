// A client of the installed package: a schema of three entities, a model that is written, read back and compared. It is
// built by each of the ways that a consumer has, and exits 0 if all is as it should be.
//
//   client FOLDER [xml]   FOLDER takes the files; xml: the library was built to read the XML form
#include <steprt/step.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

enum Types { kProduct, kPerson, kWall };

struct Person : STEPheader {
  Person() : STEPheader(nullptr) { Type(kPerson); }
  std::string name;
};

struct Wall : STEPheader {
  Wall() : STEPheader(nullptr) { Type(kWall); }
  Wall(const Wall&) = delete;
  Wall& operator=(const Wall&) = delete;
  ~Wall() override {
    if (neighbours) DeleteSTEPlist(&neighbours->head);
    delete neighbours;
  }
  double height = 0;
  STEPheader* owner = nullptr;
  STEPaggr* neighbours = nullptr;
};

STEPheader* ReadPerson(STEPtransfer* t) {
  auto* person = new Person;
  person->name = rSTEPtext(t, "Name");
  return person;
}

void WritePerson(STEPtransfer* t, STEPheader* object) {
  wSTEPtext(t, "Name", static_cast<Person*>(object)->name.c_str());
}

STEPheader* ReadWall(STEPtransfer* t) {
  auto* wall = new Wall;
  wall->height = rSTEPreal(t, "Height");
  xrSTEPref(t, "Owner", &wall->owner, kPerson, true);
  xrSTEPaggr(t, "Neighbours", &wall->neighbours, kWall, false);
  return wall;
}

void WriteWall(STEPtransfer* t, STEPheader* object) {
  auto* wall = static_cast<Wall*>(object);
  wSTEPreal(t, "Height", wall->height);
  xwSTEPref(t, "Owner", wall->owner);
  xwSTEPaggr(t, "Neighbours", wall->neighbours);
}

const APPentity kRows[] = {
    {"PRODUCT", nullptr, nullptr, kProduct, nullptr},
    {"PERSON", ReadPerson, WritePerson, kPerson, nullptr},
    {"WALL", ReadWall, WriteWall, kWall, "PRODUCT"},
};
APPtable plant("PLANT", kRows);

struct Plant : STEPmodel {
  Plant() { AppObj(&plant); }
};

int failures = 0;

void Check(bool holds, const char* what) {
  if (holds) return;
  std::printf("does not hold: %s\n", what);
  ++failures;
}

// Two walls that have each other as neighbours, one of them owned.
void Fill() {
  auto* person = new Person;
  person->name = "O'Hara";
  Wall* walls[] = {new Wall, new Wall};
  for (Wall* wall : walls) wall->neighbours = new STEPaggr;
  walls[0]->height = 2.5;
  walls[0]->owner = person;
  walls[0]->neighbours->Append(walls[1]);
  walls[1]->neighbours->Append(walls[0]);
}

void CheckFilled(Plant& model) {
  STEPaggr* products = model.GetSTEPaggrAll(kProduct);
  Check(products->GetMemberCount() == 2, "both walls are products");
  auto* first = static_cast<Wall*>(model.FindFirst(kWall));
  auto* second = static_cast<Wall*>(products->Successor(first));
  Check(first && second, "there are two walls");
  if (first && second) {
    Check(first->height == 2.5 && second->height == 0, "heights");
    Check(first->owner && static_cast<Person*>(first->owner)->name == "O'Hara", "the owner and its name");
    Check(!second->owner, "no owner");
    Check(first->neighbours->IsMember(second) == 0 && second->neighbours->IsMember(first) == 0, "neighbours");
  }
  DeleteSTEPlist(&products->head);
  delete products;
}

void GoThrough(const char* what, int (STEPmodel::*write)(char*, const char*), int (*read)(Plant&), std::string file,
               bool canRead) {
  Plant written;
  Fill();
  Check((written.*write)(&file[0], "written by a client") == 3, what);

  Plant back;
  back.Name(&file[0]);
  Check(read(back) == 0, what);
  Check(canRead || back.IsEmpty(), "nothing comes from a library that cannot read XML");
  if (canRead) CheckFilled(back);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const std::string folder = argv[1];
  const bool canReadXml = argc > 2 && std::strcmp(argv[2], "xml") == 0;
  GoThrough(
      "clear text is written and read", &STEPmodel::Write, [](Plant& plant) { return plant.Read(true, nullptr); },
      folder + "/plant.stp", true);
  GoThrough(
      "XML is written and read", &STEPmodel::WriteXml, [](Plant& plant) { return plant.ReadXml(nullptr); },
      folder + "/plant.xml", canReadXml);
  return failures ? 1 : 0;
}
