// STEPwrite: the frame of a clear-text file and the records in it.
#include <memory>

#include "platform/output_file.h"
#include "read/transfer/keywords.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "schema/chain.h"
#include "steprt/text.h"
#include "steprt/write.h"
#include "support/file_name.h"
#include "support/number_print.h"
#include "write/frame.h"
#include "write/record_loop.h"

namespace {

using namespace steprt;

constexpr int kFailed = -1;
constexpr int kFirstRecordLine = 10;

void PutSectionChange(STEPtransfer* t, int ended, int begun) {
  Put(t, {SectionKeyword(ended), ";\n\n", SectionKeyword(begun), ";\n"});
}

void WriteHead(STEPtransfer* t, const char* shownName, const char* remark) {
  PutSectionChange(t, SEC_START, SEC_HEADER);
  PutFileDescription(t, remark);
  Put(t, {"\n"});
  PutFileName(t, shownName);
  Put(t, {"\nFILE_SCHEMA(('", NameOf(*t->schema), "'));\n"});
  PutSectionChange(t, SEC_ENDSEC, SEC_DATA);
}

void OpenRecord(STEPtransfer* t, const APPentity& row, int number) {
  OutputFile& out = *t->file.out;
  out.Put('#');
  out.Advance(IntToText(out.Room(kIntBuffer), number));
  Put(t, {" = ", row.name, "("});
}

void CloseRecord(STEPtransfer* t, const APPentity& /*row*/) { t->file.out->Put(");\n"); }

}  // namespace

int STEPwrite(char* fileName, const char* remark, STEPheader* first, APPobject0* schema) {
  if (!fileName || !schema) return kFailed;
  TextBuffer room;
  const TransferOwner t = NewTransfer(DefaultFileName(room, fileName), ErrorProcOf(schema), schema, false);
  if (!t) return kFailed;
  Copy(t->where, "Write", kWhereLimit);
  TextBuffer quoted;
  const char* shownName = QuoteFileName(quoted, fileName);  // no file is made without it
  const std::unique_ptr<OutputFile> file(
      shownName ? OutputFile::CreateOrNull(t->fileName, OutputFile::Sharing::kDenyWrite) : nullptr);
  t->file.out = file.get();
  if (!file) return Refuse(t.get(), kCannotCreateFile, kFailed);
  WriteHead(t.get(), shownName, remark ? remark : "");
  t->line = kFirstRecordLine;
  const int count = WriteRecords(t.get(), first, {OpenRecord, CloseRecord});
  file->End({SectionKeyword(SEC_ENDSEC), ";\n\n", SectionKeyword(SEC_END), ";\n"});
  return count;
}
