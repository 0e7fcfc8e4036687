#include "xml/xml_writer.h"

#include <memory>

#include "platform/output_file.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "schema/chain.h"
#include "steprt/text.h"
#include "support/file_name.h"
#include "support/number_print.h"
#include "write/frame.h"
#include "write/record_loop.h"

namespace steprt {
namespace {

constexpr int kFailed = -1;
constexpr int kFirstEntityLine = 5;

// The encoding is a claim: texts go out as they stand in memory.
void WriteHead(STEPtransfer* t, const char* shownName, const char* remark) {
  Put(t, {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n<!-- "});
  PutFileDescription(t, remark);
  Put(t, {" -->\n<!-- "});
  PutFileName(t, shownName);
  Put(t, {" -->\n<", NameOf(*t->schema), ">\n"});
}

void OpenEntity(STEPtransfer* t, const APPentity& row, int number) {
  OutputFile& out = *t->file.out;
  Put(t, {"\t<", row.name, " rid=\"#"});
  out.Advance(IntToText(out.Room(kIntBuffer), number));
  out.Put("\">");
}

void CloseEntity(STEPtransfer* t, const APPentity& row) { Put(t, {"</", row.name, ">\n"}); }

}  // namespace

int STEPwriteXml(char* fileName, const char* remark, STEPheader* first, APPobject0* schema) {
  if (!schema) return kFailed;
  TextBuffer room;
  const TransferOwner t = NewTransfer(DefaultFileName(room, fileName), ErrorProcOf(schema), schema, true);
  if (!t) return kFailed;
  Copy(t->where, "Write", kWhereLimit);
  TextBuffer comment;
  const char* shownName = CommentFileName(comment, fileName);  // no file is made without it
  const std::unique_ptr<OutputFile> file(shownName ? OutputFile::CreateOrNull(t->fileName, OutputFile::Sharing::kAll)
                                                   : nullptr);
  t->file.out = file.get();
  if (!file) return Refuse(t.get(), kCannotCreateFile, kFailed);
  WriteHead(t.get(), shownName, remark);
  t->line = kFirstEntityLine;
  const int count = WriteRecords(t.get(), first, {OpenEntity, CloseEntity});
  file->End({"</", NameOf(*schema), ">\n"});
  return count;
}

}  // namespace steprt
