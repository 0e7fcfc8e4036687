// What the drivers need of items.h.
#ifndef STEPRT_READ_ITEMS_H
#define STEPRT_READ_ITEMS_H

#include "read/transfer/record.h"

namespace steprt {

void CloseAllItems(STEPtransfer* t);

// Closes the values that a read function has left open. Few records have any, so only the question is on the path of
// all.
inline void CloseOpenItems(STEPtransfer* t) {
  if (t->items.depth > 0) CloseAllItems(t);
}

}  // namespace steprt

#endif
