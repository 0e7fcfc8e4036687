#include "read/data_section.h"

#include <cstring>

#include "read/begin_record.h"
#include "read/items.h"
#include "read/sections.h"
#include "read/tokeniser.h"
#include "read/transfer/report.h"

namespace steprt {
namespace {

void RefuseRecord(STEPtransfer* t, const char* message) {
  ReportError(t, message);
  SkipToSemicolon(t);
}

// "(" attributes ")", with the attributes left to the row's read function.
//
// A token in place of the `)` is pushed back, so that a `;` ends the skip at once. A token in place of the `(` is not,
// so a `;` there takes the next record with it. This is intended (Attributes.GiveWhatTheirRowsSay).
void ReadBrackets(STEPtransfer* t, const APPentity& row, STEPentry* entry) {
  if (!row.read || NextToken(t, '(', TOK_OPEN) != TOK_OPEN) return RefuseRecord(t, kSyntax);
  t->lastToken = kNoToken;
  SetObject(entry, row.read(t));
  CloseOpenItems(t);
  if (t->lastToken == TOK_SEMI) return;
  const int token = NextToken(t, ')', TOK_CLOSE);
  if (token == TOK_CLOSE) return;
  t->pushedToken = token;
  RefuseRecord(t, kSyntax);
}

// record = "#" number "=" NAME "(" attributes ")" ";", of which the number has been read
//
// The number counts as used from here on, even if the record turns out to be bad. Returns false if the record breaks
// off before its keyword and ends the read. The record of a complex instance does.
bool ReadRecord(STEPtransfer* t, int number) {
  STEPentry* entry = BeginRecord(t, number);
  if (!entry) {
    RefuseRecord(t, kOutOfMemory);
    return true;
  }
  if (NextToken(t, '=', TOK_EQUAL) != TOK_EQUAL || NextToken(t) != TOK_NAME) return false;
  std::memcpy(t->where, t->value.text, kWhereLimit);  // what follows a shorter name does no harm
  if (const APPentity* row = t->lookups.FindEntityByName({t->value.text, t->nameLength})) {
    ReadBrackets(t, *row, entry);
  } else {
    ReportError(t, kUnknownEntity, t->value.text);
    SkipToSemicolon(t);
  }
  return true;
}

}  // namespace

int ReadDataSection(STEPtransfer* t) {
  for (;;) {
    const int token = NextToken(t, ';', TOK_SEMI);
    if (token == TOK_EOF) return SEC_NONE;
    if (token == TOK_NAME) return SectionCode(t->value.text);
    if (token != TOK_REF) continue;  // the `;` after a record as well
    if (!ReadRecord(t, t->value.integer)) return SEC_NONE;
  }
}

}  // namespace steprt
