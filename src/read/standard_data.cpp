#include "read/standard_data.h"

#include <cstring>

#include "read/begin_record.h"
#include "read/complex.h"
#include "read/items.h"
#include "read/progress.h"
#include "read/sections.h"
#include "read/tokeniser.h"
#include "read/transfer/report.h"
#include "steprt/text.h"
#include "support/ascii.h"
#include "support/memory.h"

namespace steprt {
namespace {

// The records whose scopes are open, the innermost last. Their bodies come after their scopes.
class OpenScopes {
 public:
  OpenScopes() = default;
  ~OpenScopes() { delete[] numbers_; }
  OpenScopes(const OpenScopes&) = delete;
  OpenScopes& operator=(const OpenScopes&) = delete;

  [[nodiscard]] bool Push(int number) {
    if (count_ == capacity_) {
      int* larger = MakeLargerOrNull(numbers_, count_, &capacity_, 16);
      if (!larger) return false;
      delete[] numbers_;
      numbers_ = larger;
    }
    numbers_[count_++] = number;
    return true;
  }
  int Pop() { return numbers_[--count_]; }
  bool IsEmpty() const { return count_ == 0; }

 private:
  int* numbers_ = nullptr;
  std::size_t count_ = 0;
  std::size_t capacity_ = 0;
};

std::uint64_t NameOf(const STEPtransfer* t, int number) {
  if (number == kRefusedName) return 0;
  return number >= 0 ? static_cast<std::uint64_t>(number) : t->wide->bigNames.NameOf(number);
}

void EnterRecord(STEPtransfer* t, std::uint64_t instance) {
  t->wide->record = {instance, nullptr};
  t->wide->keptRecord = nullptr;
  t->wide->entry = nullptr;
  t->attribute = nullptr;
}

// The record has been reported, and so nothing in it is.
void SkipRecord(STEPtransfer* t) {
  t->wide->isSkipping = true;
  SkipToSemicolon(t);
  t->wide->isSkipping = false;
}

void RefuseRecord(STEPtransfer* t, const char* message) {
  ReportError(t, message);
  SkipRecord(t);
}

void RefuseToken(STEPtransfer* t, int token) {
  t->pushedToken = token;
  RefuseRecord(t, kSyntax);
}

// "(" attributes ")", with the attributes left to the row's read function.
void ReadBrackets(STEPtransfer* t, const APPentity& row, STEPentry* entry) {
  int token = NextToken(t, '(', TOK_OPEN);
  if (token != TOK_OPEN) return RefuseToken(t, token);
  t->lastToken = kNoToken;
  SetObject(entry, row.read(t));
  CloseOpenItems(t);
  t->attribute = nullptr;
  if (t->lastToken == TOK_SEMI) return;
  token = NextToken(t, ')', TOK_CLOSE);
  if (token != TOK_CLOSE) RefuseToken(t, token);
}

void EnterKnown(STEPtransfer* t, const APPentity& row) {
  std::memcpy(t->where, t->value.text, kWhereLimit);  // what follows a shorter name does no harm
  t->wide->record.keyword = row.name;
}

void ReadKeywordAndBrackets(STEPtransfer* t, STEPentry* entry) {
  const APPentity* const row = t->lookups.FindEntityByName({t->value.text, t->nameLength});
  if (row && row->read) {
    EnterKnown(t, *row);
    return ReadBrackets(t, *row, entry);
  }
  if (row) {
    Copy(t->where, t->value.text, kWhereLimit);
    t->wide->record.keyword = row->name;
    return RefuseRecord(t, kSyntax);
  }
  if (const APPentity* reader = EnterKeyword(t, nullptr)) return ReadBrackets(t, *reader, entry);
  ReportUnknownEntity(t);
  SkipRecord(t);
}

// What comes after the "=" and after a scope.
void ReadBody(STEPtransfer* t, STEPentry* entry, int token) {
  if (token == TOK_NAME) return ReadKeywordAndBrackets(t, entry);
  if (token != TOK_OPEN) return RefuseToken(t, token);
  ReadComplex(t, entry);
  t->attribute = nullptr;
  SkipToSemicolon(t);
}

bool IsWord(const STEPtransfer* t, int token, const char* word) {
  return token == TOK_NAME && EqualNoCase(t->value.text, word);
}

// A record of which the name has been read.
void ReadRecord(STEPtransfer* t, int number, OpenScopes& scopes) {
  if (number == kRefusedName) return SkipRecord(t);
  if (number == 0) return RefuseRecord(t, kInvalidName);
  STEPentry* entry = BeginRecord(t, number);
  if (!entry) return RefuseRecord(t, kOutOfMemory);
  t->wide->entry = entry;
  int token = NextToken(t, '=', TOK_EQUAL);
  if (token != TOK_EQUAL) return RefuseToken(t, token);
  token = NextToken(t);
  if (token == TOK_NAME && *t->value.text != '&') return ReadKeywordAndBrackets(t, entry);
  if (!IsWord(t, token, "&SCOPE")) return ReadBody(t, entry, token);
  if (!scopes.Push(number)) RefuseRecord(t, kOutOfMemory);
}

// Skips the names of a scope that records outside of it may use, between slashes. All records may use all.
void SkipExported(STEPtransfer* t, bool isFirstSlashRead) {
  InputFile& in = *t->file.in;
  if (!isFirstSlashRead && !NextByteIs(t, '/')) return;
  if (!isFirstSlashRead) in.Get();
  for (int c; (c = in.Peek()) != InputFile::kEnd && c != ';';) {
    in.Get();
    if (c == '\n') CountLine(t);
    if (c == '/') return;
  }
}

// Reads on in the record whose scope ends here.
void EndScope(STEPtransfer* t, OpenScopes& scopes, bool isFirstSlashRead) {
  if (scopes.IsEmpty()) return RefuseRecord(t, kSyntax);
  const int number = scopes.Pop();
  EnterRecord(t, NameOf(t, number));
  SkipExported(t, isFirstSlashRead);
  t->wide->entry = FindEntry(t, number);
  ReadBody(t, t->wide->entry, NextToken(t));
}

// A scope that is still open leaves its record without a body.
int EndData(STEPtransfer* t, const OpenScopes& scopes, int code) {
  if (!scopes.IsEmpty()) ReportError(t, kSyntax);
  return code;
}

// Those of the section: DATA('name',('SCHEMA')).
void SkipParameters(STEPtransfer* t) {
  const int token = NextToken(t);
  if (token == TOK_OPEN) return SkipToClose(t, 1);
  t->pushedToken = token;
}

}  // namespace

STEPentry* EnterDocumentRecord(STEPtransfer* t, int number) {
  if (number == kRefusedName) return nullptr;
  EnterRecord(t, NameOf(t, number));
  if (number == 0) return Refuse(t, kInvalidName, nullptr);
  STEPentry* entry = RegisterEntry(t, number);
  if (!entry) return Refuse(t, kOutOfMemory, nullptr);
  t->wide->entry = entry;
  return entry;
}

const APPentity* EnterKeyword(STEPtransfer* t, const APPentity* row) {
  WideRead& wide = *t->wide;
  const char* const keyword = t->value.text;
  t->attribute = nullptr;
  wide.keptRecord = nullptr;
  if (row && row->read) {
    EnterKnown(t, *row);
    return row;
  }
  std::memcpy(t->where, keyword, kWhereLimit);
  wide.record.keyword = keyword;  // until ReportUnknownEntity
  if (!wide.options.unknown || !wide.options.unknown->read) return nullptr;
  wide.record.keyword = wide.keywords.Keep(keyword);
  if (wide.record.keyword) return wide.options.unknown;
  return Refuse(t, kOutOfMemory, nullptr);
}

void ReportUnknownEntity(STEPtransfer* t) {
  ReportError(t, kUnknownEntity, t->value.text);
  t->wide->record.keyword = t->where;  // the next token will replace the whole one
}

int ReadStandardData(STEPtransfer* t) {
  OpenScopes scopes;
  SkipParameters(t);
  for (;;) {
    NoteProgress(t);
    const int token = NextToken(t, ';', TOK_SEMI);
    if (token == TOK_EOF) return EndData(t, scopes, SEC_NONE);
    if (token == TOK_REF) {
      EnterRecord(t, NameOf(t, t->value.integer));
      ReadRecord(t, t->value.integer, scopes);
      EnterRecord(t, 0);
    } else if (IsWord(t, token, "ENDSCOPE") || IsWord(t, token, "ENDSCOPE/")) {
      EndScope(t, scopes, t->value.text[std::strlen("ENDSCOPE")] == '/');
      EnterRecord(t, 0);
    } else if (token != TOK_SEMI) {
      const int code = token == TOK_NAME ? SectionCode(t->value.text) : SEC_NONE;
      if (code != SEC_NONE) return EndData(t, scopes, code);
      RefuseRecord(t, kSyntax);
    }
  }
}

}  // namespace steprt
