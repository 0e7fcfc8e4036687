// The table of the instance numbers of a file.
#ifndef STEPRT_READ_INSTANCE_TABLE_H
#define STEPRT_READ_INSTANCE_TABLE_H

#include "read/records.h"

namespace steprt {

// The number's entry, or null.
inline STEPentry* FindEntry(STEPtransfer* t, int number) {
  const std::uint32_t place = t->numbers.Find(number);
  return place ? &t->entryPool.At(place - 1) : nullptr;
}

// The number's entry, new or old; an old one is reported. Null when memory is exhausted.
STEPentry* RegisterEntry(STEPtransfer* t, int number);

}  // namespace steprt

#endif
