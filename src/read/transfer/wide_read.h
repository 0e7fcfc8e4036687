// What a read of ISO 10303-21 as it is published keeps. A read of the library's own form has none of it, so whatever
// widens the grammar asks for it first.
#ifndef STEPRT_READ_TRANSFER_WIDE_READ_H
#define STEPRT_READ_TRANSFER_WIDE_READ_H

#include <cstddef>
#include <cstdint>

#include "steprt/file_header.h"
#include "steprt/standard.h"
#include "support/hash_table.h"
#include "support/seed.h"

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

// Assigns negative numbers to the instance names beyond 31 bits. No other name has a negative one.
class BigNames {
 public:
  BigNames() = default;
  ~BigNames() { delete[] names_; }
  BigNames(const BigNames&) = delete;
  BigNames& operator=(const BigNames&) = delete;

  // The number of a name. Returns 0 when memory runs out.
  int NumberOf(std::uint64_t name);

  // The name that has this number, which is negative.
  std::uint64_t NameOf(int number) const { return names_[-(number + 1)]; }

 private:
  static constexpr std::size_t kLeast = 64;

  struct Slot {
    std::uint64_t name;
    int number;
    bool IsFree() const { return number == 0; }
  };
  HashTable<Slot, 6> table_;
  std::uint64_t* names_ = nullptr;  // in the order of their numbers, -1 first
  std::size_t capacity_ = 0;
  const HashSeed seed_ = ProcessSeed();
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

  // The names of FILE_SCHEMA, and the one that was searched last among them.
  STEPtexts ownSchemas;
  STEPtexts* const schemas = options.header ? &options.header->schemas : &ownSchemas;
  const char* searchedSchema = nullptr;
  bool isSearchedListed = false;
};

}  // namespace steprt

#endif
