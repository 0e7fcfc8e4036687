// The records of a standard file:
//
//   #1=NAME(...);                    <NAME rid="#1">...</NAME>
//   #2=(NAME(...)NAME(...));         <complex.instance rid="#2"><NAME>...</NAME><NAME>...</NAME></complex.instance>
#include "write/wide_records.h"

#include "read/transfer/report.h"
#include "steprt/standard.h"
#include "steprt/text.h"
#include "write/items.h"
#include "write/record_loop.h"
#include "write/wide_document.h"
#include "write/wide_values.h"
#include "xml/values/names.h"

namespace steprt {
namespace {

const APPentity* RowOf(STEPtransfer* t, const STEPheader* object) {
  const APPentity* unknown = t->wideWrite->options.unknown;
  return unknown && unknown->type == object->type ? unknown : t->lookups.FindEntityByType(object->type);
}

STEPheader* PartsOf(STEPheader* object) {
  return object->type == STEPcomplex::kType ? static_cast<STEPcomplex*>(object)->Parts() : nullptr;
}

// Whether the file has brackets for an instance or part. A complex instance itself has no row.
bool HasBrackets(STEPtransfer* t, const STEPheader* object) {
  const APPentity* row = object->type == STEPcomplex::kType ? nullptr : RowOf(t, object);
  return row && row->write;
}

bool IsUnknown(STEPtransfer* t, const STEPheader* object) {
  return object->type == STEPcomplex::kType || !RowOf(t, object);
}

bool HasRecord(STEPtransfer* t, STEPheader* object) {
  if (object->type != STEPcomplex::kType) return HasBrackets(t, object);
  const STEPheader* part = PartsOf(object);
  while (part && !HasBrackets(t, part)) part = part->next;
  return part;
}

// Counts the instances and parts, and removes the numbers of an earlier file.
std::size_t CountAll(STEPheader* first) {
  std::size_t count = 0;
  for (STEPheader* object = first; object; object = object->next) {
    object->number = 0;
    ++count;
    for (STEPheader* part = PartsOf(object); part; part = part->next) {
      part->number = 0;
      ++count;
    }
  }
  return count;
}

// Tells the write function that it writes a part, also if it throws.
class PartScope {
 public:
  explicit PartScope(WideWrite* wide) : wide_(wide) { wide_->isPart = true; }
  ~PartScope() { wide_->isPart = false; }
  PartScope(const PartScope&) = delete;
  PartScope& operator=(const PartScope&) = delete;

 private:
  WideWrite* const wide_;
};

// NAME(attributes)
void WriteBrackets(STEPtransfer* t, const APPentity& row, STEPheader* object) {
  WideWrite& wide = *t->wideWrite;
  Copy(t->where, row.name, kWhereLimit);
  wide.keyword = row.name;
  wide.isNamed = false;
  row.write(t, object);
  EndOpenItems(t);
  PutKeyword(t, wide.keyword);
  if (wide.isDocument) return EndEntity(t, wide.keyword);
  PutToken(t, ")");
}

void WriteParts(STEPtransfer* t, STEPheader* complex) {
  const PartScope scope(t->wideWrite);
  for (STEPheader* part = PartsOf(complex); part; part = part->next) {
    if (HasBrackets(t, part)) {
      WriteBrackets(t, *RowOf(t, part), part);
    } else if (IsUnknown(t, part)) {
      ReportError(t, kUnknownObject);
    }
  }
}

void WriteComplex(STEPtransfer* t, STEPheader* complex) {
  if (!t->wideWrite->isDocument) PutToken(t, "(");
  if (t->wideWrite->isDocument) BeginFrame(t, kComplexElement);
  WriteParts(t, complex);
  if (!t->wideWrite->isDocument) PutToken(t, ")");
  if (t->wideWrite->isDocument) EndFrame(t, kComplexElement);
}

void WriteRecord(STEPtransfer* t, STEPheader* object, std::uint64_t name) {
  WideWrite& wide = *t->wideWrite;
  wide.name = name;
  if (!wide.isDocument) {
    PutName(t, name);
    PutToken(t, "=");
  }
  if (object->type == STEPcomplex::kType) {
    WriteComplex(t, object);
  } else {
    WriteBrackets(t, *RowOf(t, object), object);
  }
  if (!wide.isDocument) PutToken(t, ";");
  PutLineEnd(t);
}

}  // namespace

bool NameRecords(STEPtransfer* t, STEPheader* first) {
  WideWrite& wide = *t->wideWrite;
  if (!wide.names.Reserve(CountAll(first))) return Refuse(t, kOutOfMemory, false);
  std::uint64_t last = 0;
  for (STEPheader* object = first; object; object = object->next) {
    if (!HasRecord(t, object)) continue;
    const std::uint64_t name = wide.options.nameOf ? wide.options.nameOf(object, wide.options.context) : ++last;
    wide.names.Add(object, name);
    for (STEPheader* part = PartsOf(object); part; part = part->next) wide.names.Add(part, name);
  }
  return true;
}

int WriteWideRecords(STEPtransfer* t, STEPheader* first) {
  int count = 0;
  for (STEPheader* object = first; object; object = object->next) {
    if (const std::uint64_t name = t->wideWrite->names.Find(object)) {
      WriteRecord(t, object, name);
      ++count;
    } else if (IsUnknown(t, object)) {
      ReportError(t, kUnknownObject);
    }
    if (t->file.out->HasFailed()) return kWriteFailed;
  }
  return count;
}

void PutKeyword(STEPtransfer* t, const char* keyword) {
  WideWrite& wide = *t->wideWrite;
  if (wide.isNamed) return;
  wide.isNamed = true;
  wide.keyword = keyword;
  t->lastToken = TOK_OPEN;  // so the first attribute has no comma
  if (wide.isDocument) return BeginEntity(t, keyword);
  PutUpperCase(t, keyword);
  PutToken(t, "(");
}

}  // namespace steprt

bool wSTEPispart(STEPtransfer* t) { return t->wideWrite && t->wideWrite->isPart; }

bool wSTEPisstandard(STEPtransfer* t) { return t->wideWrite; }

void wSTEPkeyword(STEPtransfer* t, const char* keyword) {
  using namespace steprt;
  if (!t->wideWrite || !keyword || t->wideWrite->isNamed) return;
  Copy(t->where, keyword, kWhereLimit);
  PutKeyword(t, keyword);
}
