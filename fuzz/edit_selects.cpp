#include "edit_selects.h"

#include <cstring>

#include "check.h"

namespace fuzz {

void Selects::Step(Bytes& bytes, STEPheader* object) {
  Held& held = held_[bytes.Below(3)];
  Held& other = held_[bytes.Below(3)];
  switch (bytes.Below(4)) {
    case 0: {
      STEPselect copy(held.select);  // with a text of its own
      Compare(held, copy);
      break;
    }
    case 1:
      Assign(held, other);
      break;
    default:
      ReleaseText(held.select);
      Set(bytes, object, held);
  }
  for (Held& each : held_) Compare(each, each.select);
}

void Selects::Set(Bytes& bytes, STEPheader* object, Held& held) {
  STEPselect& select = held.select;
  switch (bytes.Below(5)) {
    case 0:
      select.SetInt(held.integer = bytes.Any<int>());
      held.kind = STEPselect::SEL_INT;
      break;
    case 1:
      select.SetReal(held.real = bytes.Any<double>());
      held.kind = STEPselect::SEL_REAL;
      break;
    case 2: {
      held.text = bytes.Text();
      char* copy = new char[held.text.size() + 1];
      select.SetCharPtr(std::strcpy(copy, held.text.c_str()));
      held.kind = STEPselect::SEL_TEXT;
      break;
    }
    case 3:
      select.SetSTEPobj(held.object = object);
      held.kind = STEPselect::SEL_OBJ;
      break;
    default:
      select.SetSTEPobj(nullptr);
      *select.GetSTEPObjAddr() = held.object = object;
      held.kind = STEPselect::SEL_OBJ;
  }
}

// The assignment hands the same text to both; the source gives it up.
void Selects::Assign(Held& target, Held& source) {
  if (&target == &source) return;
  ReleaseText(target.select);
  target.select = source.select;
  target.kind = source.kind;
  target.integer = source.integer;
  target.real = source.real;
  target.text = source.text;
  target.object = source.object;
  source.select.SetInt(source.integer = 0);
  source.kind = STEPselect::SEL_INT;
}

void Selects::ReleaseText(STEPselect& select) { delete[] select.GetCharPtr(); }

void Selects::Compare(const Held& expected, STEPselect& select) {
  STEPRT_CHECK(select.Type() == expected.kind);
  STEPRT_CHECK(select.GetInt() == (expected.kind == STEPselect::SEL_INT ? expected.integer : 0));
  const double real = expected.kind == STEPselect::SEL_REAL ? expected.real : 0.0;
  const double held = select.GetReal();
  STEPRT_CHECK(std::memcmp(&held, &real, sizeof real) == 0);
  STEPRT_CHECK(select.GetSTEPobj() == (expected.kind == STEPselect::SEL_OBJ ? expected.object : nullptr));
  const char* text = select.GetCharPtr();
  STEPRT_CHECK((text != nullptr) == (expected.kind == STEPselect::SEL_TEXT));
  if (text) STEPRT_CHECK(expected.text == text);
}

}  // namespace fuzz
