#include "xml/parser.h"

#include "read/items.h"
#include "read/transfer/instance_table.h"
#include "read/transfer/report.h"
#include "schema/chain.h"
#include "steprt/instance.h"
#include "steprt/text.h"
#include "support/ascii.h"
#include "support/number_parse.h"

namespace steprt {
namespace {

constexpr char kNumberAttribute[] = "rid";

}  // namespace

SaxResult XmlParser::StartDocument() {
  depth = kOutside;
  return kSaxOk;
}

// Elements around the root are not counted, so a root inside other elements is found.
SaxResult XmlParser::StartElement(std::u16string_view localName, SaxAttributes& attributes) {
  const std::size_t length = NarrowText(localName);
  switch (depth) {
    case kOutside:
      if (EqualNoCase(text, NameOf(*schema))) depth = kInRoot;
      return kSaxOk;
    case kInRoot:
      return StartEntity(attributes);
    case kInEntity:
      StartChild(length);
      return kSaxOk;
    default:
      ++depth;
      return kSaxOk;
  }
}

SaxResult XmlParser::StartEntity(SaxAttributes& attributes) {
  Copy(transfer->where, text, kWhereLimit);
  const int count = attributes.Length();
  if (count == 0) return RefuseEntity();
  for (int i = 0; i < count; ++i) {
    NarrowText(attributes.LocalName(i, kTextLimit));
    if (!EqualNoCase(text, kNumberAttribute)) return RefuseEntity();
    const std::u16string_view value = attributes.Value(i, kTextLimit);
    NarrowText(value);
    BeginInstance(value.empty() ? 0 : TextToInt(text + 1));  // the first character counts as the #, whatever it is
  }
  depth = kInEntity;
  return kSaxOk;
}

// Ends the parse. The message has no head and is not counted, which is intended.
SaxResult XmlParser::RefuseEntity() {
  if (transfer->errorProc) transfer->errorProc(kMissingRid);
  return kSaxFailure;
}

void XmlParser::BeginInstance(int number) {
  entry = RegisterEntry(transfer, number);
  if (!entry) ReportError(transfer, kOutOfMemory);
  row = transfer->lookups.FindEntityByName(transfer->where);
  transfer->store->childElements.Reset();
  element = nullptr;
}

// The name is in `text`.
void XmlParser::StartChild(std::size_t nameLength) {
  depth = kInChild;
  element = transfer->store->childElements.Add({text, nameLength});
  if (!element) ReportError(transfer, kOutOfMemory);
}

SaxResult XmlParser::Characters(std::u16string_view units) {
  if (!element || depth <= kInEntity) return kSaxOk;
  if (ChildElements::AppendText(element, units)) return kSaxOk;
  ReportError(transfer, kOutOfMemory);
  element = nullptr;
  return kSaxOk;
}

SaxResult XmlParser::EndElement() {
  if (depth == kInEntity) ReadInstance();
  if (depth > kOutside) --depth;
  return kSaxOk;
}

void XmlParser::ReadInstance() {
  if (!entry || !row || !row->read) return;
  SetObject(entry, row->read(transfer));
  CloseOpenItems(transfer);
  if (entry->object) entry->object->number = entry->number;
}

std::size_t XmlParser::NarrowText(std::u16string_view units) { return NarrowUnits(text, units.substr(0, kTextLimit)); }

}  // namespace steprt
