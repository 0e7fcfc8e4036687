// The writers of single references and of selects.
#include "steprt/select.h"
#include "steprt/write.h"
#include "write/comma.h"
#include "write/values.h"

void xwSTEPref(STEPtransfer* t, const char* /*name*/, STEPheader* object) {
  steprt::PutComma(t, TOK_REF);
  steprt::PutReference(t, object);
}

// The value stands bare: the file does not say which branch of the SELECT it is.
void wSTEPsel(STEPtransfer* t, const char* name, STEPselect* select) {
  switch (select ? select->tag : STEPselect::SEL_NONE) {
    case STEPselect::SEL_INT:
      return wSTEPint(t, name, select->value.integer);
    case STEPselect::SEL_REAL:
      return wSTEPreal(t, name, select->value.real);
    case STEPselect::SEL_TEXT:
      return wSTEPtext(t, name, select->value.text);
    case STEPselect::SEL_OBJ:
      return xwSTEPref(t, name, select->value.object);
    default:
      return xwSTEPref(t, name, nullptr);
  }
}
