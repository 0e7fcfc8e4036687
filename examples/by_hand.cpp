// A schema by hand: classes with members of any type, and a read and a write function for each entity. The program
// writes a file, reads it into another model, edits that and writes it again.
//
//   by_hand [FOLDER]
#include <steprt/step.h>

#include <cstdio>
#include <string>

namespace {

enum EntityType { kPerson = 1, kElement, kWall, kDoor, kSite };
enum Swing { kLeft, kRight, kBoth };

// An instance made without a model joins the current one, which then owns it.
class Person : public STEPheader {
 public:
  Person() : STEPheader(nullptr) { Type(kPerson); }
  STEPstring name;
  int age = 0;
};

class Element : public STEPheader {
 public:
  explicit Element(int typeNumber) : STEPheader(nullptr) { Type(typeNumber); }
  Person* Owner() { return dynamic_cast<Person*>(owner); }
  STEPstring name;
  STEPheader* owner = nullptr;  // the reader stores an instance of another type too, with a report
};

class Door : public Element {
 public:
  Door() : Element(kDoor) {}
  double width = 0;
  int swing = kLeft;
};

class Wall : public Element {
 public:
  Wall() : Element(kWall) {}
  ~Wall() override;
  void AddDoor(Door* door);
  double height = 0;
  STEPaggr* doors = nullptr;  // the wall owns the nodes, the model owns the doors
};

class Site : public STEPheader {
 public:
  Site() : STEPheader(nullptr) { Type(kSite); }
  STEPstring name;
  bool built = false;
  STEPselect reference;  // a text, a number or a person
};

Wall::~Wall() {
  if (!doors) return;
  DeleteSTEPlist(&doors->head);
  delete doors;
}

void Wall::AddDoor(Door* door) {
  if (!doors) doors = new STEPaggr;
  doors->Append(door);
}

const char* swings[] = {".LEFT.", ".RIGHT.", ".BOTH."};

STEPheader* ReadPerson(STEPtransfer* t) {
  auto* person = new Person;
  person->name = rSTEPtext(t, "Name");  // the assignment copies the text
  person->age = rSTEPint(t, "Age");
  return person;
}

void WritePerson(STEPtransfer* t, STEPheader* object) {
  auto* person = static_cast<Person*>(object);
  wSTEPtext(t, "Name", person->name);
  wSTEPint(t, "Age", person->age);
}

// The attributes of the supertype come first.
void ReadElement(STEPtransfer* t, Element* element) {
  element->name = rSTEPtext(t, "Name");
  xrSTEPref(t, "Owner", &element->owner, kPerson, true);
}

void WriteElement(STEPtransfer* t, Element* element) {
  wSTEPtext(t, "Name", element->name);
  xwSTEPref(t, "Owner", element->owner);
}

STEPheader* ReadDoor(STEPtransfer* t) {
  auto* door = new Door;
  ReadElement(t, door);
  door->width = rSTEPreal(t, "Width");
  door->swing = rSTEPenum(t, "Swing", swings, 3);
  return door;
}

void WriteDoor(STEPtransfer* t, STEPheader* object) {
  auto* door = static_cast<Door*>(object);
  WriteElement(t, door);
  wSTEPreal(t, "Width", door->width);
  wSTEPenum(t, "Swing", door->swing, swings);
}

STEPheader* ReadWall(STEPtransfer* t) {
  auto* wall = new Wall;
  ReadElement(t, wall);
  wall->height = rSTEPreal(t, "Height");
  xrSTEPaggr(t, "Doors", &wall->doors, kDoor, false);
  return wall;
}

void WriteWall(STEPtransfer* t, STEPheader* object) {
  auto* wall = static_cast<Wall*>(object);
  WriteElement(t, wall);
  wSTEPreal(t, "Height", wall->height);
  xwSTEPaggr(t, "Doors", wall->doors);
}

STEPheader* ReadSite(STEPtransfer* t) {
  auto* site = new Site;
  site->name = rSTEPtext(t, "Name");
  site->built = rSTEPbool(t, "Built");
  rSTEPsel(t, "Reference", &site->reference);
  return site;
}

void WriteSite(STEPtransfer* t, STEPheader* object) {
  auto* site = static_cast<Site*>(object);
  wSTEPtext(t, "Name", site->name);
  wSTEPbool(t, "Built", site->built);
  wSTEPsel(t, "Reference", &site->reference);
}

// ELEMENT has no records of its own, so its row has no functions. It exists for type tests and queries.
constexpr APPentity kRows[] = {
    {"PERSON", ReadPerson, WritePerson, kPerson, nullptr}, {"ELEMENT", nullptr, nullptr, kElement, nullptr},
    {"WALL", ReadWall, WriteWall, kWall, "ELEMENT"},       {"DOOR", ReadDoor, WriteDoor, kDoor, "ELEMENT"},
    {"SITE", ReadSite, WriteSite, kSite, nullptr},
};

// It has no error procedure, so reports go to standard error.
APPtable proj("PROJ", kRows);

class Model : public STEPmodel {
 public:
  Model() { AppObj(&proj); }
};

// Writes a wall with two doors, its owner, and the site.
bool MakeFile(std::string path) {
  Model model;
  auto* owner = new Person;  // joins `model`, which is the current model
  owner->name = "Ada";
  owner->age = 36;
  auto* wall = new Wall;
  wall->name = "North wall";
  wall->owner = owner;
  for (const char* name : {"Front door", "Back door"}) {
    auto* door = new Door;
    door->name = name;
    door->swing = kRight;
    wall->AddDoor(door);
  }
  auto* site = new Site;
  site->name = "Hill";
  site->reference.SetSTEPobj(owner);
  return model.Write(path.data(), "first") == 5;
}

// Its destructor removes the door from the model, and nothing else.
void DeleteDoor(STEPmodel& model, Door* door) {
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) {
    auto* wall = dynamic_cast<Wall*>(object);
    while (wall && wall->doors && wall->doors->Delete(door)) continue;  // one node for each call
  }
  delete door;
}

// Counts walls and doors, and lists them with their owners.
int ListElements(STEPmodel& model) {
  STEPaggr* elements = model.GetSTEPaggrAll(kElement);  // we must release the aggregate
  if (!elements) return 0;
  int count = 0;
  for (STEPlist* node = elements->head; node; node = node->next, ++count) {
    auto* element = static_cast<Element*>(node->value.object);
    Person* owner = element->Owner();
    std::printf("  %-6s %-12s owner %s\n", element->EntityName(), static_cast<const char*>(element->name),
                owner ? static_cast<const char*>(owner->name) : "unknown");
  }
  DeleteSTEPlist(&elements->head);
  delete elements;
  return count;
}

// Removes the first door of the wall.
bool Edit(std::string from, std::string to) {
  Model model;
  if (model.Read(true, from.data()) != 0 || ListElements(model) != 3) return false;
  auto* wall = static_cast<Wall*>(model.FindFirst(kWall));
  auto* site = static_cast<Site*>(model.FindFirst(kSite));
  if (wall->height != 0 || site->reference.GetSTEPobj() != wall->owner) return false;
  DeleteDoor(model, static_cast<Door*>(wall->doors->head->value.object));
  return model.Write(to.data(), "edited") == 4 && ListElements(model) == 2;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string folder = count > 1 ? arguments[1] : ".";
  if (!MakeFile(folder + "/first.stp") || !Edit(folder + "/first.stp", folder + "/edited.stp")) return 1;
  CurrentModel(nullptr);  // a destroyed model remains the current one
  return 0;
}
