#include "steprt/model.h"

#include <climits>

#include "steprt/instance.h"
#include "steprt/standard.h"
#include "steprt/text.h"

namespace {

constexpr int kNameLimit = sizeof(STEPmodel::name) - 1;
constexpr int kDefaultErrorLimit = 10;
constexpr int kLastId = 99999;

}  // namespace

STEPmodel::STEPmodel(int limit)
    : name(""),
      first(nullptr),
      tail(&first),
      schema(nullptr),
      changed(false),
      locked(false),
      shared(false),
      errorsLeft(limit),
      errorLimit(limit),
      lastId(0) {
  CurrentModel(this);
}

STEPmodel::STEPmodel(STEPmodel* other)
    : name(""),
      first(nullptr),
      tail(&first),
      schema(other ? other->schema : nullptr),
      changed(false),
      locked(false),
      shared(true),
      errorsLeft(kDefaultErrorLimit),
      errorLimit(kDefaultErrorLimit),
      lastId(0) {}

STEPmodel::STEPmodel(const STEPmodel& other) = default;

STEPmodel::~STEPmodel() {
  Delete();
  if (!shared) RemoveHash();
}

STEPmodel& STEPmodel::operator=(const STEPmodel& other) = default;

char* STEPmodel::Name() { return name; }

void STEPmodel::Name(char* text) { Name(const_cast<const char*>(text)); }

void STEPmodel::Name(const char* text) {
  if (text) Copy(name, text, kNameLimit);
}

STEPheader* STEPmodel::Inst() { return first; }

int STEPmodel::IsEmpty() { return first ? 0 : 1; }

void STEPmodel::Insert(STEPheader* object) {
  if (!object) return;
  if (object->model) object->model->RmInst(object);
  AddInst(object);
  object->model = this;
  if (object->type != STEPcomplex::kType) return;
  if (auto* complex = dynamic_cast<STEPcomplex*>(object)) {
    for (STEPheader* part = complex->Parts(); part; part = part->next) part->model = this;
  }
}

void STEPmodel::AddInst(STEPheader* object) {
  if (!object) return;
  object->next = *tail;
  *tail = object;
  tail = &object->next;
}

void STEPmodel::RmInst(STEPheader* object) {
  for (STEPheader** link = &first; *link; link = &(*link)->next) {
    if (*link != object) continue;
    *link = object->next;
    if (!*link) tail = link;
    return;
  }
}

// Each destructor removes its instance from the list, so `first` becomes the next one.
void STEPmodel::Delete() {
  while (first) {
    if (!first->model) first->model = this;     // AddInst does not set it
    if (first->model != this) first = nullptr;  // the list of the model that this one is a copy of
    delete first;
  }
  tail = &first;
  lastId = 0;
}

STEPheader* STEPmodel::FindFirst(int type) {
  STEPheader* object = first;
  while (object && object->type != type) object = object->next;
  return object;
}

bool STEPmodel::Changed() { return changed; }

void STEPmodel::SetChanged(bool value) { changed = value; }

bool STEPmodel::Locked() { return locked; }

void STEPmodel::SetLocked(bool value) { locked = value; }

// After the last number comes 0, not 1. That is intended.
int STEPmodel::GetEntId() {
  lastId = lastId >= kLastId ? 0 : lastId + 1;
  return lastId;
}

int STEPmodel::ErrShow() {
  const bool isLeft = errorsLeft > 0;
  if (errorsLeft > INT_MIN) --errorsLeft;
  return isLeft ? 1 : 0;
}

void STEPmodel::ErrShow(int limit) { errorLimit = limit; }
