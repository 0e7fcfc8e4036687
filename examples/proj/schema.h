// A small schema, written by hand for the examples: PERSON, SITE, and ELEMENT with its subtypes WALL and DOOR.
#ifndef PROJ_SCHEMA_H
#define PROJ_SCHEMA_H

#include <steprt/step.h>

namespace proj {

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

// The descriptor. It has no error procedure, so reports go to standard error.
APPobject0* Schema();

class Model : public STEPmodel {
 public:
  Model() { AppObj(Schema()); }
};

}  // namespace proj

#endif
