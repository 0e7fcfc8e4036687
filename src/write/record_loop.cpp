#include "write/record_loop.h"

#include "read/transfer/report.h"
#include "steprt/text.h"
#include "write/numbering.h"

namespace steprt {
namespace {

constexpr int kFailed = -1;

// False, without a record, for an instance that cannot be written.
bool WriteRecord(STEPtransfer* t, STEPheader* object, const RecordForm& form) {
  const APPentity* row = t->lookups.FindEntityByType(object->type);
  if (!row) return Refuse(t, kUnknownObject, false);
  if (!row->write) return false;
  Copy(t->where, row->name, kWhereLimit);
  form.open(t, *row, InstanceNumber(t, object));
  t->lastToken = TOK_OPEN;
  row->write(t, object);
  form.close(t, *row);
  return true;
}

// The block hides a failure until it is full, so it is emptied behind the first record, where a failure of the file's
// head shows, and behind the last.
bool IsStreamSound(STEPtransfer* t, bool empty) {
  if (empty) t->file.out->Flush();
  return !t->file.out->HasFailed() || Refuse(t, kErrorWritingFile, false);
}

int WriteEach(STEPtransfer* t, STEPheader* first, const RecordForm& form) {
  int count = 0;
  for (STEPheader* object = first; object; object = object->next) {
    if (!WriteRecord(t, object, form)) continue;
    t->file.out->Mark();
    if (!IsStreamSound(t, count == 0)) return kFailed;
    ++count;
    ++t->line;
  }
  if (count == 0) return 0;
  --t->line;  // a report now is about the last record
  return IsStreamSound(t, true) ? count : kFailed;
}

}  // namespace

int WriteRecords(STEPtransfer* t, STEPheader* first, const RecordForm& form) {
  ClearNumbers(first);
  t->file.out->Mark();  // the head
  return WriteEach(t, first, form);
}

}  // namespace steprt
