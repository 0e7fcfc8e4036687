// A standard file in clear text:
//
//   ISO-10303-21;
//   HEADER;
//   FILE_DESCRIPTION(...);
//   FILE_NAME(...);
//   FILE_SCHEMA(...);
//   ENDSEC;
//   DATA;
//   #1=NAME(...);
//   ENDSEC;
//   END-ISO-10303-21;
#include "write/standard_writer.h"

#include <memory>

#include "read/transfer/keywords.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "write/record_loop.h"
#include "write/standard_header.h"
#include "write/wide_document.h"
#include "write/wide_records.h"
#include "write/wide_values.h"
#include "xml/values/names.h"

namespace steprt {
namespace {

void PutSection(STEPtransfer* t, int code) {
  PutToken(t, SectionKeyword(code));
  PutToken(t, ";");
  PutLineEnd(t);
}

void PutHead(STEPtransfer* t, const STEPfileHeader* header) {
  t->wideWrite->isNamed = true;  // the records of the header are no records of the data
  if (t->wideWrite->isDocument) {
    BeginDocument(t);
    BeginFrame(t, kHeaderElement);
    WriteStandardHeader(t, header);
    EndFrame(t, kHeaderElement);
    return PutLineEnd(t);
  }
  PutSection(t, SEC_START);
  PutSection(t, SEC_HEADER);
  WriteStandardHeader(t, header);
  PutSection(t, SEC_ENDSEC);
  PutSection(t, SEC_DATA);
}

void PutTail(STEPtransfer* t) {
  if (t->wideWrite->isDocument) return EndDocument(t);
  PutSection(t, SEC_ENDSEC);
  PutSection(t, SEC_END);
}

int WriteAll(STEPtransfer* t, const STEPfileHeader* header, STEPheader* first) {
  if (!NameRecords(t, first)) return kWriteFailed;
  const std::unique_ptr<OutputFile> file(OutputFile::CreateReplacementOrNull(t->fileName));
  if (!file) return Refuse(t, kCannotCreateFile, kWriteFailed);
  t->file.out = file.get();
  PutHead(t, header);
  const int count = WriteWideRecords(t, first);
  PutTail(t);
  return count >= 0 && file->Commit() ? count : Refuse(t, kErrorWritingFile, kWriteFailed);
}

}  // namespace

int WriteStandardFile(const char* fileName, const STEPfileHeader* header, STEPheader* first, APPobject0* schema,
                      const STEPwriteOptions* options, bool isDocument) {
  if (!fileName || !schema) return kWriteFailed;
  WideWrite wide(options ? *options : STEPwriteOptions());
  wide.isDocument = isDocument;
  const TransferOwner t = BeginWrite(fileName, schema, true);
  if (!t) return kWriteFailed;
  t->wideWrite = &wide;
  const int count = WriteAll(t.get(), header, first);
  wide.names.StoreNumbers();
  return count;
}

}  // namespace steprt

int STEPwriteStandard(const char* fileName, const STEPfileHeader* header, STEPheader* first, APPobject0* schema,
                      const STEPwriteOptions* options) {
  return steprt::WriteStandardFile(fileName, header, first, schema, options, false);
}
