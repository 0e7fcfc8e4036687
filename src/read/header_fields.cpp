#include "read/header_fields.h"

#include "read/header_section.h"
#include "read/transfer/report.h"
#include "read/transfer/wide_read.h"
#include "steprt/items.h"
#include "steprt/read.h"
#include "support/ascii.h"

namespace steprt {
namespace {

// Reads the fields of one record in their order. A field that is no text is reported, and those after it are read. The
// end of the record in place of a field is reported once.
class Fields {
 public:
  Fields(STEPtransfer* t, const char* keyword) : t_(t) { t->wide->record.keyword = keyword; }
  ~Fields() { t_->wide->record.keyword = nullptr; }
  Fields(const Fields&) = delete;
  Fields& operator=(const Fields&) = delete;

  Fields& Text(STEPstring& out) {
    out = "";
    if (!IsThere(STEP_TEXT, kMissingText)) return *this;
    const char* text = rSTEPtext(t_, nullptr);
    out = text;
    if (*text && out.IsEmpty()) ReportError(t_, kOutOfMemory);
    return *this;
  }

  Fields& List(STEPtexts& out) {
    out.Clear();
    if (!IsThere(STEP_LIST, kMissingTextInList)) return *this;
    rSTEPopen(t_, nullptr);
    for (STEPitem kind; (kind = rSTEPkind(t_, nullptr)) != STEP_END;) {
      if (kind != STEP_TEXT) {
        rSTEPrefuse(t_, nullptr, kMissingTextInList);
      } else if (!out.Add(rSTEPtext(t_, nullptr))) {
        ReportError(t_, kOutOfMemory);
      }
    }
    rSTEPclose(t_);
    return *this;
  }

 private:
  // Whether the next value is of that kind. One of another kind is reported and passed over.
  bool IsThere(STEPitem wanted, const char* message) {
    if (hasEnded_) return false;
    const STEPitem kind = rSTEPkind(t_, nullptr);
    if (kind == wanted) return true;
    hasEnded_ = kind == STEP_END;
    if (hasEnded_) {
      ReportError(t_, message);
    } else {
      rSTEPrefuse(t_, nullptr, message);
    }
    return false;
  }

  STEPtransfer* const t_;
  bool hasEnded_ = false;
};

STEPheader* ReadFileDescription(STEPtransfer* t) {
  STEPfileHeader* header = t->wide->options.header;
  if (!header) return PassOverHeaderRecord(t);
  Fields(t, "FILE_DESCRIPTION").List(header->description).Text(header->implementationLevel);
  return nullptr;
}

STEPheader* ReadFileName(STEPtransfer* t) {
  STEPfileHeader* header = t->wide->options.header;
  if (!header) return PassOverHeaderRecord(t);
  Fields(t, "FILE_NAME")
      .Text(header->name)
      .Text(header->timeStamp)
      .List(header->author)
      .List(header->organization)
      .Text(header->preprocessorVersion)
      .Text(header->originatingSystem)
      .Text(header->authorization);
  return nullptr;
}

// As in the library's own form, a record without names keeps the earlier ones. A value that is no text is left out.
STEPheader* ReadFileSchema(STEPtransfer* t) {
  WideRead& wide = *t->wide;
  STEPtexts names;
  Fields(t, "FILE_SCHEMA").List(names);
  if (names.Count() == 0) return nullptr;
  wide.schemas->Swap(names);
  wide.searchedSchema = nullptr;
  return nullptr;
}

// The name ends before its object identifier: PLANT { 1 0 10303 99 }.
bool IsSchemaName(const char* listed, const char* schemaName) {
  while (*schemaName && ToLower(*listed) == ToLower(*schemaName)) {
    ++listed;
    ++schemaName;
  }
  return !*schemaName && (!*listed || *listed == ' ' || *listed == '\t' || *listed == '{');
}

}  // namespace

APPobject0* WideHeaderSchema() {
  static constinit struct {
    APPobject0 descriptor;
    APPentity more[7];
  } header = {{nullptr,
               "header",
               nullptr,
               nullptr,
               nullptr,
               {{"FILE_DESCRIPTION", ReadFileDescription, nullptr, 501, nullptr}}},
              {{"FILE_NAME", ReadFileName, nullptr, 502, nullptr},
               {"FILE_SCHEMA", ReadFileSchema, nullptr, 500, nullptr},
               {"FILE_POPULATION", PassOverHeaderRecord, nullptr, 503, nullptr},
               {"SECTION_LANGUAGE", PassOverHeaderRecord, nullptr, 504, nullptr},
               {"SECTION_CONTEXT", PassOverHeaderRecord, nullptr, 505, nullptr},
               {"SCHEMA_POPULATION", PassOverHeaderRecord, nullptr, 506, nullptr},
               {nullptr, nullptr, nullptr, 0, nullptr}}};
  return &header.descriptor;
}

// The search is not repeated for the same name, because a file may have many names and many DATA sections.
bool IsSchemaListed(STEPtransfer* t, const char* schemaName) {
  WideRead& wide = *t->wide;
  if (wide.searchedSchema == schemaName) return wide.isSearchedListed;
  wide.searchedSchema = schemaName;
  wide.isSearchedListed = false;
  for (int i = 0; i < wide.schemas->Count() && !wide.isSearchedListed; ++i) {
    wide.isSearchedListed = IsSchemaName(wide.schemas->At(i), schemaName);
  }
  return wide.isSearchedListed;
}

}  // namespace steprt
