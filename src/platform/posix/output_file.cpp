#include "platform/output_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>

#include "platform/posix/file_calls.h"
#include "platform/posix/quiet_signals.h"
#include "platform/posix/replacement.h"
#include "support/memory.h"

namespace steprt {
namespace {

// Returns how many bytes were written: all, unless a write failed.
std::size_t WriteAll(int handle, const char* bytes, std::size_t size) {
  const QuietSignals quiet;
  std::size_t written = 0;
  while (written < size) {
    const ssize_t count = fileCalls.write(handle, bytes + written, size - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  return written;
}

// A device or a pipe has no length to cut.
bool Empty(int handle) {
  struct stat status;
  if (::fstat(handle, &status) != 0) return false;
  return !S_ISREG(status.st_mode) || ::ftruncate(handle, 0) == 0;
}

}  // namespace

// Memory is allocated first, so that no file is created without it.
OutputFile* OutputFile::CreateOrNull(const char* name, Sharing sharing) {
  std::unique_ptr<OutputFile> file(new (std::nothrow) OutputFile);
  return file && file->Open(name, sharing) ? file.release() : nullptr;
}

OutputFile* OutputFile::CreateReplacementOrNull(const char* name) {
  std::unique_ptr<OutputFile> file(new (std::nothrow) OutputFile);
  if (!file) return nullptr;
  file->replacement_ = MakeOrNull<Replacement>();
  if (!file->replacement_) return nullptr;
  file->handle_ = file->replacement_->Create(name);
  return file->handle_ >= 0 ? file.release() : nullptr;
}

// Some file systems cannot wait until a file is on the disk. That is no failure of the write.
bool OutputFile::Commit() {
  Flush();
  if (failed_) return false;
  if (::fsync(handle_) != 0 && errno != EINVAL && errno != EROFS && errno != ENOTSUP) return false;
  return replacement_->Commit();
}

// With O_NONBLOCK, a FIFO that nobody reads fails instead of waiting. It is removed afterwards, so that writes wait. A
// file on which another process has a lease fails too; an open that waits breaks the lease.
bool OutputFile::Open(const char* name, Sharing sharing) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY;
  handle_ = OpenFile(name, kFlags | O_NONBLOCK);
  if (handle_ < 0 && errno == EWOULDBLOCK) handle_ = OpenFile(name, kFlags);
  if (handle_ < 0 || ::fcntl(handle_, F_SETFL, 0) != 0) return false;
  const int lock = sharing == Sharing::kDenyWrite ? LOCK_EX : LOCK_SH;
  const bool taken = ::flock(handle_, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  return !taken && Empty(handle_);
}

// Unlocked explicitly: a child process that the host has forked meanwhile would keep the lock.
OutputFile::~OutputFile() {
  Flush();
  if (handle_ >= 0) {
    ::flock(handle_, LOCK_UN);
    ::close(handle_);
  }
  delete replacement_;
}

void OutputFile::PutInPieces(std::string_view text) {
  while (text.size() > kBlock - used_) {
    const std::size_t fits = text.copy(block_ + used_, kBlock - used_);
    used_ = kBlock;
    text.remove_prefix(fits);
    Flush();
  }
  Put(text);
}

void OutputFile::Flush() {
  if (used_ > 0 && !failed_) {
    const std::size_t count = WriteAll(handle_, block_, used_);
    written_ += static_cast<std::int64_t>(count);
    failed_ = count < used_;
  }
  used_ = 0;
}

// A write that failed before may succeed now, so at first all whole records stay.
void OutputFile::CutBackToMark() {
  if (!failed_) return;
  used_ = 0;
  isCut_ = CutTo(std::max<std::int64_t>(LastMark(written_), 0));
  if (isCut_) return;
  failed_ = false;
  Put('\n');
}

void OutputFile::PutTail(std::initializer_list<std::string_view> tail) {
  for (const std::string_view piece : tail) Put(piece);
  Flush();
}

void OutputFile::MakeTailFit(std::initializer_list<std::string_view> tail) {
  if (!isCut_ || !failed_) return;
  std::int64_t size = 0;
  for (const std::string_view piece : tail) size += static_cast<std::int64_t>(piece.size());
  const std::int64_t whole = LastMark(written_ - size);
  if (whole >= 0 && CutTo(whole)) PutTail(tail);
}

// Returns the last mark up to the limit, or -1 if there is none.
std::int64_t OutputFile::LastMark(std::int64_t limit) const {
  const std::size_t oldest = marks_ - std::min(marks_, kMarks);
  for (std::size_t i = marks_; i-- > oldest;) {
    if (ends_[i % kMarks] <= limit) return ends_[i % kMarks];
  }
  return -1;
}

bool OutputFile::CutTo(std::int64_t size) {
  if (::ftruncate(handle_, size) != 0 || ::lseek(handle_, size, SEEK_SET) != size) return false;
  written_ = size;
  failed_ = false;
  return true;
}

}  // namespace steprt
