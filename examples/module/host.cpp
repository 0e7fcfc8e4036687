// Attaches a module at run time, adds its schema to its own, reads a file that needs both, and releases the module. At
// the end it checks that the module is no longer loaded.
//
//   attach_module MODULE [FOLDER]
#include <dlfcn.h>
#include <steprt/step.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "proj/schema.h"

namespace {

const char kFile[] =
    "ISO-10303-21;\n"
    "HEADER;\n"
    "FILE_SCHEMA(('PROJ','FURNITURE'));\n"
    "ENDSEC;\n"
    "DATA;\n"
    "#1=PERSON('Ada',36);\n"
    "#2=DOOR('Front door',#1,0.9,.LEFT.);\n"
    "#3=CHAIR('Armchair',#1,4);\n"
    "#4=CABINET('Cupboard',$,1.2);\n"
    "ENDSEC;\n"
    "END-ISO-10303-21;\n";

// The module's entries, fetched by number.
class Furniture : public STEPlib {
 public:
  explicit Furniture(HINSTANCE module) : STEPlib(module) {}
  bool Load() { return LoadFunct(entries_, 2) == 1; }
  int AnyType() { return entries_[0](); }
  int ChairType() { return entries_[1](); }

 private:
  Entry entries_[2] = {};
};

int List(const char* what, steprt::Model& model, int type) {
  std::printf("%s:\n", what);
  STEPlist* found = model.GetSTEPlist(type, 3);
  int count = 0;
  for (const STEPlist* node = found; node; node = node->next, ++count) {
    auto* element = static_cast<proj::Element*>(node->value.object);
    std::printf("  %-8s %s\n", element->EntityName(), element->Name.Get());
  }
  DeleteSTEPlist(&found);
  return count;
}

bool ReadAndList(steprt::Model& model, Furniture& furniture, const std::string& path) {
  model.PrepareHash();  // after the schemas are joined: an index does not find rows that are added later
  return model.Read(path, true) == 0 && List("Elements", model, proj::Element::kType) == 3 &&
         List("Furniture", model, furniture.AnyType()) == 2 && List("Chairs", model, furniture.ChairType()) == 1;
}

// Main destroys the model before it releases the module, because some instances are of the module's classes.
bool Run(Furniture& furniture, steprt::Model& model, const std::string& path) {
  std::ofstream(path) << kFile;
  return furniture.Load() && ReadAndList(model, furniture, path);
}

bool IsLoaded(const char* path) {
  void* module = dlopen(path, RTLD_LAZY | RTLD_NOLOAD);
  if (module) dlclose(module);
  return module != nullptr;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const std::string path = std::string(count > 2 ? arguments[2] : ".") + "/furnished.stp";

  bool good = false;
  Furniture* furniture = nullptr;
  {
    steprt::Model model(&proj::schema);
    HINSTANCE module = model.AttachDll(arguments[1], "AttachFurniture");
    if (!module) return 1;
    furniture = new Furniture(module);
    good = Run(*furniture, model, path);
  }
  proj::schema.next = nullptr;  // the module's descriptor is gone with the module
  furniture->UnloadDLL(1);      // releases what AttachDll loaded, and destroys the object
  if (IsLoaded(arguments[1])) {
    std::printf("The module is still loaded\n");
    return 1;
  }
  std::printf("The module is unloaded\n");
  return good ? 0 : 1;
}
