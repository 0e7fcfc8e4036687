// What the drivers and the list readers need of items.h.
#ifndef STEPRT_READ_ITEMS_H
#define STEPRT_READ_ITEMS_H

#include "read/transfer/record.h"

namespace steprt {

void CloseAllItems(STEPtransfer* t);

// Reads up to the bracket that closes as many as are open. Their number has no limit. A `;` closes the record.
void SkipToClose(STEPtransfer* t, long long depth);

// Closes the values that a read function has left open. Few records have any, so only the question is on the path of
// all.
inline void CloseOpenItems(STEPtransfer* t) {
  if (t->items.depth > 0) CloseAllItems(t);
}

}  // namespace steprt

#endif
