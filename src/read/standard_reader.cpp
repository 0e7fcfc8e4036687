// STEPreadStandard: the driver of a read of ISO 10303-21 as it is published.
//
//   file = [byte order mark] "ISO-10303-21" ";" { section } "END-ISO-10303-21" ";"
//   section = header | data | other
//   other = ("ANCHOR" | "REFERENCE" | "SIGNATURE") ";" {any token} "ENDSEC" ";"
//
// Header and data are read as in the library's own form, by a tokeniser that knows more. Only the end of the file ends
// the read.
#include <memory>

#include "platform/input_file.h"
#include "read/data_section.h"
#include "read/header_fields.h"
#include "read/header_section.h"
#include "read/tokeniser.h"
#include "read/transfer/keywords.h"
#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "read/transfer/wide_read.h"
#include "schema/chain.h"
#include "steprt/standard.h"
#include "support/ascii.h"

namespace {

using namespace steprt;

constexpr int kNoTransfer = 1;

void SkipByteOrderMark(InputFile& in) {
  for (const int byte : {0xEF, 0xBB, 0xBF}) {
    if (in.Peek() == byte) in.Get();
  }
}

int SkipToEndsec(STEPtransfer* t) {
  for (;;) {
    const int token = NextToken(t);
    if (token == TOK_EOF) return SEC_NONE;
    if (token == TOK_NAME && SectionCode(t->value.text) == SEC_ENDSEC) return SEC_ENDSEC;
  }
}

// Whether data of the model's schema may follow.
bool IsOfSchema(STEPtransfer* t) {
  const char* schemaName = NameOf(*t->schema);
  if (!t->wide->options.check || IsSchemaListed(t, schemaName)) return true;
  ReportError(t, kWrongSchema, schemaName);
  return false;
}

int SkipOther(STEPtransfer* t) {
  for (const char* name : {"ANCHOR", "REFERENCE", "SIGNATURE"}) {
    if (!EqualNoCase(t->value.text, name)) continue;
    ReportError(t, kSectionNotRead, name);
    return SkipToEndsec(t);
  }
  return SEC_ENDSEC;
}

// Reads the section whose keyword has been read. Returns the keyword that ends it.
int ReadSection(STEPtransfer* t) {
  switch (SectionCode(t->value.text)) {
    case SEC_HEADER:
      return ReadHeaderSection(t, WideHeaderSchema());
    case SEC_DATA:
      return IsOfSchema(t) ? ReadDataSection(t) : SkipToEndsec(t);
    case SEC_ENDSEC:
      return Refuse(t, kMissingSection, SEC_ENDSEC);
    case SEC_NONE:
      return SkipOther(t);
    default:  // the first and the last word of a file
      return SEC_ENDSEC;
  }
}

void ReadSections(STEPtransfer* t) {
  int token;
  while ((token = NextToken(t)) != TOK_EOF) {
    if (token == TOK_NAME && ReadSection(t) != SEC_ENDSEC) ReportError(t, kMissingEndsec);
  }
}

// A file that begins with something else may still have sections.
void CheckStart(STEPtransfer* t) {
  t->pushedToken = NextToken(t);
  if (t->pushedToken == TOK_NAME && SectionCode(t->value.text) == SEC_START) return;
  ReportError(t, kNotAStepFile);
}

void ReadFile(STEPtransfer* t, std::string_view memory, bool isInMemory) {
  const std::unique_ptr<InputFile> file(isInMemory ? InputFile::MemoryOrNull() : InputFile::OpenOrNull(t->fileName));
  if (!file) return ReportError(t, isInMemory ? kOutOfMemory : kFileNotFound);
  if (isInMemory) file->Restart(memory);
  t->file.in = file.get();
  SkipByteOrderMark(*file);
  CheckStart(t);
  ReadSections(t);
  ResolveFixups(t);
}

}  // namespace

int STEPreadStandard(const char* name, const char* bytes, std::size_t size, APPobject0* schema,
                     const STEPreadOptions* options) {
  if (!name || !schema) return kNoTransfer;
  WideRead wide(options ? *options : STEPreadOptions());
  const TransferOwner t = BeginRead(name, schema, false);
  if (!t) return kNoTransfer;
  t->wide = &wide;
  ReadFile(t.get(), bytes ? std::string_view(bytes, size) : std::string_view(), bytes != nullptr);
  return t->errors;
}
