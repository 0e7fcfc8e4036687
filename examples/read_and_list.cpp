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

const char* OwnerOf(const proj::Element& element) {
  return element.Owner.Get() ? element.Owner->Name.Get() : "unknown";
}

void ListElements(steprt::Model& model) {
  for (proj::Element& element : model.All<proj::Element>()) {  // walls and doors
    std::printf("  %-6s %-12s owner %s\n", element.EntityName(), element.Name.Get(), OwnerOf(element));
  }
}

void ListDoors(const proj::Wall& wall) {
  std::printf("Doors of %s\n", wall.Name.Get());
  for (proj::Door& door : wall.Doors) std::printf("  %s is %.2f m wide\n", door.Name.Get(), door.Width.Get());
}

}  // namespace

int main(int count, char** arguments) {
  const std::string path = std::string(count > 1 ? arguments[1] : ".") + "/site.stp";
  std::ofstream(path) << kFile;

  steprt::Model model(&proj::schema);
  const int errors = model.Read(path, true);
  int instances = 0;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) ++instances;
  std::printf("%s: %d instances, %d errors\nElements\n", path.c_str(), instances, errors);
  ListElements(model);
  for (proj::Wall& wall : model.All<proj::Wall>()) ListDoors(wall);
  return errors == 0 && instances == 5 ? 0 : 1;
}
