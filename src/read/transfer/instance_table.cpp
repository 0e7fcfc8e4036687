#include "read/transfer/instance_table.h"

#include "read/transfer/report.h"

namespace steprt {

void NoteType(STEPentry* entry) { entry->type = entry->object->type; }

// A number that is used twice keeps its entry, so that the later record wins the table. The earlier instance stays in
// the model.
STEPentry* RegisterEntry(STEPtransfer* t, int number) {
  STEPentry* entry = FindEntry(t, number);
  if (!entry) return t->store->entries.Add(number);
  ReportError(t, kNumberUsed, number);
  return entry;
}

}  // namespace steprt
