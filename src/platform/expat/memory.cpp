#include "platform/expat/memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "support/memory.h"

namespace steprt {
namespace {

// In front of each block stands its size, which a block that grows has to know.
constexpr std::size_t kHead = alignof(std::max_align_t);
static_assert(kHead >= sizeof(std::size_t));

std::size_t SizeOf(const char* block) {
  std::size_t size;
  std::memcpy(&size, block - kHead, sizeof size);
  return size;
}

void Free(void* block) {
  if (block) delete[](static_cast<char*>(block) - kHead);
}

void* Allocate(std::size_t size) {
  char* room = size > SIZE_MAX - kHead ? nullptr : MakeBufferOrNull(kHead + size);
  if (!room) return nullptr;
  std::memcpy(room, &size, sizeof size);
  return room + kHead;
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

const XML_Memory_Handling_Suite expatMemory = {Allocate, Reallocate, Free};

}  // namespace steprt
