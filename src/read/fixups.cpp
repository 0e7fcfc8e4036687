#include "read/fixups.h"

#include "read/instance_table.h"
#include "read/report.h"
#include "steprt/instance.h"

namespace steprt {
namespace {

// The slot of an unknown number is not touched; that of a wrong type keeps the instance.
void ResolveFixup(STEPtransfer* t, const STEPfixup& fixup, const STEPentry* entry) {
  if (!entry) return ReportError(t, kUnknownReference, fixup.number);
  *fixup.slot = entry->object;
  if (!entry->object) return ReportNoObject(t, fixup.number);
  if (!t->lookups.IsSubtype(fixup.expected, entry->object->type)) ReportWrongType(t, entry->object);
}

// Settles up to kBatch references and gives the first one behind them. Entries, slots and instances lie scattered over
// memory, so each is asked for some steps before it is looked at.
const STEPfixup* ResolveBatch(STEPtransfer* t, const STEPfixup* fixups) {
  constexpr int kBatch = 32;
  const STEPfixup* batch[kBatch];
  const STEPentry* entries[kBatch];
  int count = 0;
  for (; fixups && count < kBatch; fixups = fixups->next) batch[count++] = fixups;
  for (int i = 0; i < count; ++i) {
    entries[i] = FindEntry(t, batch[i]->number);
    __builtin_prefetch(entries[i]);
    __builtin_prefetch(batch[i]->slot, 1);
  }
  for (int i = 0; i < count; ++i) {
    if (entries[i] && entries[i]->object) __builtin_prefetch(&entries[i]->object->type);
  }
  for (int i = 0; i < count; ++i) ResolveFixup(t, *batch[i], entries[i]);
  return fixups;
}

}  // namespace

STEPfixup* AddFixup(STEPtransfer* t, int number) {
  STEPfixup* fixup = t->fixupPool.Make();
  if (!fixup) return nullptr;
  *fixup = {t->fixups, number, -1, nullptr};
  return t->fixups = fixup;
}

void ResolveFixups(STEPtransfer* t) {
  for (const STEPfixup* fixups = t->fixups; fixups;) fixups = ResolveBatch(t, fixups);
}

void ReportNoObject(STEPtransfer* t, int number) { ReportError(t, kReferenceToNothing, number); }

void ReportWrongType(STEPtransfer* t, STEPheader* object) { ReportError(t, kReferenceToWrongType, object->id); }

}  // namespace steprt
