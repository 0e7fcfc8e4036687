// Records of one kind, made in chunks and released all at once. A record never moves.
#ifndef STEPRT_SUPPORT_POOL_H
#define STEPRT_SUPPORT_POOL_H

#include <cstdint>
#include <cstring>

#include "support/memory.h"

namespace steprt {

template <typename T, std::uint32_t kChunk = 1024>
class Pool {
 public:
  Pool() = default;
  ~Pool() {
    for (std::uint32_t i = 0; i < chunks_; ++i) delete[] directory_[i];
    delete[] directory_;
  }
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

  // A zeroed record, or null when memory is exhausted.
  [[nodiscard]] T* Make() {
    if (count_ == chunks_ * kChunk && !AddChunk()) return nullptr;
    return &At(count_++);
  }

  // The records in the order of their making.
  T& At(std::uint32_t i) const { return directory_[i / kChunk][i % kChunk]; }
  std::uint32_t Count() const { return count_; }

 private:
  bool AddChunk() {
    if (chunks_ == room_ && !GrowDirectory()) return false;
    T* chunk = MakeArrayOrNull<T>(kChunk);
    if (!chunk) return false;
    directory_[chunks_++] = chunk;
    return true;
  }

  bool GrowDirectory() {
    const std::uint32_t room = room_ ? room_ * 2 : 16;
    T** larger = MakeArrayOrNull<T*>(room);
    if (!larger) return false;
    if (directory_) std::memcpy(larger, directory_, chunks_ * sizeof(T*));
    delete[] directory_;
    directory_ = larger;
    room_ = room;
    return true;
  }

  T** directory_ = nullptr;
  std::uint32_t room_ = 0;    // of the directory
  std::uint32_t chunks_ = 0;  // in it
  std::uint32_t count_ = 0;   // of records
};

}  // namespace steprt

#endif
