// Finds the child elements of an XML entity by name when there are many of them.
#ifndef STEPRT_READ_TRANSFER_ELEMENT_INDEX_H
#define STEPRT_READ_TRANSFER_ELEMENT_INDEX_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

struct STEPelement;

namespace steprt {

// Equal for names that differ in case alone, and cheap: it looks at the length, the first eight bytes and the last
// eight.
inline std::uint64_t NameKey(std::string_view name) {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020u;  // folds more than letters, which does not matter to a key
  std::uint64_t head = 0;
  std::uint64_t tail = 0;
  if (name.size() >= sizeof head) {
    std::memcpy(&head, name.data(), sizeof head);
    std::memcpy(&tail, name.data() + name.size() - sizeof tail, sizeof tail);
  } else {
    name.copy(reinterpret_cast<char*>(&head), name.size());
  }
  return ((head | kCaseBits) * 0x9e3779b97f4a7c15u ^ (tail | kCaseBits)) + name.size();
}

// A hash table of the names in a list of elements. It takes up what has been appended to the list since the last
// question; of several elements of one name it holds the first. Its order is seeded, so that no document can be made to
// collide in it.
class ElementIndex {
 public:
  ElementIndex() = default;
  ~ElementIndex() { delete[] slots_; }
  ElementIndex(const ElementIndex&) = delete;
  ElementIndex& operator=(const ElementIndex&) = delete;

  // Takes up the elements from *link on, the same link each time until Clear. False when memory is exhausted.
  [[nodiscard]] bool Extend(STEPelement** link);

  // The first element of the name, in any case; null for none.
  STEPelement* Find(std::string_view name) const;

  // Forgets all elements.
  void Clear();

 private:
  struct Slot {
    STEPelement* element;  // null: free
    std::uint64_t hash;
  };

  std::uint64_t Hash(std::string_view name) const;
  Slot* SlotOf(std::string_view name, std::uint64_t hash) const;
  void Seed(std::uint64_t place);
  bool Grow();

  Slot* slots_ = nullptr;
  std::size_t capacity_ = 0;  // a power of two, or 0
  std::size_t count_ = 0;
  std::uint64_t seed_ = 0;
  std::uint64_t factor_ = 0;      // odd; 0: not seeded
  STEPelement** link_ = nullptr;  // where the next element will be; null: none has been taken up
};

}  // namespace steprt

#endif
