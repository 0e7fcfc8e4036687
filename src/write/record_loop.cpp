#include "write/record_loop.h"

#include "read/transfer/report.h"
#include "steprt/text.h"
#include "write/items.h"
#include "write/numbering.h"

namespace steprt {
namespace {

// Writes the record of one instance. Returns false, without a record, for an instance that cannot be written. Only one
// whose type has no row is reported: a row without a write function says that its instances do not belong in files.
// `name` is that of the record before, which is often the same.
bool WriteRecord(STEPtransfer* t, const FileForm& form, STEPheader* object, std::string_view* name) {
  const APPentity* row = t->lookups.FindEntityByType(object->type);
  if (!row) return Refuse(t, kUnknownObject, false);
  if (!row->write) return false;
  if (name->data() != row->name) {
    *name = row->name;
    Copy(t->where, row->name, kWhereLimit);
  }
  form.openRecord(t, *name, InstanceNumber(t, object));
  t->lastToken = TOK_OPEN;  // so the first attribute has no comma
  row->write(t, object);
  EndOpenItems(t);
  form.closeRecord(t, *name);
  return true;
}

// Reports a failed stream. The block hides a failure until it is full, so it is emptied after the first record, where a
// failure of the file's head shows, and after the last one.
bool IsStreamSound(STEPtransfer* t, bool empty) {
  if (empty) t->file.out->Flush();
  return !t->file.out->HasFailed() || Refuse(t, kErrorWritingFile, false);
}

int WriteEach(STEPtransfer* t, const FileForm& form, STEPheader* first) {
  int count = 0;
  std::string_view name;
  for (STEPheader* object = first; object; object = object->next) {
    if (!WriteRecord(t, form, object, &name)) continue;
    t->file.out->Mark();
    if (!IsStreamSound(t, count == 0)) return kWriteFailed;
    ++count;
    ++t->line;
  }
  if (count == 0) return 0;
  --t->line;  // a report is now about the last record
  return IsStreamSound(t, true) ? count : kWriteFailed;
}

}  // namespace

int WriteRecords(STEPtransfer* t, const FileForm& form, STEPheader* first) {
  ClearNumbers(first);
  t->file.out->Mark();  // after the head
  return WriteEach(t, form, first);
}

}  // namespace steprt
