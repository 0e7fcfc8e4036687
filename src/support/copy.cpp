#include <cstring>

#include "steprt/text.h"

// Source and destination may overlap, as in model.Name(model.Name()).
char* Copy(char* destination, const char* source, int limit) {
  const std::size_t most = source && limit > 0 ? static_cast<std::size_t>(limit) : 0;
  const void* end = most > 0 ? std::memchr(source, '\0', most) : nullptr;
  const std::size_t length = end ? static_cast<std::size_t>(static_cast<const char*>(end) - source) : most;
  if (length > 0) std::memmove(destination, source, length);
  destination[length] = '\0';
  return destination;
}
