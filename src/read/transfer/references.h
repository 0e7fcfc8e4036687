// References between instances: those to an instance that has been read, and the fixups for those to a later one.
#ifndef STEPRT_READ_TRANSFER_REFERENCES_H
#define STEPRT_READ_TRANSFER_REFERENCES_H

#include "read/transfer/record.h"

namespace steprt {

// The outcome of StoreReference.
struct StoredReference {
  bool isKept;       // *slot holds the instance, or will hold it at the end of the transfer
  STEPentry* entry;  // of the instance in *slot; null while its record has not been read
};

// Stores the instance of `number` in *slot. If its record has not been read, a fixup stores it at the end of the
// transfer, and *slot keeps its value until then. A number without an instance stores null and is reported.
// When memory runs out for the fixup, that is reported and *slot keeps its value.
StoredReference StoreReference(STEPtransfer* t, int number, int expected, STEPheader** slot);

// Reports a stored instance that is not of the type `expected`. The instance stays where it was stored. Call it when
// the slot is in its final place: an error procedure may look there.
void CheckType(STEPtransfer* t, const StoredReference& reference, int expected);

// Queues a fixup for a slot of any type. Returns false when memory runs out.
[[nodiscard]] bool AddFixup(STEPtransfer* t, int number, int expected, STEPheader** slot);

// Resolves all fixups at the end of a transfer. The one that was queued last comes first.
void ResolveFixups(STEPtransfer* t);

}  // namespace steprt

#endif
