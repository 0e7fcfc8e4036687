// STEPread: the driver of a clear-text read, from the opening of a file to the count of its errors.
//
//   file = ("ISO-10303-21" | "STEP") ";" { header | data } ("END-ISO-10303-21" | "ENDSTEP") ";"
//   header = "HEADER" ";" { record } "ENDSEC" ";"
//   data = "DATA" ";" { record } "ENDSEC" ";"
//
// Anything between the keywords of sections is skipped.
#include <memory>

#include "platform/input_file.h"
#include "read/data_section.h"
#include "read/header_section.h"
#include "read/sections.h"
#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "schema/chain.h"
#include "steprt/read.h"

namespace {

using namespace steprt;

constexpr int kNoTransfer = 1;

int ReadHeader(STEPtransfer* t) {
  const int code = ReadHeaderSection(t, HeaderSchema());
  if (code != SEC_ENDSEC) ReportError(t, kMissingEndsec);
  return code;
}

// Data of another schema ends the read.
int ReadData(STEPtransfer* t, bool check) {
  const char* schemaName = NameOf(*t->schema);
  if (check && SchemaNotListed(t, schemaName)) {
    ReportError(t, kWrongSchema, schemaName);
    return SEC_NONE;
  }
  const int code = ReadDataSection(t);
  if (code != SEC_ENDSEC) ReportError(t, kMissingEndsec);
  return code;
}

// A keyword that does not belong where it is costs one report. The end of the file ends the loop wherever it is met.
void ReadSections(STEPtransfer* t, bool check) {
  int code;
  do {
    code = NextSection(t);
    if (code == SEC_END) return;
    if (code == SEC_HEADER) {
      code = ReadHeader(t);
    } else if (code == SEC_DATA) {
      code = ReadData(t, check);
    } else {
      ReportError(t, kMissingSection);
    }
  } while (code != SEC_NONE);
}

void ReadFile(STEPtransfer* t, bool check) {
  const std::unique_ptr<InputFile> file(InputFile::OpenOrNull(t->fileName));
  if (!file) return ReportError(t, kFileNotFound);
  t->file.in = file.get();
  if (NextSection(t) != SEC_START) return ReportError(t, kNotAStepFile);
  ReadSections(t, check);
  ResolveFixups(t);
}

}  // namespace

int STEPread(char* name, APPobject0* schema, bool check) {
  if (!name || !schema) return kNoTransfer;
  const TransferOwner t = BeginRead(name, schema, false);
  if (!t) return kNoTransfer;
  ReadFile(t.get(), check);
  return t->errors;
}
