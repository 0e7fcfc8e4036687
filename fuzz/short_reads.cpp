#include "short_reads.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/posix/file_calls.h"

namespace fuzz {
namespace {

constexpr std::size_t kMost = 11;  // bytes of one read

std::uint32_t state = 0;

std::uint32_t Next() {
  state = state * 1664525u + 1013904223u;
  return state >> 16;
}

ssize_t ReadShort(int handle, void* block, std::size_t size) {
  if (Next() % 16 == 0) {
    errno = EINTR;
    return -1;
  }
  return read(handle, block, std::min(size, Next() % kMost + 1));
}

}  // namespace

ShortReads::ShortReads(std::uint32_t seed) {
  state = seed;
  steprt::fileCalls.read = ReadShort;
}

ShortReads::~ShortReads() { steprt::fileCalls.read = read; }

}  // namespace fuzz
