#include "steprt/select.h"

#include "support/memory.h"

STEPselect::STEPselect() : value{nullptr}, tag(SEL_NONE) {}

STEPselect::STEPselect(const STEPselect& other) : value(other.value), tag(other.tag) {
  if (tag != SEL_TEXT || !value.text) return;
  value.text = steprt::CopyTextOrNull(value.text);
  if (!value.text) tag = SEL_NONE;
}

STEPselect::~STEPselect() {
  if (tag == SEL_TEXT) delete[] value.text;
}

STEPselect& STEPselect::operator=(const STEPselect& other) {
  value = other.value;
  tag = other.tag;
  return *this;
}

STEPselect::SelType STEPselect::Type() { return tag; }

int STEPselect::GetInt() { return tag == SEL_INT ? value.integer : 0; }

double STEPselect::GetReal() { return tag == SEL_REAL ? value.real : 0.0; }

char* STEPselect::GetCharPtr() { return tag == SEL_TEXT ? value.text : nullptr; }

STEPheader* STEPselect::GetSTEPobj() { return tag == SEL_OBJ ? value.object : nullptr; }

void STEPselect::SetInt(int integer) {
  value.integer = integer;
  tag = SEL_INT;
}

void STEPselect::SetReal(double real) {
  value.real = real;
  tag = SEL_REAL;
}

void STEPselect::SetCharPtr(char* text) {
  value.text = text;
  tag = SEL_TEXT;
}

void STEPselect::SetSTEPobj(STEPheader* object) {
  value.object = object;
  tag = SEL_OBJ;
}

void** STEPselect::GetSTEPObjAddr() { return &value.address; }
