#include "read/transfer/names.h"

#include <cstring>

#include "support/hash.h"
#include "support/memory.h"

namespace steprt {

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

KeptKeywords::~KeptKeywords() {
  while (last_) {
    Link link;
    char* const memory = last_ - sizeof link;
    std::memcpy(&link, memory, sizeof link);
    delete[] memory;
    last_ = link.last;
  }
}

const char* KeptKeywords::Keep(std::string_view keyword) {
  const auto hashOf = [this](std::string_view text) { return HashNoCase(text, seed_); };
  if (!table_.Reserve(1, [&](const Slot& slot) { return hashOf(slot.text); })) return nullptr;
  Slot* slot = table_.Find(hashOf(keyword), [=](const Slot& taken) { return taken.text == keyword; });
  if (!slot->IsFree()) return slot->text;
  const Link link = {last_};
  char* const memory = MakeBufferOrNull(sizeof link + keyword.size() + 1);
  if (!memory) return nullptr;
  std::memcpy(memory, &link, sizeof link);
  last_ = memory + sizeof link;
  std::memcpy(last_, keyword.data(), keyword.size());
  last_[keyword.size()] = '\0';
  slot->text = last_;
  table_.NoteTaken();
  return last_;
}

}  // namespace steprt
