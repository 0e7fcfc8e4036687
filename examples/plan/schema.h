// The schema of this program, a hand-written part of IFC2X3, and a model that is bound to it.
#ifndef PLAN_SCHEMA_H
#define PLAN_SCHEMA_H

#include <steprt/step.h>

#include "building.h"

namespace plan {

// Reports of this schema's transfers go to Reports(), see report.h.
APPobject0* Schema();

class BuildingModel : public STEPmodel {
 public:
  // `shownReports`: how many reports of a transfer are shown as they come; all of them are counted.
  explicit BuildingModel(int shownReports) : STEPmodel(shownReports) {
    AppObj(Schema());
    PrepareHash();
  }

  // A second, empty population of the same schema. It uses the other's index, so the other one must outlive it.
  explicit BuildingModel(BuildingModel& other) : STEPmodel(&other) {}
};

// Calls visit(T&) for each instance of T in the model, subtypes included, in the order of the file.
template <class T, class Visit>
void ForEach(STEPmodel& model, Visit visit) {
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) {
    if (T* entity = dynamic_cast<T*>(object)) visit(*entity);
  }
}

// The first instance of T, subtypes included; null if there is none.
template <class T>
T* First(STEPmodel& model) {
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) {
    if (T* entity = dynamic_cast<T*>(object)) return entity;
  }
  return nullptr;
}

}  // namespace plan

#endif
