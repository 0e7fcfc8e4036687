// What the record loop needs of items.h.
#ifndef STEPRT_WRITE_ITEMS_H
#define STEPRT_WRITE_ITEMS_H

#include "read/transfer/record.h"

namespace steprt {

// Ends the values that a write function has left open.
void EndOpenItems(STEPtransfer* t);

}  // namespace steprt

#endif
