// How a record of either grammar begins.
#ifndef STEPRT_READ_BEGIN_RECORD_H
#define STEPRT_READ_BEGIN_RECORD_H

#include "read/transfer/instance_table.h"

namespace steprt {

// Tells the instance table now and then how many numbers to expect, from the length of the records so far.
inline void ExpectFurther(STEPtransfer* t) {
  constexpr std::uint32_t kRecords = 16;
  EntryIndex& entries = t->store->entries;
  const std::uint32_t count = entries.Count();
  if (count % kRecords == 0) entries.Expect(count * t->file.in->Growth());
}

// Enters the number of a record. Returns null when memory runs out.
[[nodiscard]] inline STEPentry* BeginRecord(STEPtransfer* t, int number) {
  t->store->prefetcher.SeeRecord(number);
  ExpectFurther(t);
  return RegisterEntry(t, number);
}

}  // namespace steprt

#endif
