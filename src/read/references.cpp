// The readers of single references and of selects. Each reads tokens in clear text (...FromTokens), or the element of
// its name in XML (...FromElement). Both forms resolve a number in the same way.
#include "read/transfer/references.h"

#include <cstring>

#include "read/attribute.h"
#include "read/tokeniser.h"
#include "read/transfer/instance_table.h"
#include "read/transfer/place.h"
#include "read/transfer/report.h"
#include "steprt/read.h"
#include "steprt/select.h"
#include "support/memory.h"
#include "support/number_parse.h"
#include "xml/values/element.h"
#include "xml/values/kind.h"

namespace {

using namespace steprt;

constexpr int kAnyType = -1;

// The skip comes before the report, unlike for scalars: the report names the line that the skip has reached.
// This is intended (Attributes.GiveWhatTheirRowsSay).
void RefuseReference(STEPtransfer* t, int token) {
  NoteFault(t);
  SkipAttribute(t, token);
  ReportError(t, kMissingReference);
}

void StoreAndCheck(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  CheckType(t, StoreReference(t, number, expected, slot), expected);
}

void ReferenceFromTokens(STEPtransfer* t, STEPheader** slot, int expected) {
  const int token = NextAttrToken(t);
  switch (token) {
    case TOK_SEMI:
      return;
    case TOK_NULL:
      *slot = nullptr;
      return;
    case TOK_REF:
      return StoreAndCheck(t, t->value.integer, expected, slot);
    default:
      return RefuseReference(t, token);
  }
}

// Any text that is no reference is a null one, without a report.
void ReferenceFromElement(STEPtransfer* t, const char* name, STEPheader** slot, int expected) {
  const char* text = ElementValue(t, name);
  const int number = *text == '#' ? TextToInt(text + 1) : 0;
  if (number > 0) return StoreAndCheck(t, number, expected, slot);
  *slot = nullptr;
}

// As below, but a record that made no instance is reported, and one may refer to itself.
[[gnu::noinline]] void WideSelectReference(STEPtransfer* t, int number, STEPselect* select) {
  const StoredReference stored = StoreReference(t, number, kAnyType, &select->value.object);
  select->SetSTEPobj(stored.entry ? stored.entry->object : nullptr);
}

// A number of a record that made no instance is a null object, without a report. No type is tested: the select takes
// every one. A forward reference is a null object until the end of the transfer.
void SelectReference(STEPtransfer* t, int number, STEPselect* select) {
  if (t->wide) return WideSelectReference(t, number, select);
  if (const STEPentry* entry = FindEntry(t, number)) return select->SetSTEPobj(entry->object);
  if (!AddFixup(t, number, kAnyType, &select->value.object)) return ReportError(t, kOutOfMemory);
  select->SetSTEPobj(nullptr);
}

// A text that cannot be copied leaves the select as it was, without a report.
void SelectText(STEPselect* select, const char* text) {
  if (char* copy = CopyTextOrNull(text)) select->SetCharPtr(copy);
}

void SelectFromTokens(STEPtransfer* t, STEPselect* select) {
  const int token = NextAttrToken(t);
  switch (token) {
    case TOK_SEMI:
      return;
    case TOK_NULL:
      return select->SetSTEPobj(nullptr);
    case TOK_INT:
      return select->SetInt(t->value.integer);
    case TOK_REAL:
      return select->SetReal(t->value.real);
    case TOK_TEXT:
      return SelectText(select, t->value.text);
    case TOK_REF:
      return SelectReference(t, t->value.integer, select);
    default:
      return RefuseReference(t, token);
  }
}

// An empty text, a name and an enumerator leave the select as it was, without a report.
void SelectFromElement(STEPtransfer* t, const char* name, STEPselect* select) {
  const char* text = ElementValue(t, name);
  switch (ClassifyText(text)) {
    case TOK_NULL:
      return select->SetSTEPobj(nullptr);
    case TOK_INT:
      return select->SetInt(TextToInt(text));
    case TOK_REAL:
      return select->SetReal(TextToReal(text));
    case TOK_TEXT:
      return SelectText(select, text);
    case TOK_REF:  // blanks and signs may precede it
      return SelectReference(t, TextToInt(std::strchr(text, '#') + 1), select);
    default:
      return;
  }
}

}  // namespace

// `$` is accepted whatever `allowNull` says. This is intended (References.ANullIsTakenEvenIfItIsNotAllowed).
void xrSTEPref(STEPtransfer* t, const char* name, STEPheader** slot, int expected, bool /*allowNull*/) {
  if (TakesElement(t, name)) return ReferenceFromElement(t, name, slot, expected);
  ReferenceFromTokens(t, slot, expected);
}

void rSTEPsel(STEPtransfer* t, const char* name, STEPselect* select) {
  if (TakesElement(t, name)) return SelectFromElement(t, name, select);
  SelectFromTokens(t, select);
}
