// A transfer's life: made at the start of a driver's call, freed on every way out of it.
#ifndef STEPRT_READ_TRANSFER_TRANSFER_H
#define STEPRT_READ_TRANSFER_TRANSFER_H

#include <memory>

#include "read/transfer/record.h"

namespace steprt {

// Releases all that the transfer holds: fixups, elements, the names of schemas with their texts, entries, and last
// itself. It closes no file and releases no instance.
void FreeTransfer(STEPtransfer* t);

struct TransferDeleter {
  void operator()(STEPtransfer* t) const { FreeTransfer(t); }
};
using TransferOwner = std::unique_ptr<STEPtransfer, TransferDeleter>;

// Null when memory is exhausted, without a report; also for a null name, which DefaultFileName gives then.
[[nodiscard]] TransferOwner NewTransfer(const char* fileName, STEPerrorProc errorProc, APPobject0* schema, bool xml);

// Releases a list of texts: each node's text, each node, and last the aggregate. Null does nothing.
void DeleteTextAggr(STEPaggr* aggr);

}  // namespace steprt

#endif
