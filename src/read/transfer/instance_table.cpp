#include "read/transfer/instance_table.h"

#include "read/transfer/report.h"

namespace steprt {

// A doubled number keeps its entry, so that the later record wins the table; the earlier instance stays in the model.
void NoteType(STEPentry* entry) { entry->type = entry->object->type; }

STEPentry* RegisterEntry(STEPtransfer* t, int number) {
  if (STEPentry* entry = t->entries.Find(number)) {
    ReportError(t, kNumberUsed, number);
    return entry;
  }
  STEPentry* entry = t->entries.Add(number);
  if (!entry) return nullptr;
  STEPentry** bucket = &t->table[static_cast<unsigned>(number) % kTableBuckets];
  entry->next = *bucket;
  return *bucket = entry;
}

}  // namespace steprt
