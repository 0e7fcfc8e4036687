// Records of one kind, made in chunks and released all at once. A record never moves.
#ifndef STEPRT_SUPPORT_POOL_H
#define STEPRT_SUPPORT_POOL_H

#include <cstdint>

#include "support/memory.h"

namespace steprt {

template <typename T, std::uint32_t kChunk = 1024>
class Pool {
 public:
  Pool() = default;
  ~Pool() {
    for (std::size_t i = 0; i < chunks_; ++i) delete[] directory_[i];
    delete[] directory_;
  }
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

  // A zeroed record, or null when memory runs out or the pool is closed before its first record.
  [[nodiscard]] T* Make() {
    if (count_ == chunks_ * kChunk && !AddChunk()) return nullptr;
    return &At(count_++);
  }

  // Makes no record any more.
  void Close() { isClosed_ = true; }

  // The records in the order in which they were made.
  T& At(std::uint32_t i) const { return directory_[i / kChunk][i % kChunk]; }
  std::uint32_t Count() const { return count_; }

 private:
  static constexpr std::size_t kLeastChunks = 16;

  bool AddChunk() {
    if (isClosed_) return false;
    if (chunks_ == capacity_ && !GrowDirectory()) return false;
    T* chunk = MakeArrayOrNull<T>(kChunk);
    if (!chunk) return false;
    directory_[chunks_++] = chunk;
    return true;
  }

  bool GrowDirectory() {
    T** larger = MakeLargerOrNull(directory_, chunks_, &capacity_, kLeastChunks);
    if (!larger) return false;
    delete[] directory_;
    directory_ = larger;
    return true;
  }

  T** directory_ = nullptr;
  std::size_t capacity_ = 0;  // of the directory
  std::size_t chunks_ = 0;    // in it
  std::uint32_t count_ = 0;   // of records
  bool isClosed_ = false;
};

}  // namespace steprt

#endif
