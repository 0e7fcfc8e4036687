#include "memory_file.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "check.h"

namespace fuzz {

MemoryFile::MemoryFile() : handle_(memfd_create("fuzz", MFD_CLOEXEC)) {
  STEPRT_CHECK(handle_ >= 0);
  name_ = "/proc/self/./fd/" + std::to_string(handle_);
}

MemoryFile::~MemoryFile() { close(handle_); }

void MemoryFile::Fill(const void* data, std::size_t size) {
  STEPRT_CHECK(ftruncate(handle_, 0) == 0);
  STEPRT_CHECK(pwrite(handle_, data, size, 0) == static_cast<ssize_t>(size));
}

std::string MemoryFile::Contents() const {
  struct stat status;
  STEPRT_CHECK(fstat(handle_, &status) == 0);
  std::string contents(static_cast<std::size_t>(status.st_size), '\0');
  STEPRT_CHECK(pread(handle_, contents.data(), contents.size(), 0) == static_cast<ssize_t>(contents.size()));
  return contents;
}

}  // namespace fuzz
