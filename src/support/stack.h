// A stack of plain records that needs the heap only when it outgrows its own room.
#ifndef STEPRT_SUPPORT_STACK_H
#define STEPRT_SUPPORT_STACK_H

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "support/memory.h"

namespace steprt {

template <typename T, int kRoom>
class Stack {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  Stack() = default;
  ~Stack() { delete[] heap_; }
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;

  // False, without a change, when memory is exhausted.
  [[nodiscard]] bool Push(const T& item) {
    if (count_ == capacity_ && !Grow()) return false;
    items_[count_++] = item;
    return true;
  }

  void Pop() { --count_; }
  T& Top() { return items_[count_ - 1]; }
  int Count() const { return count_; }

 private:
  bool Grow() {
    T* larger = MakeArrayOrNull<T>(static_cast<std::size_t>(capacity_) * 2);
    if (!larger) return false;
    std::memcpy(larger, items_, static_cast<std::size_t>(count_) * sizeof(T));
    delete[] heap_;
    heap_ = items_ = larger;
    capacity_ *= 2;
    return true;
  }

  T room_[kRoom];
  T* heap_ = nullptr;
  T* items_ = room_;
  int count_ = 0;
  int capacity_ = kRoom;
};

}  // namespace steprt

#endif
