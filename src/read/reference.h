// Settles a reference, in both forms alike, by what is known of its number at the moment.
#ifndef STEPRT_READ_REFERENCE_H
#define STEPRT_READ_REFERENCE_H

#include "read/records.h"

namespace steprt {

enum class Settled {
  kKnown,   // *slot holds the instance, which is reported when it is of the wrong type
  kFailed,  // the number stands for no instance: reported
  kLater,   // *slot is filled at the end of the transfer
  kLost     // it should be, but memory is exhausted: reported
};

// `*slot` is written before anything is reported: the instance when it is known, null when the number has failed.
// Otherwise it is left as it is.
Settled SettleReference(STEPtransfer* t, int number, int expected, STEPheader** slot);

}  // namespace steprt

#endif
