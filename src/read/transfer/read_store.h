// What a read keeps, and what finds it again in constant time. A write has none of it.
//
// It owns the entries of the instance table, the fixups and the child elements, and releases them together. The fields
// `fixups`, `elements` and `elementsTail` of the transfer link what it owns.
#ifndef STEPRT_READ_TRANSFER_READ_STORE_H
#define STEPRT_READ_TRANSFER_READ_STORE_H

#include "read/transfer/elements.h"
#include "read/transfer/entry_index.h"
#include "read/transfer/prefetch.h"
#include "read/transfer/record.h"
#include "support/pool.h"

namespace steprt {

struct ReadStore {
  explicit ReadStore(STEPtransfer* t) : childElements(&t->elements, &t->elementsTail) {}

  EntryIndex entries;  // the instance table
  Pool<STEPfixup> fixupPool;
  ChildElements childElements;
  Prefetcher prefetcher;
  const char* listedSchema = nullptr;  // the name that was last found in the transfer's `schemas`
};

}  // namespace steprt

#endif
