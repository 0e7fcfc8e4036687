// One description of an entity's attributes, and all that is done with it.
//
//   struct Slab : BuildingElement {
//     int predefinedType = 0;
//     void Describe(Attributes& a) override {
//       BuildingElement::Describe(a);
//       a.Enumeration("PredefinedType", predefinedType, kSlabTypes);
//     }
//   };
//
// Describe names each attribute once, in the order of the schema. Reading, writing and comparing are three visitors of
// it: see transfer.cpp and compare.cpp. The names are IFC's own; they become the elements of the XML form.
#ifndef PLAN_ATTRIBUTES_H
#define PLAN_ATTRIBUTES_H

#include <steprt/step.h>

#include "values.h"

namespace plan {

class Attributes {
 public:
  virtual ~Attributes() = default;

  virtual void Text(const char* name, STEPstring& value) = 0;  // an empty text is an omitted one
  virtual void Integer(const char* name, int& value) = 0;
  virtual void Real(const char* name, double& value) = 0;
  virtual void Boolean(const char* name, bool& value) = 0;
  virtual void Enumeration(const char* name, int& value, const Enumerators& names) = 0;

  // The value of a SELECT. It also serves for a number that may be omitted: the number readers take no `$`, and a
  // select takes a number or `$` and writes back what it took.
  virtual void Select(const char* name, STEPselect& value) = 0;

  virtual void Numbers(const char* name, NumberList& value) = 0;
  virtual void Texts(const char* name, TextList& value) = 0;

  template <class T>
  void Reference(const char* name, Ref<T>& value) {
    ReferenceTo(name, value.object, T::kType);
  }
  template <class T>
  void References(const char* name, RefList<T>& value) {
    ReferencesTo(name, value, T::kType);
  }

  // An attribute that a subtype derives. Its value is `*` in every file.
  void Derived(const char* name) {
    int only = 0;
    Enumeration(name, only, kDerivedMark);
  }

 protected:
  virtual void ReferenceTo(const char* name, STEPheader*& value, int type) = 0;
  virtual void ReferencesTo(const char* name, List& value, int type) = 0;
};

// The base of all entity classes of this program. An instance joins the current model.
class Entity : public STEPheader {
 public:
  static constexpr int kType = -1;  // as the type of a reference: every entity will do

  Entity() : STEPheader(nullptr) {}
  virtual void Describe(Attributes& attributes) = 0;
};

// Returns a new instance in the current model, or null when memory runs out. The model destroys it.
template <class T>
T* Make() {
  T* entity = new (std::nothrow) T;
  if (entity) entity->Type(T::kType);
  return entity;
}

}  // namespace plan

#endif
