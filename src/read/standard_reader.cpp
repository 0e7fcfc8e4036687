// The driver of a read of ISO 10303-21 as it is published.
//
//   file = [byte order mark] "ISO-10303-21" ";" { section } "END-ISO-10303-21" ";"
//   section = header | data | other
//   other = ("ANCHOR" | "REFERENCE" | "SIGNATURE") ";" {any token} "ENDSEC" ";"
//
// Header and data are read as in the library's own form, by a tokeniser that knows more. Only the end of the file ends
// the read.
#include "read/standard_reader.h"

#include <memory>

#include "platform/input_file.h"
#include "read/header_fields.h"
#include "read/header_section.h"
#include "read/other_section.h"
#include "read/progress.h"
#include "read/standard_data.h"
#include "read/tokeniser.h"
#include "read/transfer/keywords.h"
#include "read/transfer/read_store.h"
#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "read/transfer/wide_read.h"
#include "schema/chain.h"
#include "steprt/standard.h"
#include "steprt/text.h"
#include "support/ascii.h"

namespace {

using namespace steprt;

constexpr int kNoTransfer = 1;

void SkipByteOrderMark(InputFile& in) {
  for (const int byte : {0xEF, 0xBB, 0xBF}) {
    if (in.Peek() != byte) break;
    in.Get();
  }
  in.StartLine();
}

// Passes over data of another schema.
int SkipData(STEPtransfer* t) {
  t->wide->isSkipping = true;
  int token;
  do {
    NoteProgress(t);
    token = NextToken(t);
  } while (token != TOK_EOF && !(token == TOK_NAME && SectionCode(t->value.text) == SEC_ENDSEC));
  t->wide->isSkipping = false;
  return token == TOK_EOF ? SEC_NONE : SEC_ENDSEC;
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
    return PassOverSection(t);
  }
  return SEC_ENDSEC;
}

// Reads the section whose keyword has been read. Returns the keyword that ends it.
int ReadSection(STEPtransfer* t) {
  switch (SectionCode(t->value.text)) {
    case SEC_HEADER:
      return ReadHeaderSection(t, WideHeaderSchema());
    case SEC_DATA:
      return IsOfSchema(t) ? ReadStandardData(t) : SkipData(t);
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
    NoteProgress(t);
    t->wide->record = {};
    if (token == TOK_NAME && ReadSection(t) != SEC_ENDSEC) ReportError(t, kMissingEndsec);
  }
}

// A file that begins with something else may still have sections.
void CheckStart(STEPtransfer* t) {
  t->pushedToken = NextToken(t);
  if (t->pushedToken == TOK_NAME && SectionCode(t->value.text) == SEC_START) return;
  ReportError(t, kNotAStepFile);
}

// Whether XML begins here, after blanks.
bool IsDocument(STEPtransfer* t) {
  InputFile& in = *t->file.in;
  for (int c; (c = in.Peek()) == ' ' || c == '\t' || c == '\r' || c == '\n';) {
    in.Get();
    if (c == '\n') CountLine(t);
  }
  return in.Peek() == '<';
}

void ReadFile(STEPtransfer* t, std::string_view memory, bool isInMemory, DocumentReader* readDocument) {
  const std::unique_ptr<InputFile> file(isInMemory ? InputFile::MemoryOrNull() : InputFile::OpenOrNull(t->fileName));
  if (!file) return ReportError(t, isInMemory ? kOutOfMemory : kFileNotFound);
  if (isInMemory) file->Restart(memory);
  t->file.in = file.get();
  SkipByteOrderMark(*file);
  if (IsDocument(t)) {
    readDocument(t, isInMemory ? memory.data() : nullptr, memory.size());
  } else {
    CheckStart(t);
    ReadSections(t);
  }
  ResolveFixups(t);
  TellEnd(t);
}

// A file in memory may have no name.
TransferOwner Begin(const char* name, APPobject0* schema, bool isInMemory) {
  if (!isInMemory || *name) return BeginRead(name, schema, false);
  TransferOwner t = NewReadTransfer(kMemoryName, ErrorProcOf(schema), schema, false);
  if (t) Copy(t->where, "Read", kWhereLimit);
  return t;
}

}  // namespace

namespace steprt {

int ReadStandardFile(const char* name, std::string_view memory, bool isInMemory, APPobject0* schema,
                     const STEPreadOptions* options, DocumentReader* readDocument) {
  if (!name || !schema) return kNoTransfer;
  WideRead wide(options ? *options : STEPreadOptions());
  const TransferOwner t = Begin(name, schema, isInMemory);
  if (!t) return kNoTransfer;
  t->wide = &wide;
  t->byName = true;
  t->store->fixupPool.Close();
  ReadFile(t.get(), memory, isInMemory, readDocument);
  return t->errors;
}

}  // namespace steprt
