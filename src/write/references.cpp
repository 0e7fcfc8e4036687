// The writers of single references and of selects.
#include "steprt/select.h"
#include "steprt/write.h"
#include "write/comma.h"
#include "write/element.h"
#include "write/values.h"
#include "write/wide_values.h"

namespace {

using namespace steprt;

void ReferenceToTokens(STEPtransfer* t, STEPheader* object) {
  PutComma(t, TOK_REF);
  PutReference(t, object);
}

void ReferenceToElement(STEPtransfer* t, const char* name, STEPheader* object) {
  PutElement(t, name, [=] { PutReference(t, object); });
}

}  // namespace

void xwSTEPref(STEPtransfer* t, const char* name, STEPheader* object) {
  if (t->xml) return t->wideWrite ? WriteWideReference(t, name, object) : ReferenceToElement(t, name, object);
  ReferenceToTokens(t, object);
}

// The value alone is written: the file does not say of which type of the SELECT it is.
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
