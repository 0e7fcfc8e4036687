// A module that contains a schema: FURNITURE, which adds CHAIR and CABINET to the elements of PROJ. A host attaches it
// by the entry AttachFurniture and fetches its other entries by number.
#include <steprt/module.h>

#include "proj/schema.h"

namespace {

enum FurnitureType { kFurniture = 100, kChair, kCabinet };  // beyond the numbers of PROJ

class Chair : public proj::Element {
 public:
  Chair() : Element(kChair) {}
  int legs = 0;
};

class Cabinet : public proj::Element {
 public:
  Cabinet() : Element(kCabinet) {}
  double width = 0;
};

STEPheader* ReadChair(STEPtransfer* t) {
  auto* chair = new Chair;
  chair->name = rSTEPtext(t, "Name");
  xrSTEPref(t, "Owner", &chair->owner, proj::kPerson, true);
  chair->legs = rSTEPint(t, "Legs");
  return chair;
}

void WriteChair(STEPtransfer* t, STEPheader* object) {
  auto* chair = static_cast<Chair*>(object);
  wSTEPtext(t, "Name", chair->name);
  xwSTEPref(t, "Owner", chair->owner);
  wSTEPint(t, "Legs", chair->legs);
}

STEPheader* ReadCabinet(STEPtransfer* t) {
  auto* cabinet = new Cabinet;
  cabinet->name = rSTEPtext(t, "Name");
  xrSTEPref(t, "Owner", &cabinet->owner, proj::kPerson, true);
  cabinet->width = rSTEPreal(t, "Width");
  return cabinet;
}

void WriteCabinet(STEPtransfer* t, STEPheader* object) {
  auto* cabinet = static_cast<Cabinet*>(object);
  wSTEPtext(t, "Name", cabinet->name);
  xwSTEPref(t, "Owner", cabinet->owner);
  wSTEPreal(t, "Width", cabinet->width);
}

// FURNITURE itself has no instances. Its supertype is in the schema that this one is added to.
constexpr APPentity kRows[] = {
    {"FURNITURE", nullptr, nullptr, kFurniture, "ELEMENT"},
    {"CHAIR", ReadChair, WriteChair, kChair, "FURNITURE"},
    {"CABINET", ReadCabinet, WriteCabinet, kCabinet, "FURNITURE"},
};
APPtable furniture("FURNITURE", kRows);

class Carrier : public STEPmodel {
 public:
  Carrier() { AppObj(&furniture); }
};

// The entries by number: 1 is unused, LoadFunct fetches from 2 on.

int TypeOfFurniture() { return kFurniture; }

int TypeOfChairs() { return kChair; }

const STEPentryFunc kEntries[] = {nullptr, TypeOfFurniture, TypeOfChairs};
const STEPentryTable kTable = {3, kEntries};

STEPmodule thisModule;  // adds the module to the chain in which STEPlib searches

}  // namespace

const STEPentryTable* STEPentries() { return &kTable; }

// AttachDll calls this with the host's model. If it returned false, the module would be released.
extern "C" STEPRT_API bool AttachFurniture(STEPmodel* model) {
  STEPmodel* const current = CurrentModel();
  Carrier carrier;  // becomes the current model
  CurrentModel(current);
  return model->AddModel(&carrier) == 1;
}
