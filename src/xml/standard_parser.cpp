#include "xml/standard_parser.h"

#include <cstring>

#include "read/complex.h"
#include "read/element_values.h"
#include "read/header_fields.h"
#include "read/items.h"
#include "read/standard_data.h"
#include "read/tokeniser.h"
#include "read/transfer/instance_table.h"
#include "read/transfer/report.h"
#include "schema/chain.h"
#include "steprt/text.h"
#include "support/ascii.h"
#include "support/memory.h"
#include "xml/values/names.h"

namespace steprt {
namespace {

bool IsName(std::u16string_view units, const char* name) {
  for (const char16_t unit : units) {
    if (unit != static_cast<unsigned char>(*name++)) return false;
  }
  return *name == '\0';
}

// Reads one record of the header, whose values are in brackets.
void ReadHeaderRecord(STEPtransfer* t, const STEPelement& element) {
  const APPentity* row = WideHeaderSchema()->entities;
  while (row->name && !EqualNoCase(row->name, element.name)) ++row;
  if (!row->name || !element.value) return;
  EnterText(t, element.value);
  if (NextToken(t) != TOK_OPEN) return ReportError(t, kSyntax);
  row->read(t);
  CloseOpenItems(t);
}

}  // namespace

SaxResult StandardXmlParser::StartDocument() {
  isOwnForm_ = true;
  return XmlParser::StartDocument();
}

// With the check, elements around the root are passed over, as in the library's own form.
SaxResult StandardXmlParser::StartRoot(SaxAttributes& attributes) {
  bool isStandard = false;
  for (int i = 0; i < attributes.Length(); ++i) {
    isStandard = isStandard || (IsName(attributes.LocalName(i, kTextLimit), kFormAttribute) &&
                                IsName(attributes.Value(i, kTextLimit), kFormOfValues));
  }
  if (transfer->wide->options.check && !EqualNoCase(text, NameOf(*schema))) {
    ReportError(transfer, kWrongSchema, NameOf(*schema));
    return kSaxFailure;
  }
  depth = kInRoot;
  if (!isStandard) return kSaxOk;
  isOwnForm_ = false;
  transfer->xml = false;
  transfer->items.isDocument = true;
  transfer->file.in = transfer->items.input.get();
  return kSaxOk;
}

// The keyword of an element, or its name if it has none. It is valid until the next element.
char* StandardXmlParser::Keyword(std::u16string_view localName) {
  NarrowText(localName);
  char* keyword = text;
  if (localName.size() > kTextLimit) {
    LongToken& token = transfer->wide->token;
    token.Clear();
    for (std::u16string_view rest = localName; !rest.empty();) {
      const std::size_t length = NarrowText(rest);
      if (length == 0 || !token.Add(text, length)) {
        ReportError(transfer, kOutOfMemory);
        return text;
      }
      rest.remove_prefix(length);
    }
    keyword = token.Chars();
  }
  constexpr std::size_t kPrefix = sizeof kUserDefinedPrefix - 1;
  if (std::strncmp(keyword, kUserDefinedPrefix, kPrefix) != 0) return keyword;
  keyword += kPrefix - 1;
  *keyword = '!';
  return keyword;
}

// Reads the number of the record as a token, so that every name is taken.
bool StandardXmlParser::ReadNumber(SaxAttributes& attributes) {
  for (int i = 0; i < attributes.Length(); ++i) {
    if (!IsName(attributes.LocalName(i, kTextLimit), "rid")) continue;
    char number[kTextLimit + 1];
    NarrowUnits(number, attributes.Value(i, kTextLimit));
    EnterText(transfer, number);
    if (NextToken(transfer) != TOK_REF) break;
    entry = EnterDocumentRecord(transfer, transfer->value.integer);
    return entry;
  }
  ReportError(transfer, kMissingRid);
  return false;
}

// Looks for the row of a record or part, and forgets the values of the one before.
void StandardXmlParser::EnterEntity(char* keyword) {
  transfer->value.text = keyword;
  reader_ = EnterKeyword(transfer, transfer->lookups.FindEntityByName(keyword));
  if (!reader_) ReportUnknownEntity(transfer);
  transfer->store->childElements.Reset();
}

void StandardXmlParser::StartComplex() {
  kind_ = Kind::kComplex;
  valueDepth_ = kInChild;
  complex_ = MakeOrNull<STEPcomplex>();
  if (!complex_) {
    ReportError(transfer, kOutOfMemory);
    kind_ = Kind::kSkipped;
    return;
  }
  complex_->number = entry->number > 0 ? entry->number : 0;
}

void StandardXmlParser::StartRecord(char* keyword, SaxAttributes& attributes) {
  transfer->store->childElements.Reset();
  valueDepth_ = kInEntity;
  kind_ = Kind::kHeader;
  if (std::strcmp(keyword, kHeaderElement) == 0) return;
  kind_ = Kind::kSkipped;
  if (!ReadNumber(attributes)) return;
  if (std::strcmp(keyword, kComplexElement) == 0) return StartComplex();
  kind_ = Kind::kRecord;
  EnterEntity(keyword);
}

void StandardXmlParser::StartValue(std::u16string_view localName) {
  const std::size_t length = NarrowText(localName);
  element = transfer->store->childElements.Add({text, length});
  if (!element) ReportError(transfer, kOutOfMemory);
}

SaxResult StandardXmlParser::StartElement(std::u16string_view localName, SaxAttributes& attributes) {
  if (depth == kOutside) {
    NarrowText(localName);
    return StartRoot(attributes);
  }
  if (isOwnForm_) return XmlParser::StartElement(localName, attributes);
  const int at = depth++;
  if (at == kInRoot) {
    StartRecord(Keyword(localName), attributes);
  } else if (kind_ == Kind::kComplex && at == kInEntity) {
    EnterEntity(Keyword(localName));
  } else if (kind_ != Kind::kSkipped && at == valueDepth_) {
    StartValue(localName);
  }
  return kSaxOk;
}

void StandardXmlParser::EndRecord() {
  STEPtransfer* t = transfer;
  if (kind_ == Kind::kHeader) {
    t->items.isDocument = false;
    for (const STEPelement* each = t->elements; each; each = each->next) ReadHeaderRecord(t, *each);
    t->items.isDocument = true;
  }
  if (kind_ == Kind::kComplex) SetObject(entry, complex_);  // a reference from a part waits until all parts are there
  if (kind_ != Kind::kRecord || !reader_) return;
  BeginElementValues(t);
  SetObject(entry, reader_->read(t));
  CloseOpenItems(t);
  if (entry->object) entry->object->number = entry->number > 0 ? entry->number : 0;
}

SaxResult StandardXmlParser::EndElement() {
  if (isOwnForm_) return XmlParser::EndElement();
  if (depth == kOutside) return kSaxOk;
  --depth;
  if (depth <= valueDepth_) element = nullptr;
  if (depth == kInRoot) EndRecord();
  if (depth == kInEntity && kind_ == Kind::kComplex) {
    BeginElementValues(transfer);
    ReadPartValues(transfer, reader_, complex_);
  }
  return kSaxOk;
}

}  // namespace steprt
