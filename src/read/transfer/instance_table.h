// The instance table: which instance has each number of a file. Records enter it, references look it up.
#ifndef STEPRT_READ_TRANSFER_INSTANCE_TABLE_H
#define STEPRT_READ_TRANSFER_INSTANCE_TABLE_H

#include "read/transfer/read_store.h"
#include "steprt/instance.h"

namespace steprt {

// The number's entry; null if no record has that number so far.
inline STEPentry* FindEntry(STEPtransfer* t, int number) { return t->store->entries.Find(number); }

// Stores what the record's read function has made. Pass null if it made nothing.
inline void SetObject(STEPentry* entry, STEPheader* object) {
  entry->object = object;
  if (object) entry->type = object->type;
}

// Copies the type of the object into the entry, since the client has changed it.
[[gnu::noinline, gnu::cold]] void NoteType(STEPentry* entry);

// The type of the entry's object. The object must not be null. It may be far away in memory, and the answer would wait
// for it. The entry's own copy of the type is nearly always right, so the processor goes on with that and checks it
// meanwhile.
inline int TypeOf(STEPentry* entry) {
  if (entry->object->type != entry->type) NoteType(entry);
  return entry->type;
}

// Returns the number's entry and makes it if there is none. A number that already has one is reported. Returns null
// when memory runs out.
STEPentry* RegisterEntry(STEPtransfer* t, int number);

}  // namespace steprt

#endif
