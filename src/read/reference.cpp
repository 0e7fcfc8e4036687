#include "read/reference.h"

#include "read/fixups.h"
#include "read/instance_table.h"
#include "read/report.h"
#include "steprt/instance.h"

namespace steprt {
namespace {

Settled SettleLater(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  STEPfixup* fixup = AddFixup(t, number);
  if (!fixup) return Refuse(t, kOutOfMemory, Settled::kLost);
  fixup->slot = slot;
  fixup->expected = expected;
  return Settled::kLater;
}

}  // namespace

Settled SettleReference(STEPtransfer* t, int number, int expected, STEPheader** slot) {
  STEPentry* entry = FindEntry(t, number);
  if (!entry) return SettleLater(t, number, expected, slot);
  *slot = entry->object;
  if (!entry->object) return ReportNoObject(t, number), Settled::kFailed;
  if (!t->lookups.IsSubtype(expected, TypeOf(entry))) ReportWrongType(t, entry->object);
  return Settled::kKnown;
}

}  // namespace steprt
