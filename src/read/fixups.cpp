#include "read/fixups.h"

#include "read/instance_table.h"
#include "read/report.h"
#include "steprt/instance.h"

namespace steprt {
namespace {

// The slot of an unknown number is not touched; that of a wrong type keeps the instance.
void ResolveFixup(STEPtransfer* t, const STEPfixup& fixup) {
  const STEPentry* entry = FindEntry(t, fixup.number);
  if (!entry) return ReportError(t, kUnknownReference, fixup.number);
  *fixup.slot = entry->object;
  if (!entry->object) return ReportNoObject(t, fixup.number);
  if (!t->lookups.IsSubtype(fixup.expected, entry->object->type)) ReportWrongType(t, entry->object);
}

}  // namespace

STEPfixup* AddFixup(STEPtransfer* t, int number) {
  STEPfixup* fixup = t->fixupPool.Make();
  if (!fixup) return nullptr;
  *fixup = {t->fixups, number, -1, nullptr};
  return t->fixups = fixup;
}

void ResolveFixups(STEPtransfer* t) {
  for (const STEPfixup* fixup = t->fixups; fixup; fixup = fixup->next) ResolveFixup(t, *fixup);
}

void ReportNoObject(STEPtransfer* t, int number) { ReportError(t, kReferenceToNothing, number); }

void ReportWrongType(STEPtransfer* t, STEPheader* object) { ReportError(t, kReferenceToWrongType, object->id); }

}  // namespace steprt
