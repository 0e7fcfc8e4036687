// What a read of ISO 10303-21 as it is published keeps. A read of the library's own form has none of it, so whatever
// widens the grammar asks for it first.
#ifndef STEPRT_READ_TRANSFER_WIDE_READ_H
#define STEPRT_READ_TRANSFER_WIDE_READ_H

#include <cstddef>
#include <cstdint>
#include <optional>

#include "read/transfer/names.h"
#include "read/transfer/place.h"
#include "steprt/standard.h"
#include "support/pool.h"

namespace steprt {

// Collects the bytes of a word or text that the buffer of the transfer does not hold.
class LongToken {
 public:
  LongToken() = default;
  ~LongToken() { delete[] chars_; }
  LongToken(const LongToken&) = delete;
  LongToken& operator=(const LongToken&) = delete;

  void Clear() { length_ = 0; }

  // Adds bytes. Returns false, with nothing added, when memory runs out.
  [[nodiscard]] bool Add(const char* bytes, std::size_t count);

  char* Chars() const { return chars_; }  // with a null character at its end; null before the first Add

 private:
  char* chars_ = nullptr;
  std::size_t length_ = 0;
  std::size_t capacity_ = 0;
};

// The record, or the part of a complex instance, that is read.
struct RecordName {
  std::uint64_t instance = 0;     // 0 outside of records
  const char* keyword = nullptr;  // valid until the end of the read; null while it is not known
};

// Where a reference to a later record comes from, for a report at the end of the read.
struct WideFixup : STEPfixup {
  const RecordName* from;  // null when memory has run out
  const char* attribute;
  Place place;
};

// A line, and the offset of its first byte.
struct LineStart {
  int line = 0;
  std::uint64_t offset = 0;
};

// Which complex instances have a part of a type.
class ComplexTypes {
 public:
  // Returns where the answer for that pair is to be kept: 0 while it is unknown. Null when memory runs out.
  [[nodiscard]] signed char* Answer(const STEPheader* complex, int type);

 private:
  struct Slot {
    const STEPheader* complex;
    int type;
    signed char answer;
    bool IsFree() const { return !complex; }
  };
  HashTable<Slot, 6> table_;
  const HashSeed seed_ = ProcessSeed();
};

// The element of a standard file in XML whose value is read, and the one after it.
struct ElementCursor {
  const STEPelement* current = nullptr;
  const STEPelement* next = nullptr;
};

struct WideRead {
  explicit WideRead(const STEPreadOptions& given) : options(given) {
    if (options.header) options.header->Clear();
  }

  const STEPreadOptions options;
  LongToken token;  // the last word or text, if `isLong`; else it is in the buffer of the transfer
  bool isLong = false;
  // The last word that the fast paths did not read, and the place in the input where it, or a comment after it, ends.
  char* word = nullptr;
  const char* wordEnd = nullptr;
  std::uint32_t wordBlock = 0;
  BigNames bigNames;
  bool isPart = false;  // see rSTEPispart
  ElementCursor elements;

  // The names of FILE_SCHEMA, and the one that was searched last among them.
  STEPtexts ownSchemas;
  STEPtexts* const schemas = options.header ? &options.header->schemas : &ownSchemas;
  const char* searchedSchema = nullptr;
  bool isSearchedListed = false;

  STEPentry* entry = nullptr;  // of the record that is read; it has no object yet

  // What reports tell.
  RecordName record;
  const RecordName* keptRecord = nullptr;  // the same in `records`, once a fixup needs it
  SlowToken slow;
  LineStart lineStart;              // of the line that a report was about last
  std::optional<Place> noted;       // see NoteFault
  const WideFixup* from = nullptr;  // the reference that is resolved at the end of the read
  bool isSkipping = false;          // a record that has been reported
  bool isMuted = false;             // the read has been cancelled
  std::uint32_t seenBlock = 0;      // for which the progress has been told

  Pool<WideFixup> fixups;
  Pool<RecordName> records;
  KeptKeywords keywords;
  ComplexTypes complexTypes;
};

// Makes the fixup of a reference that has just been read. Null in a read of the library's own form, and when memory
// runs out.
[[gnu::noinline]] STEPfixup* WideFixupOrNull(STEPtransfer* t);

}  // namespace steprt

#endif
