#include "read/instance_table.h"

#include "read/report.h"

namespace steprt {

// A doubled number keeps its entry, so that the later record wins the table; the earlier instance stays in the model.
STEPentry* RegisterEntry(STEPtransfer* t, int number) {
  if (STEPentry* known = FindEntry(t, number)) {
    ReportError(t, kNumberUsed, number);
    return known;
  }
  STEPentry* entry = t->entryPool.Make();
  if (!entry || !t->numbers.Add(number, t->entryPool.Count())) return nullptr;
  STEPentry** bucket = &t->table[static_cast<unsigned>(number) % kTableBuckets];
  *entry = {*bucket, number, nullptr};
  *bucket = entry;
  return entry;
}

}  // namespace steprt
