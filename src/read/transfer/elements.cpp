#include "read/transfer/elements.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "support/ascii.h"
#include "support/memory.h"

namespace steprt {
namespace {

constexpr std::size_t kNameLimit = sizeof STEPelement::name - 1;

// The instructions of Add, AppendText, Find and Reset were counted by callgrind at each value, half and double, for
// entities of so many elements. The names come from a seed, and each is sought once.

// Of an element's text. Half: 0.3 % more for texts of 5 characters. Double: no change.
constexpr std::size_t kLeastBuffer = 32;
// Elements that are compared one by one before an index is worth its cost. Half: 5 % more for 16 elements, 7 % fewer
// for 64. Double: 3 % fewer for 20 elements, 10 % more for 64.
constexpr int kWalked = 16;
// Slots of the index that stay for the next entity. Half: 17 % more for 300 elements. Double: 13 % fewer for 700, for
// 13 KB more that wait.
constexpr std::size_t kKeptSlots = 1024;

// What waits for the next entity is limited: the count of elements, one buffer, and all buffers together.

// Half: 30 % more for 700 elements. Double: 26 % fewer for 1,500, for 80 KB more that wait.
constexpr int kMostSpares = 1024;
// Half: 1.5 % more for texts of 3,000 characters. Double: 0.8 % fewer for 6,000.
constexpr std::size_t kMostSpareBuffer = 4096;
// Half: 5 % more for 800 elements with 300 characters each. Double: 1.4 % fewer for 1,000.
constexpr std::size_t kMostSpareBytes = 256 * 1024;

bool IsNamed(const STEPelement& element, std::string_view name, std::uint64_t hash) {
  return element.hash == hash && EqualNames(element.name, name.data());
}

void DropBuffer(STEPelement* element) {
  delete[] element->buffer;
  element->buffer = nullptr;
  element->capacity = 0;
}

void Release(STEPelement* element) {
  DropBuffer(element);
  delete element;
}

}  // namespace

ChildElements::~ChildElements() {
  Reset();
  while (spare_) Release(std::exchange(spare_, spare_->next));
}

STEPelement* ChildElements::Add(std::string_view name) {
  STEPelement* element = MakeElement();
  if (!element) return nullptr;
  const std::size_t length = name.copy(element->name, kNameLimit);
  element->name[length] = '\0';
  element->hash = HashNoCase({element->name, length}, seed_);
  element->next = nullptr;
  element->value = nullptr;
  element->length = 0;
  **tail_ = element;
  *tail_ = &element->next;
  return element;
}

bool ChildElements::AppendText(STEPelement* element, std::u16string_view units) {
  const std::size_t wanted = element->length + units.size() + 1;
  if (wanted > element->capacity) {
    char* larger =
        MakeLargerOrNull(element->buffer, element->length, &element->capacity, std::max(wanted, kLeastBuffer));
    if (!larger) {
      element->value = nullptr;
      return false;
    }
    delete[] element->buffer;
    element->buffer = larger;
  }
  element->value = element->buffer;
  element->length += NarrowUnits(element->value + element->length, units);
  return true;
}

const STEPelement* ChildElements::Find(std::string_view name) {
  const std::uint64_t hash = HashNoCase(name, seed_);
  STEPelement** link = first_;
  for (int i = 0; i < kWalked && *link; ++i, link = &(*link)->next) {
    if (IsNamed(**link, name, hash)) return *link;
  }
  if (!*link) return nullptr;
  if (ExtendIndex(link)) {
    return index_.Find(hash, [&](const Slot& slot) { return IsNamed(*slot.element, name, hash); })->element;
  }
  const STEPelement* element = *link;  // when memory runs out for an index, all are compared
  while (element && !IsNamed(*element, name, hash)) element = element->next;
  return element;
}

// Adds the elements from *link on to the index, or from where it ends. Of several with one name it holds the first.
// Returns false when memory runs out.
bool ChildElements::ExtendIndex(STEPelement** link) {
  if (!indexedTo_) indexedTo_ = link;
  for (; *indexedTo_; indexedTo_ = &(*indexedTo_)->next) {
    STEPelement* const element = *indexedTo_;
    if (!index_.Reserve(1, [](const Slot& slot) { return slot.element->hash; })) return false;
    Slot* slot = index_.Find(element->hash,
                             [=](const Slot& each) { return IsNamed(*each.element, element->name, element->hash); });
    if (!slot->IsFree()) continue;
    slot->element = element;
    index_.NoteTaken();
  }
  return true;
}

STEPelement* ChildElements::MakeElement() {
  if (!spare_) return MakeOrNull<STEPelement>();
  STEPelement* taken = spare_;
  spare_ = taken->next;
  --spares_;
  spareBytes_ -= taken->capacity;
  return taken;
}

// Returns false when enough elements wait.
bool ChildElements::Keep(STEPelement* used) {
  if (spares_ == kMostSpares) return false;
  if (used->capacity > kMostSpareBuffer || spareBytes_ + used->capacity > kMostSpareBytes) DropBuffer(used);
  ++spares_;
  spareBytes_ += used->capacity;
  return true;
}

void ChildElements::Reset() {
  if (!*first_) return;
  STEPelement** link = first_;
  while (*link) {
    if (Keep(*link)) {
      link = &(*link)->next;
    } else {
      Release(std::exchange(*link, (*link)->next));
    }
  }
  *link = std::exchange(spare_, *first_);
  *first_ = nullptr;
  *tail_ = first_;
  index_.Clear(kKeptSlots);
  indexedTo_ = nullptr;
}

std::size_t NarrowUnits(char* buffer, std::u16string_view units) {
  unsigned char least = 0xff;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto byte = static_cast<unsigned char>(units[i]);
    buffer[i] = static_cast<char>(byte);
    least = std::min(least, byte);
  }
  buffer[units.size()] = '\0';
  return least == 0 ? std::strlen(buffer) : units.size();
}

}  // namespace steprt
