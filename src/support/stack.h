// A stack of plain records. It needs the heap only when it outgrows the buffer inside it.
#ifndef STEPRT_SUPPORT_STACK_H
#define STEPRT_SUPPORT_STACK_H

#include <cstddef>

#include "support/memory.h"

namespace steprt {

template <typename T, int kOwn>
class Stack {
 public:
  Stack() = default;
  ~Stack() { delete[] heap_; }
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;

  // Returns false, without a change, when memory runs out.
  [[nodiscard]] bool Push(const T& item) {
    if (count_ == capacity_ && !Grow()) return false;
    items_[count_++] = item;
    return true;
  }

  void Pop() { --count_; }
  T& Top() { return items_[count_ - 1]; }
  int Count() const { return static_cast<int>(count_); }

 private:
  bool Grow() {
    T* larger = MakeLargerOrNull(items_, count_, &capacity_, 0);
    if (!larger) return false;
    delete[] heap_;
    heap_ = items_ = larger;
    return true;
  }

  T own_[kOwn];
  T* heap_ = nullptr;
  T* items_ = own_;
  std::size_t count_ = 0;
  std::size_t capacity_ = kOwn;
};

}  // namespace steprt

#endif
