// What the drivers need of items.h.
#ifndef STEPRT_READ_ITEMS_H
#define STEPRT_READ_ITEMS_H

#include "read/transfer/record.h"

namespace steprt {

// Closes the values that a read function has left open.
void CloseOpenItems(STEPtransfer* t);

}  // namespace steprt

#endif
