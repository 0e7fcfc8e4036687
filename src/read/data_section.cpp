#include "read/data_section.h"

#include <cstring>

#include "read/complex.h"
#include "read/items.h"
#include "read/sections.h"
#include "read/tokeniser.h"
#include "read/transfer/instance_table.h"
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

// Tells the instance table now and then how many numbers to expect, from the length of the records so far.
void ExpectFurther(STEPtransfer* t) {
  constexpr std::uint32_t kRecords = 16;
  EntryIndex& entries = t->store->entries;
  const std::uint32_t count = entries.Count();
  if (count % kRecords == 0) entries.Expect(count * t->file.in->Growth());
}

// Refuses a record that has no keyword where there should be one. In the library's own form it ends the read.
[[gnu::noinline]] bool RefuseKeyword(STEPtransfer* t, int token) {
  if (!t->wide) return false;
  t->pushedToken = token;
  RefuseRecord(t, kSyntax);
  return true;
}

// Reads the record of a complex instance, of which the first `(` has been read. The library's own form has none.
[[gnu::noinline]] bool ReadComplexRecord(STEPtransfer* t, STEPentry* entry) {
  if (!t->wide) return false;
  ReadComplex(t, entry);
  SkipToSemicolon(t);
  return true;
}

// record = "#" number "=" NAME "(" attributes ")" ";", of which the number has been read
//
// The number counts as used from here on, even if the record turns out to be bad. Returns false if the record breaks
// off before its keyword and ends the read. The record of a complex instance does.
bool ReadRecord(STEPtransfer* t, int number) {
  t->store->prefetcher.SeeRecord(number);
  ExpectFurther(t);
  STEPentry* entry = RegisterEntry(t, number);
  if (!entry) {
    RefuseRecord(t, kOutOfMemory);
    return true;
  }
  int token = NextToken(t, '=', TOK_EQUAL);
  if (token != TOK_EQUAL) return RefuseKeyword(t, token);
  token = NextToken(t);
  if (token == TOK_OPEN) return ReadComplexRecord(t, entry);
  if (token != TOK_NAME) return RefuseKeyword(t, token);
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
    if (token == TOK_NAME) {
      const int code = SectionCode(t->value.text);
      if (code != SEC_NONE || !t->wide) return code;
      RefuseRecord(t, kSyntax);
    }
    if (token != TOK_REF) continue;  // the `;` after a record as well
    if (!ReadRecord(t, t->value.integer)) return SEC_NONE;
  }
}

}  // namespace steprt
