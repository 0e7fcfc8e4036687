// What the record loop needs of items.h.
#ifndef STEPRT_WRITE_ITEMS_H
#define STEPRT_WRITE_ITEMS_H

#include "read/transfer/record.h"

namespace steprt {

void EndAllItems(STEPtransfer* t);

// Ends the values that a write function has left open. Few records have any, so only the question is on the path of
// all.
inline void EndOpenItems(STEPtransfer* t) {
  if (t->items.depth > 0) EndAllItems(t);
}

}  // namespace steprt

#endif
