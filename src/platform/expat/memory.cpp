#include "platform/expat/memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "support/memory.h"

namespace steprt {
namespace {

constinit ExpatMemoryLimit* memoryLimit = nullptr;  // that of the innermost parse

// Expat needs most for a nest of <a>: 50 bytes for each of its bytes.
constexpr std::size_t kMemoryForByte = 96;
constexpr std::size_t kMemoryForNothing = std::size_t{1} << 24;

// The size of a block is stored before it: it is needed when the block grows or is released.
constexpr std::size_t kHead = alignof(std::max_align_t);
static_assert(kHead >= sizeof(std::size_t));

std::size_t SizeOf(const char* block) {
  std::size_t size;
  std::memcpy(&size, block - kHead, sizeof size);
  return size;
}

void Free(void* block) {
  if (!block) return;
  char* const start = static_cast<char*>(block);
  if (memoryLimit) memoryLimit->Return(SizeOf(start));
  delete[](start - kHead);
}

void* Allocate(std::size_t size) {
  if (size > SIZE_MAX - kHead) return nullptr;
  if (memoryLimit && !memoryLimit->Take(size)) return nullptr;
  char* buffer = MakeBufferOrNull(kHead + size);
  if (!buffer) {
    if (memoryLimit) memoryLimit->Return(size);
    return nullptr;
  }
  std::memcpy(buffer, &size, sizeof size);
  return buffer + kHead;
}

void* Reallocate(void* block, std::size_t size) {
  if (!block) return Allocate(size);
  void* larger = Allocate(size);
  if (!larger) return nullptr;
  std::memcpy(larger, block, std::min(size, SizeOf(static_cast<char*>(block))));
  Free(block);
  return larger;
}

}  // namespace

ExpatMemoryLimit::ExpatMemoryLimit() : outer_(memoryLimit), limit_(kMemoryForNothing) { memoryLimit = this; }

ExpatMemoryLimit::~ExpatMemoryLimit() { memoryLimit = outer_; }

void ExpatMemoryLimit::Raise(std::size_t bytes) { limit_ += kMemoryForByte * bytes; }

bool ExpatMemoryLimit::Take(std::size_t size) {
  wasMet_ = size > limit_ - held_;
  if (!wasMet_) held_ += size;
  return !wasMet_;
}

const XML_Memory_Handling_Suite expatMemory = {Allocate, Reallocate, Free};

}  // namespace steprt
