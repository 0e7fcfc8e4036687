#include "read/complex.h"

#include "model/current_model.h"
#include "read/items.h"
#include "read/sections.h"
#include "read/standard_data.h"
#include "read/tokeniser.h"
#include "read/transfer/report.h"
#include "read/transfer/wide_read.h"
#include "steprt/standard.h"
#include "support/memory.h"

namespace steprt {
namespace {

// Tells the read function that it reads a part, also if it throws.
class PartScope {
 public:
  explicit PartScope(WideRead* wide) : wide_(wide) { wide_->isPart = true; }
  ~PartScope() { wide_->isPart = false; }
  PartScope(const PartScope&) = delete;
  PartScope& operator=(const PartScope&) = delete;

 private:
  WideRead* const wide_;
  const CurrentModelScope none_{nullptr};
};

void ReadPartBy(STEPtransfer* t, const APPentity& row, STEPcomplex* complex) {
  STEPheader* part = nullptr;
  t->lastToken = kNoToken;
  {
    const PartScope scope(t->wide);
    part = row.read(t);
  }
  if (part) complex->Add(part);
  CloseOpenItems(t);
  t->attribute = nullptr;
}

// Keeps the keyword of a part, which has been reported.
void KeepUnknownPart(STEPtransfer* t, STEPcomplex* complex) {
  const CurrentModelScope none(nullptr);
  if (auto* part = MakeOrNull<STEPheader>()) {
    part->Id(t->where);
    complex->Add(part);
  } else {
    ReportError(t, kOutOfMemory);
  }
}

// Reads the attributes of a part and the `)` after them. Returns false if the record has ended.
bool ReadPart(STEPtransfer* t, const APPentity& row, STEPcomplex* complex) {
  ReadPartBy(t, row, complex);
  if (t->lastToken == TOK_SEMI) return false;
  const int token = NextToken(t, ')', TOK_CLOSE);
  if (token == TOK_CLOSE) return true;
  t->pushedToken = token;
  ReportError(t, kSyntax);
  SkipToClose(t, 1);
  return t->lastToken != TOK_SEMI;
}

// Passes over the values of a part. Returns false if the record has ended.
bool SkipPart(STEPtransfer* t, STEPcomplex* complex) {
  KeepUnknownPart(t, complex);
  t->lastToken = kNoToken;
  t->wide->isSkipping = true;
  SkipToClose(t, 1);
  t->wide->isSkipping = false;
  return t->lastToken != TOK_SEMI;
}

void RefuseToken(STEPtransfer* t, int token) {
  t->pushedToken = token;
  ReportError(t, kSyntax);
}

// Reads the parts up to the `)` after them, or to what does not belong there.
void ReadParts(STEPtransfer* t, STEPcomplex* complex) {
  for (;;) {
    int token = NextToken(t, ')', TOK_CLOSE);
    if (token == TOK_CLOSE) return;
    if (token != TOK_NAME) return RefuseToken(t, token);
    const APPentity* row = EnterKeyword(t, t->lookups.FindEntityByName({t->value.text, t->nameLength}));
    const int errors = t->errors;
    if (!row) ReportUnknownEntity(t);
    token = NextToken(t, '(', TOK_OPEN);
    if (token != TOK_OPEN) return RefuseToken(t, token);
    if (row ? ReadPart(t, *row, complex) : SkipPart(t, complex)) continue;
    t->pushedToken = TOK_SEMI;
    if (t->errors == errors) ReportError(t, kSyntax);
    return;
  }
}

}  // namespace

void ReadPartValues(STEPtransfer* t, const APPentity* row, STEPcomplex* complex) {
  if (row) return ReadPartBy(t, *row, complex);
  KeepUnknownPart(t, complex);
}

void ReadComplex(STEPtransfer* t, STEPentry* entry) {
  auto* complex = MakeOrNull<STEPcomplex>();
  if (!complex) {
    ReportError(t, kOutOfMemory);
    return SkipToClose(t, 1);
  }
  ReadParts(t, complex);
  SetObject(entry, complex);  // a reference from a part waits until all parts are there
}

}  // namespace steprt

bool rSTEPispart(STEPtransfer* t) { return t->wide && t->wide->isPart; }

const char* rSTEPkeyword(STEPtransfer* t) {
  return t->wide && t->wide->record.keyword ? t->wide->record.keyword : t->where;
}

std::uint64_t rSTEPinstance(STEPtransfer* t) { return t->wide ? t->wide->record.instance : 0; }

STEPheader* rSTEPabstract(STEPtransfer* t) {
  if (t->xml) return nullptr;
  steprt::ReportError(t, steprt::kSyntax);
  steprt::SkipToSemicolon(t);
  t->lastToken = TOK_SEMI;
  return nullptr;
}
