#include "write/driver.h"

#include <memory>

#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "write/record_loop.h"

namespace steprt {

int WriteFile(const FileForm& form, const char* fileName, const char* remark, STEPheader* first, APPobject0* schema) {
  if (!fileName || !schema) return kWriteFailed;
  const TransferOwner t = BeginWrite(fileName, schema, form.xml);
  if (!t) return kWriteFailed;
  TextBuffer buffer;
  const char* shownName = form.spellName(buffer, fileName);  // comes first: without it no file is created
  const std::unique_ptr<OutputFile> file(shownName ? OutputFile::CreateOrNull(t->fileName, form.sharing) : nullptr);
  t->file.out = file.get();
  if (!file) return Refuse(t.get(), kCannotCreateFile, kWriteFailed);
  form.putHead(t.get(), shownName, remark ? remark : "");
  t->line = form.firstLine;
  const int count = WriteRecords(t.get(), form, first);
  form.putTail(t.get());
  return count;
}

}  // namespace steprt
