// STEPwrite: the clear-text form of a written file.
//
//   ISO-10303-21;
//
//   HEADER;
//   FILE_DESCRIPTION(...);
//   FILE_NAME(...);
//   FILE_SCHEMA(('SCHEMA'));
//   ENDSEC;
//
//   DATA;
//   #1 = NAME(...);
//   ENDSEC;
//
//   END-ISO-10303-21;
#include "platform/output_file.h"
#include "read/transfer/keywords.h"
#include "schema/chain.h"
#include "steprt/write.h"
#include "support/file_name.h"
#include "write/driver.h"
#include "write/frame.h"
#include "write/values.h"

namespace {

using namespace steprt;

void PutSectionChange(STEPtransfer* t, int ended, int begun) {
  Put(t, {SectionKeyword(ended), ";\n\n", SectionKeyword(begun), ";\n"});
}

void PutHead(STEPtransfer* t, const char* shownName, const char* remark) {
  PutSectionChange(t, SEC_START, SEC_HEADER);
  PutFileDescription(t, remark);
  Put(t, {"\n"});
  PutFileName(t, shownName);
  Put(t, {"\nFILE_SCHEMA(('", NameOf(*t->schema), "'));\n"});
  PutSectionChange(t, SEC_ENDSEC, SEC_DATA);
}

void OpenRecord(STEPtransfer* t, std::string_view name, int number) {
  OutputFile& out = *t->file.out;
  PutNumber(t, number);
  out.PutLiteral(" = ");
  out.Put(name);
  out.Put('(');
}

void CloseRecord(STEPtransfer* t, std::string_view /*name*/) { t->file.out->PutLiteral(");\n"); }

void PutTail(STEPtransfer* t) { EndFile(t, {SectionKeyword(SEC_ENDSEC), ";\n\n", SectionKeyword(SEC_END), ";\n"}); }

constexpr int kFirstRecordLine = 10;  // see the form above

constexpr FileForm kClearText = {
    .xml = false,
    .sharing = OutputFile::Sharing::kDenyWrite,
    .spellName = QuoteFileName,
    .putHead = PutHead,
    .firstLine = kFirstRecordLine,
    .openRecord = OpenRecord,
    .closeRecord = CloseRecord,
    .putTail = PutTail,
};

}  // namespace

int STEPwrite(char* fileName, const char* remark, STEPheader* first, APPobject0* schema) {
  return WriteFile(kClearText, fileName, remark, first, schema);
}
