// STEPread: from the opening of a file to its count of errors.
#include "platform/input_file.h"
#include "read/data_section.h"
#include "read/header_section.h"
#include "read/sections.h"
#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "schema/chain.h"
#include "steprt/read.h"
#include "steprt/text.h"
#include "support/file_name.h"

namespace {

using namespace steprt;

constexpr int kNoTransfer = 1;

int ReadHeader(STEPtransfer* t) {
  const int code = ReadHeaderSection(t, HeaderSchema());
  if (code != SEC_ENDSEC) ReportError(t, kMissingEndsec);
  return code;
}

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

// A section out of place costs a report and no more; the end of the file ends the loop wherever it is met.
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

}  // namespace

int STEPread(char* name, APPobject0* schema, bool check) {
  if (!name || !schema) return kNoTransfer;
  TextBuffer room;
  const TransferOwner t = NewTransfer(DefaultFileName(room, name), ErrorProcOf(schema), schema, false);
  if (!t) return kNoTransfer;
  Copy(t->where, "Read", kWhereLimit);
  const std::unique_ptr<InputFile> file(InputFile::OpenOrNull(t->fileName));
  t->file.in = file.get();
  if (!file) return ReportError(t.get(), kFileNotFound), t->errors;
  if (NextSection(t.get()) != SEC_START) return ReportError(t.get(), kNotAStepFile), t->errors;
  ReadSections(t.get(), check);
  ResolveFixups(t.get());
  return t->errors;
}
