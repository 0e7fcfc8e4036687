// The schema of the examples: PERSON, SITE, and ELEMENT with its subtypes WALL and DOOR.
#ifndef PROJ_SCHEMA_H
#define PROJ_SCHEMA_H

#include <steprt/record.h>

namespace proj {

struct Person : steprt::Entity<Person, 1> {
  static constexpr const char* kKeyword = "PERSON";
  steprt::Text Name;
  steprt::Integer Age;
  void Describe(steprt::Description& d) override { d("Name", Name)("Age", Age); }
};

// No record is just an ELEMENT.
struct Element : steprt::AbstractEntity<Element, 2> {
  static constexpr const char* kKeyword = "ELEMENT";
  steprt::Text Name;
  steprt::Ref<Person> Owner;
  void Describe(steprt::Description& d) override { d("Name", Name)("Owner", Owner); }
};

enum class Swing { kLeft, kRight, kBoth };
inline steprt::EnumeratorNames NamesOf(Swing) {
  static const char* names[] = {".LEFT.", ".RIGHT.", ".BOTH."};
  return {names, 3};
}

struct Door : steprt::Entity<Door, 4, Element> {
  static constexpr const char* kKeyword = "DOOR";
  steprt::Real Width;
  steprt::Enumeration<Swing> Opens;
  void Describe(steprt::Description& d) override {
    Super::Describe(d);
    d("Width", Width)("Swing", Opens);
  }
};

struct Wall : steprt::Entity<Wall, 3, Element> {
  static constexpr const char* kKeyword = "WALL";
  steprt::Real Height;
  steprt::List<steprt::Ref<Door>> Doors;
  void Describe(steprt::Description& d) override {
    Super::Describe(d);
    d("Height", Height)("Doors", Doors);
  }
};

struct Site : steprt::Entity<Site, 5> {
  static constexpr const char* kKeyword = "SITE";
  steprt::Text Name;
  steprt::Boolean Built;
  steprt::Value Reference;  // a text, a number or a person
  void Describe(steprt::Description& d) override { d("Name", Name)("Built", Built)("Reference", Reference); }
};

// Reports go to standard error.
inline auto schema = steprt::Schema<Person, Element, Wall, Door, Site>("PROJ");

}  // namespace proj

#endif
