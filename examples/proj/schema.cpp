#include "schema.h"

namespace proj {
namespace {

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

}  // namespace

Wall::~Wall() {
  if (!doors) return;
  DeleteSTEPlist(&doors->head);
  delete doors;
}

void Wall::AddDoor(Door* door) {
  if (!doors) doors = new STEPaggr;
  doors->Append(door);
}

APPobject0* Schema() {
  static APPtable table("PROJ", kRows);
  return &table;
}

}  // namespace proj
