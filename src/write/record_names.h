// The names of the instances of a standard file, and which instances the file has. All of it is known before the first
// record is written.
#ifndef STEPRT_WRITE_RECORD_NAMES_H
#define STEPRT_WRITE_RECORD_NAMES_H

#include <cstddef>
#include <cstdint>

#include "steprt/instance.h"
#include "support/hash_table.h"
#include "support/seed.h"

namespace steprt {

// While the file is written, the `number` of an instance is its place in the table, counted from 1. So a name is found
// in constant time, and an instance that is not in the file is recognised whatever its number is.
class RecordNames {
 public:
  RecordNames() = default;
  ~RecordNames() { delete[] entries_; }
  RecordNames(const RecordNames&) = delete;
  RecordNames& operator=(const RecordNames&) = delete;

  // Makes a table for that many instances, parts included. Returns false when memory runs out.
  [[nodiscard]] bool Reserve(std::size_t count);

  // Sets the name of an instance. A part has the name of its complex instance.
  void Add(STEPheader* object, std::uint64_t name) {
    entries_[count_] = {object, name};
    object->number = static_cast<int>(++count_);
  }

  // The name of an instance; 0 if the file does not have it.
  std::uint64_t Find(const STEPheader* object) const {
    const auto place = static_cast<std::size_t>(object->number) - 1;
    return place < count_ && entries_[place].object == object ? entries_[place].name : 0;
  }

  // Replaces the places in the instances by their names; 0 for a name beyond 31 bits.
  void StoreNumbers();

  // Whether this is the first call with this instance.
  bool IsFirstMiss(const STEPheader* object);

 private:
  struct Entry {
    STEPheader* object;
    std::uint64_t name;
  };
  struct Slot {
    const STEPheader* object;
    bool IsFree() const { return !object; }
  };
  std::uint64_t HashOf(const STEPheader* object) const;

  Entry* entries_ = nullptr;
  std::size_t count_ = 0;
  HashTable<Slot, 6> missed_;
  const HashSeed seed_ = ProcessSeed();
};

}  // namespace steprt

#endif
