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

InputFile* InputFile::MemoryOrNull() { return new (std::nothrow) InputFile(-1, 0); }

void InputFile::Restart(std::string_view text) {
  memory_ = text;
  size_ = text.size();
  taken_ = lineStart_ = 0;
  block_[-1] = '\n';
  ended_ = failed_ = false;
  cursor_ = limit_ = block_;
  EndBlock();
}

InputFile::~InputFile() {
  if (handle_ >= 0) ::close(handle_);
}

void InputFile::EndBlock() { std::memset(block_ + (limit_ - block_), '\n', kScanReach); }

// Returns 0 at the end, and after a failure, which is noted.
std::size_t InputFile::ReadBlock() {
  if (handle_ < 0) {
    const std::size_t count = memory_.copy(block_, kBlock);
    memory_.remove_prefix(count);
    return count;
  }
  ssize_t count;
  do {
    count = fileCalls.read(handle_, block_, kBlock);
  } while (count < 0 && errno == EINTR);
  failed_ = count < 0;
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

// Notes where the line began that goes on after this block.
void InputFile::NoteLineStart() {
  const std::size_t lineFeed = std::string_view(block_, static_cast<std::size_t>(limit_ - block_)).rfind('\n');
  if (lineFeed != std::string_view::npos) lineStart_ = OffsetOf(block_ + lineFeed + 1);
}

bool InputFile::Refill() {
  if (ended_) return false;
  NoteLineStart();
  if (limit_ != block_) block_[-1] = limit_[-1];
  const std::size_t count = ReadBlock();
  ended_ = count == 0;
  ++blocks_;
  taken_ += count;
  cursor_ = block_;
  limit_ = block_ + count;
  EndBlock();
  return count > 0;
}

}  // namespace steprt
