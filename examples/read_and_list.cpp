// Reads a file and lists its instances: all of them, those of a type and its subtypes, and those that a list refers to.
//
//   read_and_list [FOLDER]
#include <cstdio>
#include <fstream>
#include <string>

#include "proj/schema.h"

namespace {

const char kFile[] =
    "ISO-10303-21;\n"
    "HEADER;\n"
    "FILE_SCHEMA(('PROJ'));\n"
    "ENDSEC;\n"
    "DATA;\n"
    "#1=WALL('North wall',#4,2.5,(#2,#3));\n"  // a reference may precede its record
    "#2=DOOR('Front door',#4,0.9,.LEFT.);\n"
    "#3=DOOR('Back door',$,0.8,.RIGHT.);\n"
    "#4=PERSON('Ada',36);\n"
    "#5=SITE('Hill',.T.,#4);\n"
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

void ListElements(proj::Model& model) {
  STEPaggr* elements = model.GetSTEPaggrAll(proj::kElement);  // walls and doors; we must release the aggregate
  if (!elements) return;
  for (STEPlist* node = elements->head; node; node = node->next) {
    auto* element = static_cast<proj::Element*>(node->value.object);
    proj::Person* owner = element->Owner();
    std::printf("  %-6s %-12s owner %s\n", element->EntityName(), static_cast<const char*>(element->name),
                owner ? static_cast<const char*>(owner->name) : "unknown");
  }
  DeleteSTEPlist(&elements->head);
  delete elements;
}

void ListDoors(proj::Wall& wall) {
  for (STEPlist* node = wall.doors ? wall.doors->head : nullptr; node; node = node->next) {
    auto* door = dynamic_cast<proj::Door*>(node->value.object);
    if (door) std::printf("  %s is %.2f m wide\n", static_cast<const char*>(door->name), door->width);
  }
}

}  // namespace

int main(int count, char** arguments) {
  std::string path = std::string(count > 1 ? arguments[1] : ".") + "/site.stp";
  std::ofstream(path) << kFile;

  proj::Model model;
  const int errors = model.Read(true, path.data());
  int instances = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++instances;
  std::printf("%s: %d instances, %d errors\nElements\n", path.c_str(), instances, errors);
  ListElements(model);

  auto* wall = static_cast<proj::Wall*>(model.FindFirst(proj::kWall));
  if (!wall) return 1;
  std::printf("Doors of %s\n", static_cast<const char*>(wall->name));
  ListDoors(*wall);
  return errors == 0 && instances == 5 ? 0 : 1;
}
