// References to instances further on in the file, and the reports about references that cannot be settled.
#ifndef STEPRT_READ_FIXUPS_H
#define STEPRT_READ_FIXUPS_H

#include "read/records.h"

namespace steprt {

// Queues a reference; slot and expected are the caller's to fill. Null when memory is exhausted.
STEPfixup* AddFixup(STEPtransfer* t, int number);

// Settles all queued references, the one read last first.
void ResolveFixups(STEPtransfer* t);

void ReportNoObject(STEPtransfer* t, int number);
void ReportWrongType(STEPtransfer* t, STEPheader* object);

}  // namespace steprt

#endif
