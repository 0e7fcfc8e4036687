// The table of the instance numbers of a file.
#ifndef STEPRT_READ_TRANSFER_INSTANCE_TABLE_H
#define STEPRT_READ_TRANSFER_INSTANCE_TABLE_H

#include "read/transfer/record.h"
#include "steprt/instance.h"

namespace steprt {

// The number's entry, or null.
inline STEPentry* FindEntry(STEPtransfer* t, int number) { return t->entries.Find(number); }

// Stores what the record's read function has made; null for nothing.
inline void SetObject(STEPentry* entry, STEPheader* object) {
  entry->object = object;
  if (object) entry->type = object->type;
}

// Takes over the type that the client has given the entry's object since.
[[gnu::noinline, gnu::cold]] void NoteType(STEPentry* entry);

// The type of the entry's object, which must be there. The object may be far away in memory, and the answer would wait
// for it: with the entry's own copy, which is all but always right, the processor goes on.
inline int TypeOf(STEPentry* entry) {
  if (entry->object->type != entry->type) NoteType(entry);
  return entry->type;
}

// The number's entry, new or old; an old one is reported. Null when memory is exhausted.
STEPentry* RegisterEntry(STEPtransfer* t, int number);

}  // namespace steprt

#endif
