#include "read/transfer/references.h"

#include "read/transfer/instance_table.h"
#include "read/transfer/report.h"
#include "read/transfer/wide_read.h"
#include "steprt/instance.h"
#include "steprt/standard.h"

namespace steprt {
namespace {

// While it lasts, reports are about the place of a reference that was read before.
class OriginScope {
 public:
  OriginScope(STEPtransfer* t, const STEPfixup* fixup) : wide_(fixup ? t->wide : nullptr) {
    if (wide_) wide_->from = static_cast<const WideFixup*>(fixup);
  }
  ~OriginScope() {
    if (wide_) wide_->from = nullptr;
  }
  OriginScope(const OriginScope&) = delete;
  OriginScope& operator=(const OriginScope&) = delete;

 private:
  WideRead* const wide_;
};

// The fixup is null for a reference that is being read.
[[gnu::noinline]] void ReportNoObject(STEPtransfer* t, int number, const STEPfixup* fixup) {
  const OriginScope scope(t, fixup);
  ReportError(t, kReferenceToNothing, number);
}

[[gnu::noinline]] void ReportUnknown(STEPtransfer* t, const STEPfixup& fixup) {
  if (t->wide && fixup.number == kRefusedName) return;
  const OriginScope scope(t, &fixup);
  ReportError(t, kUnknownReference, fixup.number);
}

bool HasPart(STEPtransfer* t, const STEPheader* part, int expected) {
  while (part && !t->lookups.IsSubtype(expected, part->type)) part = part->next;
  return part;
}

// Whether one of the parts is of the type. An answer that needs more than a few steps is kept, since many references
// may ask for it.
bool IsOfType(STEPtransfer* t, const STEPcomplex& complex, int expected) {
  constexpr int kFew = 16;
  const STEPheader* part = complex.Parts();
  for (int i = 0; part && i < kFew; ++i, part = part->next) {
    if (t->lookups.IsSubtype(expected, part->type)) return true;
  }
  if (!part) return false;
  signed char* const answer = t->wide ? t->wide->complexTypes.Answer(&complex, expected) : nullptr;
  if (answer && *answer != 0) return *answer > 0;
  const bool isFound = HasPart(t, part, expected);
  if (answer) *answer = isFound ? 1 : -1;
  return isFound;
}

// Reports an object that is not of the type, unless it is a complex instance with a part that is. Nothing is known of
// the type of an object that was made for an entity without a row.
[[gnu::noinline]] void ReportWrongType(STEPtransfer* t, STEPheader* object, int expected, const STEPfixup* fixup) {
  const auto* complex = object->type == STEPcomplex::kType ? dynamic_cast<STEPcomplex*>(object) : nullptr;
  if (complex && IsOfType(t, *complex, expected)) return;
  const APPentity* unknown = t->wide ? t->wide->options.unknown : nullptr;
  if (unknown && object->type == unknown->type) return;
  const OriginScope scope(t, fixup);
  ReportError(t, kReferenceToWrongType, object->id);
}

void CheckType(STEPtransfer* t, STEPentry* entry, int expected, const STEPfixup* fixup) {
  if (!t->lookups.IsSubtype(expected, TypeOf(entry))) ReportWrongType(t, entry->object, expected, fixup);
}

// The slot of an unknown number is not changed. That of a wrong type keeps the instance.
void Resolve(STEPtransfer* t, const STEPfixup& fixup, STEPentry* entry) {
  if (!entry) return ReportUnknown(t, fixup);
  *fixup.slot = entry->object;
  if (!entry->object) return ReportNoObject(t, fixup.number, &fixup);
  CheckType(t, entry, fixup.expected, &fixup);
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

namespace {

StoredReference Queue(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  const bool isQueued = AddFixup(t, number, expected, slot);
  if (!isQueued) ReportError(t, kOutOfMemory);
  return {isQueued, nullptr};
}

// In a standard read a record may refer to itself.
[[gnu::noinline]] StoredReference StoreNoObject(STEPtransfer* t, STEPentry* entry, int expected, STEPheader** slot) {
  if (t->wide && t->wide->entry == entry) return Queue(t, entry->number, expected, slot);
  ReportNoObject(t, entry->number, nullptr);
  return {false, nullptr};
}

}  // namespace

StoredReference StoreReference(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  STEPentry* entry = FindEntry(t, number);
  if (!entry) return Queue(t, number, expected, slot);
  *slot = entry->object;
  if (entry->object) return {true, entry};
  return StoreNoObject(t, entry, expected, slot);
}

void CheckType(STEPtransfer* t, const StoredReference& reference, int expected) {
  if (reference.entry) CheckType(t, reference.entry, expected, nullptr);
}

bool AddFixup(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  STEPfixup* fixup = t->store->fixupPool.Make();
  if (!fixup) fixup = WideFixupOrNull(t);  // a standard read has closed the pool
  if (!fixup) return false;
  *fixup = {t->fixups, number, expected, slot};
  t->fixups = fixup;
  return true;
}

void ResolveFixups(STEPtransfer* t) {
  for (const STEPfixup* fixups = t->fixups; fixups;) fixups = ResolveBatch(t, fixups);
}

}  // namespace steprt
