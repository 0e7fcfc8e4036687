// Expat allocates with the same operators as the library, so that a test that counts or fails allocations covers both.
// The memory that Expat may hold is limited.
#ifndef STEPRT_PLATFORM_EXPAT_MEMORY_H
#define STEPRT_PLATFORM_EXPAT_MEMORY_H

#include <expat.h>

#include <cstddef>

namespace steprt {

extern const XML_Memory_Handling_Suite expatMemory;

// Limits what Expat holds in proportion to what it was given, for the life of this object. A tag with a long address of
// a namespace and many attributes lets Expat copy the address for each of them, before any callback could stop it: that
// takes the square of the tag's length. A parser must be freed before its limit is destroyed; limits nest as parses do.
class ExpatMemoryLimit {
 public:
  ExpatMemoryLimit();
  ~ExpatMemoryLimit();
  ExpatMemoryLimit(const ExpatMemoryLimit&) = delete;
  ExpatMemoryLimit& operator=(const ExpatMemoryLimit&) = delete;

  // Says that Expat was given so many bytes more.
  void Raise(std::size_t bytes);

  bool WasMet() const { return wasMet_; }

  // For the memory suite. Returns false if the block would exceed the limit.
  [[nodiscard]] bool Take(std::size_t size);
  void Return(std::size_t size) { held_ -= size; }

 private:
  ExpatMemoryLimit* const outer_;
  std::size_t limit_;
  std::size_t held_ = 0;
  bool wasMet_ = false;
};

}  // namespace steprt

#endif
