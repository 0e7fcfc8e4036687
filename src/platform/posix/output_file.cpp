#include "platform/output_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <memory>
#include <new>

#include "platform/posix/file_calls.h"

namespace steprt {
namespace {

// Keeps the signals that a failing write brings (a closed pipe, a size limit) from the host for its own life. One that
// was pending before stays pending.
class QuietSignals {
 public:
  QuietSignals() {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    sigemptyset(&ours_);
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
      if (!sigismember(&pending, signal)) sigaddset(&ours_, signal);
    }
    pthread_sigmask(SIG_BLOCK, &ours_, &before_);
  }
  ~QuietSignals() {
    const timespec now = {0, 0};
    while (sigtimedwait(&ours_, nullptr, &now) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  QuietSignals(const QuietSignals&) = delete;
  QuietSignals& operator=(const QuietSignals&) = delete;

 private:
  sigset_t ours_;
  sigset_t before_;
};

// Gives how many bytes were written: all, unless that failed.
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

// A device, a pipe or the like has no length to cut.
bool Empty(int handle) {
  struct stat status;
  if (::fstat(handle, &status) != 0) return false;
  return !S_ISREG(status.st_mode) || ::ftruncate(handle, 0) == 0;
}

}  // namespace

// The memory comes first, so that nothing is made without it.
OutputFile* OutputFile::CreateOrNull(const char* name, Sharing sharing) {
  std::unique_ptr<OutputFile> file(new (std::nothrow) OutputFile);
  return file && file->Open(name, sharing) ? file.release() : nullptr;
}

// O_NONBLOCK makes a FIFO that nobody reads fail instead of waiting, and goes again so that writes wait.
bool OutputFile::Open(const char* name, Sharing sharing) {
  handle_ = ::open(name, O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
  if (handle_ < 0 || ::fcntl(handle_, F_SETFL, 0) != 0) return false;
  const int lock = sharing == Sharing::kDenyWrite ? LOCK_EX : LOCK_SH;
  const bool taken = ::flock(handle_, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  return !taken && Empty(handle_);
}

OutputFile::~OutputFile() {
  Flush();
  if (handle_ >= 0) ::close(handle_);
}

void OutputFile::Put(std::string_view text) {
  while (text.size() > kBlock - used_) {
    const std::size_t fits = kBlock - used_;
    std::memcpy(block_ + used_, text.data(), fits);
    used_ = kBlock;
    text.remove_prefix(fits);
    Flush();
  }
  if (!text.empty()) std::memcpy(block_ + used_, text.data(), text.size());
  used_ += text.size();
}

void OutputFile::Flush() {
  if (used_ > 0 && !failed_) {
    const std::size_t count = WriteAll(handle_, block_, used_);
    while (marks_ > 0 && ends_[marks_ - 1] > count) --marks_;
    if (marks_ > 0) whole_ = written_ + ends_[marks_ - 1];
    written_ += static_cast<std::int64_t>(count);
    failed_ = count < used_;
  }
  used_ = marks_ = 0;
}

void OutputFile::CutBack() {
  if (!failed_) return;
  failed_ = false;
  used_ = marks_ = 0;
  if (::ftruncate(handle_, whole_) != 0 || ::lseek(handle_, whole_, SEEK_SET) != whole_) Put('\n');
}

}  // namespace steprt
