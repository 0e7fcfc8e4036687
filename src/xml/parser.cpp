#include "xml/parser.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "read/transfer/instance_table.h"
#include "read/transfer/report.h"
#include "schema/chain.h"
#include "steprt/instance.h"
#include "steprt/text.h"
#include "support/ascii.h"
#include "support/memory.h"
#include "support/number.h"

namespace steprt {
namespace {

constexpr char kNumberAttribute[] = "rid";
constexpr std::size_t kNameLimit = sizeof STEPelement::name - 1;
constexpr std::size_t kLeastRoom = 32;  // of an element's text

// What waits for the next entity: elements, and room for text in each and in all of them.
constexpr int kMostSpares = 1024;
constexpr std::size_t kKeptRoom = 4096;
constexpr std::size_t kMostKeptRoom = 256 * 1024;

// Puts the low byte of each unit, and a terminator; what does not fit a byte is not told apart. Gives the length of the
// text that this makes: a unit whose low byte is 0 ends it.
std::size_t Narrow(char* room, std::u16string_view units) {
  unsigned char least = 0xff;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto byte = static_cast<unsigned char>(units[i]);
    room[i] = static_cast<char>(byte);
    least = std::min(least, byte);
  }
  room[units.size()] = '\0';
  return least == 0 ? std::strlen(room) : units.size();
}

bool Grow(STEPelement* element, std::size_t wanted) {
  const std::size_t capacity = std::max({wanted, element->capacity * 2, kLeastRoom});
  char* larger = MakeBufferOrNull(capacity);
  if (!larger) return false;
  if (element->value) std::memcpy(larger, element->value, element->length);
  delete[] element->room;
  element->room = larger;
  element->capacity = capacity;
  return true;
}

// What comes with a later call is put where the text ends.
bool Append(STEPelement* element, std::u16string_view units) {
  const std::size_t wanted = element->length + units.size() + 1;
  if (wanted > element->capacity && !Grow(element, wanted)) return false;
  element->value = element->room;
  element->length += Narrow(element->value + element->length, units);
  return true;
}

void DropRoom(STEPelement* element) {
  delete[] element->room;
  element->room = nullptr;
  element->capacity = 0;
}

void Release(STEPelement* element) {
  DropRoom(element);
  delete element;
}

}  // namespace

XmlParser::~XmlParser() {
  ResetElements();
  while (spare_) Release(std::exchange(spare_, spare_->next));
}

SaxResult XmlParser::StartDocument() {
  depth = kOutside;
  return kSaxOk;
}

// Elements around the root are not counted, so a root is found inside of them.
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
    NarrowText(attributes.Value(i, kTextLimit));
    BeginInstance(*text == '\0' ? 0 : TextToInt(text + 1));  // the first character stands for the #, whatever it is
  }
  depth = kInEntity;
  return kSaxOk;
}

// Ends the parse. The message goes out bare and is not counted, which is meant.
SaxResult XmlParser::RefuseEntity() {
  if (transfer->errorProc) transfer->errorProc(kMissingRid);
  return kSaxFailure;
}

void XmlParser::BeginInstance(int number) {
  entry = RegisterEntry(transfer, number);
  if (!entry) ReportError(transfer, kOutOfMemory);
  row = transfer->lookups.FindEntityByName(transfer->where);
  ResetElements();
}

// The name lies in `text`.
void XmlParser::StartChild(std::size_t nameLength) {
  depth = kInChild;
  element = NewElement();
  if (!element) return ReportError(transfer, kOutOfMemory);
  const std::size_t length = std::min(nameLength, kNameLimit);
  std::memcpy(element->name, text, length);
  element->name[length] = '\0';
  element->key = NameKey({element->name, length});
  element->next = nullptr;
  element->value = nullptr;
  element->length = 0;
  *transfer->elementsTail = element;
  transfer->elementsTail = &element->next;
}

SaxResult XmlParser::Characters(std::u16string_view units) {
  if (!element || depth <= kInEntity) return kSaxOk;
  if (!Append(element, units)) LoseElement();
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
  if (entry->object) entry->object->number = entry->number;
}

std::size_t XmlParser::NarrowText(std::u16string_view units) { return Narrow(text, units.substr(0, kTextLimit)); }

STEPelement* XmlParser::NewElement() {
  if (!spare_) return MakeOrNull<STEPelement>();
  STEPelement* taken = spare_;
  spare_ = taken->next;
  --spares_;
  spareRoom_ -= taken->capacity;
  return taken;
}

// Without memory for all of its text an element has none, rather than a part that would look like a value.
void XmlParser::LoseElement() {
  ReportError(transfer, kOutOfMemory);
  element->value = nullptr;
  element = nullptr;
}

// False when there are enough of them.
bool XmlParser::Keep(STEPelement* used) {
  if (spares_ == kMostSpares) return false;
  if (used->capacity > kKeptRoom || spareRoom_ + used->capacity > kMostKeptRoom) DropRoom(used);
  ++spares_;
  spareRoom_ += used->capacity;
  return true;
}

// The elements wait for the next entity, with their rooms and in their order, so that each room finds the attribute it
// has grown for.
void XmlParser::ResetElements() {
  element = nullptr;
  if (!transfer || !transfer->elements) return;
  STEPelement** link = &transfer->elements;
  while (*link) {
    if (Keep(*link))
      link = &(*link)->next;
    else
      Release(std::exchange(*link, (*link)->next));
  }
  *link = std::exchange(spare_, transfer->elements);
  transfer->elements = nullptr;
  transfer->elementsTail = &transfer->elements;
  transfer->elementIndex.Clear();
}

}  // namespace steprt
