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

signed char* ComplexTypes::Answer(const STEPheader* complex, int type) {
  const auto hashOf = [this](const STEPheader* of, int with) {
    return HashNumber(reinterpret_cast<std::uintptr_t>(of) * 31 + static_cast<std::uint32_t>(with), seed_);
  };
  if (!table_.Reserve(1, [&](const Slot& slot) { return hashOf(slot.complex, slot.type); })) return nullptr;
  Slot* slot = table_.Find(hashOf(complex, type),
                           [=](const Slot& taken) { return taken.complex == complex && taken.type == type; });
  if (slot->IsFree()) {
    *slot = {complex, type, 0};
    table_.NoteTaken();
  }
  return &slot->answer;
}

STEPfixup* WideFixupOrNull(STEPtransfer* t) {
  WideRead* const wide = t->wide;
  WideFixup* const fixup = wide ? wide->fixups.Make() : nullptr;
  if (!fixup) return nullptr;
  if (!wide->keptRecord) {
    if (RecordName* kept = wide->records.Make()) {
      *kept = wide->record;
      wide->keptRecord = kept;
    }
  }
  fixup->from = wide->keptRecord;
  fixup->attribute = t->attribute;
  fixup->place = PlaceOfReference(t);
  return fixup;
}

}  // namespace steprt
