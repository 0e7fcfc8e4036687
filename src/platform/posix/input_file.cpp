#include "platform/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>

#include "platform/posix/file_calls.h"

namespace steprt {

InputFile* InputFile::OpenOrNull(const char* name) {
  const int handle = OpenFile(name, O_RDONLY | O_CLOEXEC | O_NOCTTY);
  if (handle < 0) return nullptr;
  struct stat status;
  const bool readable = ::fstat(handle, &status) == 0 && !S_ISDIR(status.st_mode);
  const auto size = readable && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
  InputFile* file = readable ? new (std::nothrow) InputFile(handle, size) : nullptr;
  if (!file) ::close(handle);
  return file;
}

InputFile::~InputFile() { ::close(handle_); }

void InputFile::EndBlock() { std::memset(block_ + (limit_ - block_), '\n', kScanReach); }

bool InputFile::Refill() {
  if (ended_) return false;
  ssize_t count;
  do {
    count = fileCalls.read(handle_, block_, kBlock);
  } while (count < 0 && errno == EINTR);
  failed_ = count < 0;
  ended_ = count <= 0;
  if (ended_) count = 0;
  ++blocks_;
  taken_ += static_cast<std::uint64_t>(count);
  cursor_ = block_;
  limit_ = block_ + count;
  EndBlock();
  return count > 0;
}

}  // namespace steprt
