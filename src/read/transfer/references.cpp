#include "read/transfer/references.h"

#include "read/transfer/instance_table.h"
#include "read/transfer/report.h"
#include "steprt/instance.h"
#include "steprt/standard.h"

namespace steprt {
namespace {

void ReportNoObject(STEPtransfer* t, int number) { ReportError(t, kReferenceToNothing, number); }

// Reports an object that is not of the type, unless it is a complex instance with a part that is.
[[gnu::noinline]] void ReportWrongType(STEPtransfer* t, STEPheader* object, int expected) {
  if (auto* complex = object->type == STEPcomplex::kType ? dynamic_cast<STEPcomplex*>(object) : nullptr) {
    for (STEPheader* part = complex->Parts(); part; part = part->next) {
      if (t->lookups.IsSubtype(expected, part->type)) return;
    }
  }
  ReportError(t, kReferenceToWrongType, object->id);
}

void CheckType(STEPtransfer* t, STEPentry* entry, int expected) {
  if (!t->lookups.IsSubtype(expected, TypeOf(entry))) ReportWrongType(t, entry->object, expected);
}

// The slot of an unknown number is not changed. That of a wrong type keeps the instance.
void Resolve(STEPtransfer* t, const STEPfixup& fixup, STEPentry* entry) {
  if (!entry) return ReportError(t, kUnknownReference, fixup.number);
  *fixup.slot = entry->object;
  if (!entry->object) return ReportNoObject(t, fixup.number);
  CheckType(t, entry, fixup.expected);
}

// Resolves a batch and returns the first fixup after it. Entries, objects and slots are scattered over memory, so each
// is prefetched some steps before it is used.
const STEPfixup* ResolveBatch(STEPtransfer* t, const STEPfixup* fixups) {
  constexpr int kBatch = 32;
  struct {
    const STEPfixup* fixup;
    STEPentry* entry;
  } batch[kBatch];
  int count = 0;
  for (; fixups && count < kBatch; fixups = fixups->next) {
    batch[count++].fixup = fixups;
    t->store->entries.Prefetch(fixups->number);
    __builtin_prefetch(fixups->slot, 1);
  }
  for (int i = 0; i < count; ++i) {
    batch[i].entry = FindEntry(t, batch[i].fixup->number);
    if (batch[i].entry) PrefetchType(batch[i].entry->object);
  }
  for (int i = 0; i < count; ++i) Resolve(t, *batch[i].fixup, batch[i].entry);
  return fixups;
}

}  // namespace

StoredReference StoreReference(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  STEPentry* entry = FindEntry(t, number);
  if (!entry) {
    const bool isQueued = AddFixup(t, number, expected, slot);
    if (!isQueued) ReportError(t, kOutOfMemory);
    return {isQueued, nullptr};
  }
  *slot = entry->object;
  if (entry->object) return {true, entry};
  ReportNoObject(t, number);
  return {false, nullptr};
}

void CheckType(STEPtransfer* t, const StoredReference& reference, int expected) {
  if (reference.entry) CheckType(t, reference.entry, expected);
}

bool AddFixup(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  STEPfixup* fixup = t->store->fixupPool.Make();
  if (!fixup) return false;
  *fixup = {t->fixups, number, expected, slot};
  t->fixups = fixup;
  return true;
}

void ResolveFixups(STEPtransfer* t) {
  for (const STEPfixup* fixups = t->fixups; fixups;) fixups = ResolveBatch(t, fixups);
}

}  // namespace steprt
