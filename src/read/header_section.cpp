#include "read/header_section.h"

#include <utility>

#include "read/sections.h"
#include "read/tokeniser.h"
#include "read/transfer/read_store.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "schema/lookup.h"
#include "steprt/read.h"
#include "steprt/text.h"
#include "support/ascii.h"

namespace steprt {
namespace {

struct NameList {
  STEPaggr* aggr = nullptr;
  ~NameList() { DeleteTextAggr(aggr); }
};

// The names of a later record replace the earlier ones. A record without names keeps them.
STEPheader* ReadFileSchema(STEPtransfer* t) {
  NameList names;
  xrSTEPtextAggr(t, nullptr, &names.aggr);
  if (!names.aggr || (t->schemas && !names.aggr->head)) return nullptr;
  std::swap(t->schemas, names.aggr);
  t->store->listedSchema = nullptr;
  return nullptr;
}

// record = NAME "(" attributes (")" | ";"), of which the name has been read
//
// Returns false at a token that does not belong there. For a row without a read function the bracket must be empty.
bool ReadHeaderRecord(STEPtransfer* t, const APPentity& row) {
  Copy(t->where, t->buffer, kWhereLimit);
  if (NextToken(t) != TOK_OPEN) return false;
  if (row.read) {
    t->lastToken = kNoToken;
    row.read(t);
    if (t->lastToken == TOK_SEMI) return true;
  }
  const int token = NextToken(t);
  return token == TOK_CLOSE || token == TOK_SEMI;
}

}  // namespace

STEPheader* PassOverHeaderRecord(STEPtransfer* t) {
  t->pushedToken = SkipToSemicolon(t);
  return nullptr;
}

APPobject0* HeaderSchema() {
  static constinit struct {
    APPobject0 descriptor;
    APPentity more[3];
  } header = {{nullptr,
               "header",
               nullptr,
               nullptr,
               nullptr,
               {{"FILE_DESCRIPTION", PassOverHeaderRecord, nullptr, 501, nullptr}}},
              {{"FILE_NAME", PassOverHeaderRecord, nullptr, 502, nullptr},
               {"FILE_SCHEMA", ReadFileSchema, nullptr, 500, nullptr},
               {nullptr, nullptr, nullptr, 0, nullptr}}};
  return &header.descriptor;
}

int ReadHeaderSection(STEPtransfer* t, APPobject0* table) {
  for (;;) {
    const int token = NextToken(t);
    if (token == TOK_EOF) return SEC_NONE;
    if (token != TOK_NAME) continue;
    if (SectionCode(t->value.text) == SEC_ENDSEC) return SEC_ENDSEC;
    const APPentity* row = FindEntityByName(t->value.text, table);
    if (row && ReadHeaderRecord(t, *row)) continue;
    if (row) {
      ReportError(t, kSyntaxErrorIn, row->name);
    } else {
      ReportError(t, kUnknownEntity, t->value.text);  // `where` still shows the record before
    }
    SkipToSemicolon(t);
  }
}

// A file without FILE_SCHEMA lists no name. The search is not repeated for the name that was found last, because a file
// may have many names and many DATA sections.
bool SchemaNotListed(STEPtransfer* t, const char* schemaName) {
  if (t->store->listedSchema && t->store->listedSchema == schemaName) return false;
  for (const STEPlist* node = t->schemas ? t->schemas->head : nullptr; node; node = node->next) {
    if (!EqualNoCase(node->value.text, schemaName)) continue;
    t->store->listedSchema = schemaName;
    return false;
  }
  return true;
}

}  // namespace steprt
