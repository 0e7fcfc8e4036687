// A module that contains a schema: FURNITURE, which adds CHAIR and CABINET to the elements of PROJ. A host attaches it
// by the entry AttachFurniture and fetches its other entries by number.
#include <steprt/module.h>

#include "proj/schema.h"

namespace {

// FURNITURE itself has no instances. Its supertype is in the schema that this one is added to. The numbers are beyond
// those of PROJ.
struct Furniture : steprt::AbstractEntity<Furniture, 100, proj::Element> {
  static constexpr const char* kKeyword = "FURNITURE";
};

struct Chair : steprt::Entity<Chair, 101, Furniture> {
  static constexpr const char* kKeyword = "CHAIR";
  steprt::Integer Legs;
  void Describe(steprt::Description& d) override {
    Super::Describe(d);
    d("Legs", Legs);
  }
};

struct Cabinet : steprt::Entity<Cabinet, 102, Furniture> {
  static constexpr const char* kKeyword = "CABINET";
  steprt::Real Width;
  void Describe(steprt::Description& d) override {
    Super::Describe(d);
    d("Width", Width);
  }
};

auto furniture = steprt::Schema<Furniture, Chair, Cabinet>("FURNITURE");

// The entries by number: 1 is unused, LoadFunct fetches from 2 on.

int TypeOfFurniture() { return Furniture::kType; }

int TypeOfChairs() { return Chair::kType; }

const STEPentryFunc kEntries[] = {nullptr, TypeOfFurniture, TypeOfChairs};
const STEPentryTable kTable = {3, kEntries};

STEPmodule thisModule;  // adds the module to the chain in which STEPlib searches

}  // namespace

const STEPentryTable* STEPentries() { return &kTable; }

// AttachDll calls this with the host's model. If it returned false, the module would be released.
extern "C" STEPRT_API bool AttachFurniture(STEPmodel* model) {
  STEPmodel* const current = CurrentModel();
  steprt::Model carrier(&furniture);  // becomes the current model
  CurrentModel(current);
  return model->AddModel(&carrier) == 1;
}
