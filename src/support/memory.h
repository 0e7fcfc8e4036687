// The only place that says `new`. Each operation returns null when memory runs out, and each caller has an answer.
#ifndef STEPRT_SUPPORT_MEMORY_H
#define STEPRT_SUPPORT_MEMORY_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>

namespace steprt {

template <typename T, typename... Args>
[[nodiscard]] T* MakeOrNull(Args&&... args) {
  return new (std::nothrow) T(std::forward<Args>(args)...);
}

// Zeroed. Release it with delete[].
template <typename T>
[[nodiscard]] T* MakeArrayOrNull(std::size_t count) {
  return new (std::nothrow) T[count]();
}

// A buffer of `count` characters, not initialised. Release it with delete[].
[[nodiscard]] inline char* MakeBufferOrNull(std::size_t count) { return new (std::nothrow) char[count]; }

// The capacity of the larger array that MakeLargerOrNull makes: at least twice the old one.
inline std::size_t LargerCapacity(std::size_t capacity, std::size_t wanted) { return std::max(wanted, capacity * 2); }

// A larger array with the first `used` items of `items`, for whatever grows. The items after them are not initialised.
// *capacity becomes that of the larger array. The caller releases the old array. Null, without a change, when memory
// runs out.
template <typename T>
[[nodiscard]] T* MakeLargerOrNull(const T* items, std::size_t used, std::size_t* capacity, std::size_t wanted) {
  static_assert(std::is_trivially_copyable_v<T>);
  const std::size_t larger = LargerCapacity(*capacity, wanted);
  T* const made = new (std::nothrow) T[larger];
  if (!made) return nullptr;
  std::copy_n(items, used, made);
  *capacity = larger;
  return made;
}

// A copy of the text with a terminator. Release it with delete[].
[[nodiscard]] inline char* CopyTextOrNull(std::string_view text) {
  char* copy = MakeBufferOrNull(text.size() + 1);
  if (!copy) return nullptr;
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

}  // namespace steprt

#endif
