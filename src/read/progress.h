// The progress function of a standard read, which may cancel it.
#ifndef STEPRT_READ_PROGRESS_H
#define STEPRT_READ_PROGRESS_H

#include "read/transfer/wide_read.h"

namespace steprt {

// Tells the client how far the read has come. If the client cancels it, that is reported, the file ends here, and
// nothing more is reported.
[[gnu::noinline]] void TellProgress(STEPtransfer* t);

// The same, once for each block of the file.
inline void NoteProgress(STEPtransfer* t) {
  if (t->file.in->Blocks() != t->wide->seenBlock) TellProgress(t);
}

// Tells that all of the file has been read, unless the read has been cancelled.
void TellEnd(STEPtransfer* t);

}  // namespace steprt

#endif
