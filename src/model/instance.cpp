#include "steprt/instance.h"

#include "schema/lookup.h"
#include "steprt/model.h"
#include "steprt/text.h"

namespace {

constexpr int kIdLimit = sizeof(STEPheader::id) - 1;

}  // namespace

STEPheader::STEPheader(void* owner) : type(-1), number(0), model(static_cast<STEPmodel*>(owner)) {
  id[0] = '\0';
  if (!model) model = CurrentModel();
  if (!model) {
    next = nullptr;
    return;
  }
  next = *model->tail;
  *model->tail = this;
  model->tail = &next;
}

STEPheader::STEPheader(const STEPheader& other) = default;

STEPheader::~STEPheader() {
  if (model) model->RmInst(this);
}

STEPheader& STEPheader::operator=(const STEPheader& other) = default;

char* STEPheader::Id() { return id; }

void STEPheader::Id(char* text) { Id(const_cast<const char*>(text)); }

void STEPheader::Id(const char* text) {
  if (text) Copy(id, text, kIdLimit);
}

int STEPheader::Type() { return type; }

void STEPheader::Type(int value) { type = value; }

STEPmodel* STEPheader::Model() { return model; }

STEPheader* STEPheader::NextHead() { return next; }

void STEPheader::NextHead(STEPheader* value) { next = value; }

STEPheader** STEPheader::pNextHead() { return &next; }

void STEPheader::Changed() {
  if (model) model->changed = true;
}

// Returns the empty text where STEPmodel::EntityName returns "Unknown". The difference is intended.
const char* STEPheader::EntityName() {
  if (!model) return "";
  const APPentity* row = steprt::FindEntityByType(type, model->schema);
  return row ? row->name : "";
}

bool STEPheader::IsKindOf(int ancestor) { return steprt::IsSubtype(model ? model->schema : nullptr, ancestor, type); }
