#include "read/instance_table.h"

#include "read/report.h"

namespace steprt {

// A doubled number keeps its entry, so that the later record wins the table; the earlier instance stays in the model.
STEPentry* RegisterEntry(STEPtransfer* t, int number) {
  std::uint32_t* place = t->numbers.FindOrAdd(number);
  if (!place) return nullptr;
  if (*place != 0) {
    ReportError(t, kNumberUsed, number);
    return &t->entryPool.At(*place - 1);
  }
  STEPentry* entry = t->entryPool.Make();
  if (!entry) return nullptr;
  *place = t->entryPool.Count();
  STEPentry** bucket = &t->table[static_cast<unsigned>(number) % kTableBuckets];
  *entry = {*bucket, number, nullptr};
  return *bucket = entry;
}

}  // namespace steprt
