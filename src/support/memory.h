// The one place that says `new`: each operation gives null when memory is exhausted, and each caller has an answer.
#ifndef STEPRT_SUPPORT_MEMORY_H
#define STEPRT_SUPPORT_MEMORY_H

#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace steprt {

template <typename T, typename... Args>
[[nodiscard]] T* MakeOrNull(Args&&... args) {
  return new (std::nothrow) T(std::forward<Args>(args)...);
}

// Zeroed, for delete[].
template <typename T>
[[nodiscard]] T* MakeArrayOrNull(std::size_t count) {
  return new (std::nothrow) T[count]();
}

// Room for `count` characters, not initialised, for delete[].
[[nodiscard]] inline char* MakeBufferOrNull(std::size_t count) { return new (std::nothrow) char[count]; }

// A text of its own with a terminator behind it, for delete[].
[[nodiscard]] inline char* CopyTextOrNull(std::string_view text) {
  char* copy = MakeBufferOrNull(text.size() + 1);
  if (!copy) return nullptr;
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

}  // namespace steprt

#endif
