// The life of a transfer: made at the start of a driver's call and freed on every exit from it.
#ifndef STEPRT_READ_TRANSFER_TRANSFER_H
#define STEPRT_READ_TRANSFER_TRANSFER_H

#include <memory>

#include "read/transfer/record.h"

namespace steprt {

// Releases everything that the transfer holds, and then the transfer. Closes no file and releases no instance.
void FreeTransfer(STEPtransfer* t);

struct TransferDeleter {
  void operator()(STEPtransfer* t) const { FreeTransfer(t); }
};
using TransferOwner = std::unique_ptr<STEPtransfer, TransferDeleter>;

// Makes the transfer of a driver's call. Its file is `fileName`, with ".stp" if the name has no dot after its last
// backslash. Its reports go to the first error procedure of the chain. Null when memory runs out, without a report.
[[nodiscard]] TransferOwner BeginRead(const char* fileName, APPobject0* schema, bool xml);
[[nodiscard]] TransferOwner BeginWrite(const char* fileName, APPobject0* schema, bool xml);

// Makes a transfer for a file of just this name. Null for a null name, and when memory runs out, without a report. A
// transfer that reads must come from NewReadTransfer, which makes its ReadStore as well.
[[nodiscard]] TransferOwner NewTransfer(const char* fileName, STEPerrorProc errorProc, APPobject0* schema, bool xml);
[[nodiscard]] TransferOwner NewReadTransfer(const char* fileName, STEPerrorProc errorProc, APPobject0* schema,
                                            bool xml);

// Releases a list of texts: each text, each node and the aggregate. Null does nothing.
void DeleteTextAggr(STEPaggr* aggr);

}  // namespace steprt

#endif
