#include "read/transfer/wide_read.h"

#include <cstring>

#include "support/hash.h"
#include "support/memory.h"

namespace steprt {

bool LongToken::Add(const char* bytes, std::size_t count) {
  if (length_ + count >= capacity_) {
    char* larger = MakeLargerOrNull(chars_, length_, &capacity_, length_ + count + 1);
    if (!larger) return false;
    delete[] chars_;
    chars_ = larger;
  }
  std::memcpy(chars_ + length_, bytes, count);
  length_ += count;
  chars_[length_] = '\0';
  return true;
}

int BigNames::NumberOf(std::uint64_t name) {
  const auto hashOf = [this](std::uint64_t of) { return HashNumber(of, seed_); };
  if (!table_.Reserve(1, [&](const Slot& slot) { return hashOf(slot.name); })) return 0;
  Slot* slot = table_.Find(hashOf(name), [=](const Slot& taken) { return taken.name == name; });
  if (!slot->IsFree()) return slot->number;
  const std::size_t index = table_.Count();
  if (index == capacity_) {
    std::uint64_t* larger = MakeLargerOrNull(names_, index, &capacity_, kLeast);
    if (!larger) return 0;
    delete[] names_;
    names_ = larger;
  }
  names_[index] = name;
  *slot = {name, -static_cast<int>(index) - 1};
  table_.NoteTaken();
  return slot->number;
}

}  // namespace steprt
