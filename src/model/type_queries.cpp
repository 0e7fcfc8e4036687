// The queries of STEPmodel: the instances of a type, from the model or from an aggregate, in the order of the source.
#include "steprt/aggregate.h"
#include "steprt/instance.h"
#include "steprt/model.h"
#include "steprt/schema.h"
#include "support/memory.h"

namespace {

using steprt::MakeOrNull;

constexpr int kMaxTypes = 31;
constexpr int kAllLevels = 31;

// The types that a query asks for.
class TypeSet {
 public:
  // With a depth below 2 the schema is not needed, and the type may have no row.
  TypeSet(APPobject0* schema, int type, int depth) {
    if (depth >= 2) {
      count_ = ExtractTypes(schema, type, types_, kMaxTypes, depth);
    } else {
      types_[count_++] = type;
    }
  }

  bool Holds(int type) const {
    for (int i = 0; i < count_; ++i) {
      if (types_[i] == type) return true;
    }
    return false;
  }

 private:
  int types_[kMaxTypes];
  int count_ = 0;
};

// The answer of a query, built at its end.
class Answer {
 public:
  explicit Answer(STEPlist** head) : tail_(head) {}

  // Returns false when memory runs out.
  [[nodiscard]] bool Add(STEPheader* object) {
    auto* node = MakeOrNull<STEPlist>();
    if (!node) return false;
    node->value.object = object;
    *tail_ = node;
    tail_ = &node->next;
    return true;
  }

 private:
  STEPlist** tail_;
};

}  // namespace

STEPlist* STEPmodel::GetSTEPlist(int type, int depth) {
  const TypeSet wanted(schema, type, depth);
  STEPlist* head = nullptr;
  Answer answer(&head);
  for (STEPheader* object = first; object; object = object->next) {
    if (wanted.Holds(object->type) && !answer.Add(object)) break;
  }
  return head;
}

STEPaggr* STEPmodel::GetSTEPaggr(int type, int depth) {
  auto* result = MakeOrNull<STEPaggr>();
  if (result) result->head = GetSTEPlist(type, depth);
  return result;
}

STEPaggr* STEPmodel::GetSTEPaggrAll(int type) { return GetSTEPaggr(type, kAllLevels); }

STEPaggr* STEPmodel::GetSTEPaggr(STEPaggr* source, int type, int depth) {
  const TypeSet wanted(schema, type, depth);
  auto* result = MakeOrNull<STEPaggr>();
  if (!result) return nullptr;
  Answer answer(&result->head);
  for (const STEPlist* node = source ? source->head : nullptr; node; node = node->next) {
    STEPheader* object = node->value.object;
    if (object && wanted.Holds(object->type) && !answer.Add(object)) break;
  }
  return result;
}

STEPaggr* STEPmodel::GetSTEPaggrAll(STEPaggr* source, int type) { return GetSTEPaggr(source, type, kAllLevels); }
