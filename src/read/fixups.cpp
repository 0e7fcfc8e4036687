#include "read/fixups.h"

#include "read/instance_table.h"
#include "read/report.h"
#include "steprt/instance.h"

namespace steprt {
namespace {

struct Pending {
  const STEPfixup* fixup;
  STEPentry* entry;
};

// The slot of an unknown number is not touched; that of a wrong type keeps the instance.
void Settle(STEPtransfer* t, const STEPfixup& fixup, STEPentry* entry) {
  if (!entry) return ReportError(t, kUnknownReference, fixup.number);
  *fixup.slot = entry->object;
  if (!entry->object) return ReportNoObject(t, fixup.number);
  if (!t->lookups.IsSubtype(fixup.expected, TypeOf(entry))) ReportWrongType(t, entry->object);
}

// Settles up to kBatch references and gives the first one behind them. Rows, objects and slots lie scattered over
// memory, so each is asked for some steps before it is looked at.
const STEPfixup* SettleBatch(STEPtransfer* t, const STEPfixup* fixups) {
  constexpr int kBatch = 32;
  Pending batch[kBatch];
  int count = 0;
  for (; fixups && count < kBatch; fixups = fixups->next) {
    batch[count++].fixup = fixups;
    t->entries.Prefetch(fixups->number);
    __builtin_prefetch(fixups->slot, 1);
  }
  for (int i = 0; i < count; ++i) {
    batch[i].entry = FindEntry(t, batch[i].fixup->number);
    if (batch[i].entry) PrefetchType(batch[i].entry->object);
  }
  for (int i = 0; i < count; ++i) Settle(t, *batch[i].fixup, batch[i].entry);
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
  for (const STEPfixup* fixups = t->fixups; fixups;) fixups = SettleBatch(t, fixups);
}

void ReportNoObject(STEPtransfer* t, int number) { ReportError(t, kReferenceToNothing, number); }

void ReportWrongType(STEPtransfer* t, STEPheader* object) { ReportError(t, kReferenceToWrongType, object->id); }

}  // namespace steprt
