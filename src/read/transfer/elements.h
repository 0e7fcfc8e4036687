// The child elements of the XML entity that is being read: its attributes, by name, with their texts.
//
// An element that has served one entity serves the next, with the buffer of its text. A name is looked for along the
// first elements, and in a hash table when there are more.
#ifndef STEPRT_READ_TRANSFER_ELEMENTS_H
#define STEPRT_READ_TRANSFER_ELEMENTS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/hash.h"
#include "support/hash_table.h"

// One child element.
struct STEPelement {
  STEPelement* next;  // in document order
  char name[64];      // local name, truncated to 63 characters
  char* value;        // its text, one byte a character; null until character data arrives

  // What follows makes it fast.
  std::uint64_t hash;  // of the name
  std::size_t length;  // of the text
  char* buffer;        // of the text; stays when the element serves the next entity
  std::size_t capacity;
};

namespace steprt {

class ChildElements {
 public:
  // The list is kept in the transfer's own fields: `first` is its head, `tail` the link after its last element.
  ChildElements(STEPelement** first, STEPelement*** tail) : first_(first), tail_(tail) {}
  ~ChildElements();
  ChildElements(const ChildElements&) = delete;
  ChildElements& operator=(const ChildElements&) = delete;

  // Appends an element without a text. The name is truncated to 63 characters. Null when memory runs out.
  [[nodiscard]] STEPelement* Add(std::string_view name);

  // Appends the low byte of each unit to the element's text. A byte of 0 ends what was appended. When memory runs out,
  // the element loses its text, rather than keep a part that would look like a value, and the result is false.
  [[nodiscard]] static bool AppendText(STEPelement* element, std::u16string_view units);

  // Returns the first element of that name, compared case-insensitively, or null if there is none.
  const STEPelement* Find(std::string_view name);

  // Removes all elements. They wait, with their buffers and in their order, for the next entity, so that each buffer
  // meets the attribute that it has grown for.
  void Reset();

 private:
  struct Slot {
    STEPelement* element;  // null: free
    bool IsFree() const { return !element; }
  };

  bool ExtendIndex(STEPelement** link);
  STEPelement* MakeElement();
  bool Keep(STEPelement* used);

  STEPelement** const first_;
  STEPelement*** const tail_;
  STEPelement* spare_ = nullptr;  // elements that wait
  int spares_ = 0;
  std::size_t spareBytes_ = 0;  // of all their buffers

  HashTable<Slot, 4> index_;
  STEPelement** indexedTo_ = nullptr;  // the link after the last element in the index; null: the index is empty
  const HashSeed seed_ = ProcessSeed();
};

// Puts the low byte of each unit and a terminator into `buffer`, which must hold one byte more than there are units.
// Returns the length of the text that this makes: a low byte of 0 ends it.
std::size_t NarrowUnits(char* buffer, std::u16string_view units);

}  // namespace steprt

#endif
