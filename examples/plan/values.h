// What the attributes of an entity are made of: references, lists that own their nodes, and enumerations.
#ifndef PLAN_VALUES_H
#define PLAN_VALUES_H

#include <steprt/step.h>

#include <new>
#include <vector>

namespace plan {

// The names of an enumeration, with their dots. Position 0 is the omitted value, so a new entity has none, and an
// omitted value is written back as it was read.
struct Enumerators {
  const char** names;
  int count;
};

// A reference. The reader stores an instance of the wrong type too, with a report, so each use asks for the class.
template <class T>
struct Ref {
  STEPheader* object = nullptr;

  T* Get() const { return dynamic_cast<T*>(object); }
  Ref& operator=(STEPheader* other) {
    object = other;
    return *this;
  }
};

// A list attribute. The library makes the aggregate, its owner here releases it.
class List {
 public:
  List() = default;
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() {
    if (!aggregate) return;
    DeleteSTEPlist(&aggregate->head);
    delete aggregate;
  }

  STEPlist* Head() const { return aggregate ? aggregate->head : nullptr; }

  // Returns the aggregate, and creates it if there is none yet; null when memory runs out.
  STEPaggr* Need() {
    if (!aggregate) aggregate = new (std::nothrow) STEPaggr;
    return aggregate;
  }

  STEPaggr* aggregate = nullptr;
};

template <class T>
class RefList : public List {
 public:
  // The members of class T, or of a class of the caller's; null members and other instances are left out.
  template <class U = T>
  std::vector<U*> All() const {
    std::vector<U*> members;
    for (STEPlist* node = Head(); node; node = node->next) {
      if (U* member = dynamic_cast<U*>(node->value.object)) members.push_back(member);
    }
    return members;
  }
  void Add(STEPheader* object) {
    if (STEPaggr* list = Need()) list->Append(object);
  }
};

class NumberList : public List {
 public:
  double At(int index, double otherwise = 0) const {
    STEPlist* node = Head();
    while (node && index-- > 0) node = node->next;
    return node ? node->value.real : otherwise;
  }
  void Add(double number) {
    if (STEPaggr* list = Need()) list->Append(number);
  }
};

// A list of texts owns the texts as well; the library's release of the nodes leaves them alone.
class TextList : public List {
 public:
  ~TextList() {
    for (STEPlist* node = Head(); node; node = node->next) delete[] node->value.text;
  }
};

// A number that may be omitted, out of the select that holds it.
inline double NumberOr(STEPselect& value, double otherwise) {
  if (value.Type() == STEPselect::SEL_INT) return value.GetInt();
  if (value.Type() == STEPselect::SEL_REAL) return value.GetReal();
  return otherwise;
}

extern const Enumerators kDerivedMark;

}  // namespace plan

#endif
