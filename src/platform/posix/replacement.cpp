#include "platform/posix/replacement.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/posix/file_calls.h"

namespace steprt {
namespace {

std::string_view FolderOf(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash + 1);
}

// The new file has what the old one had, as far as the system allows it.
bool CopyRights(int from, int to) {
  struct stat status;
  if (::fstat(from, &status) != 0) return false;
  if (::fchown(to, status.st_uid, status.st_gid) != 0 && errno != EPERM) return false;
  return ::fchmod(to, status.st_mode & 07777) == 0;
}

}  // namespace

Replacement::~Replacement() {
  if (*temporary_) ::unlink(temporary_);
  if (lock_ < 0) return;
  ::flock(lock_, LOCK_UN);  // a child process that the host has forked meanwhile would keep the lock
  ::close(lock_);
}

bool Replacement::SetTarget(std::string_view path) {
  if (path.size() >= sizeof target_) return false;
  target_[path.copy(target_, path.size())] = '\0';
  return true;
}

// Finds the file that the name leads to, which need not exist.
bool Replacement::FollowLinks(const char* name) {
  constexpr int kMost = 40;
  if (!SetTarget(name)) return false;
  for (int i = 0; i < kMost; ++i) {
    char link[PATH_MAX];
    const ssize_t length = ::readlink(target_, link, sizeof link);
    if (length < 0) return errno == EINVAL || errno == ENOENT;
    const std::string_view folder = *link == '/' ? std::string_view() : FolderOf(target_);
    if (folder.size() + static_cast<std::size_t>(length) >= sizeof target_) return false;
    std::memcpy(target_ + folder.size(), link, static_cast<std::size_t>(length));
    target_[folder.size() + static_cast<std::size_t>(length)] = '\0';
  }
  return false;
}

// Opens the file that is there, and locks it. Returns its handle; a negative number, with ENOENT, if there is none.
// With O_NONBLOCK, a FIFO that nobody reads fails instead of waiting.
int Replacement::OpenTarget() {
  constexpr int kFlags = O_WRONLY | O_CLOEXEC | O_NOCTTY;
  int handle = OpenFile(target_, kFlags | O_NONBLOCK);
  if (handle < 0 && errno == EWOULDBLOCK) handle = OpenFile(target_, kFlags);
  if (handle < 0) return handle;
  const bool isTaken = ::flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  if (!isTaken && ::fcntl(handle, F_SETFL, 0) == 0) return handle;
  ::close(handle);
  errno = EWOULDBLOCK;
  return -1;
}

int Replacement::CreateBeside() {
  constexpr int kMost = 1000;
  const std::string_view folder = FolderOf(target_);
  for (int i = 0; i < kMost; ++i) {
    const int length = std::snprintf(temporary_, sizeof temporary_, "%.*s.steprt-%ld-%d.tmp",
                                     static_cast<int>(folder.size()), folder.data(), static_cast<long>(::getpid()), i);
    if (length < 0 || static_cast<std::size_t>(length) >= sizeof temporary_) break;
    const int handle = OpenFile(temporary_, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW);
    if (handle >= 0) return handle;
    if (errno != EEXIST) break;
  }
  *temporary_ = '\0';
  return -1;
}

int Replacement::Create(const char* name) {
  if (!FollowLinks(name)) return -1;
  const int old = OpenTarget();
  if (old < 0 && errno != ENOENT) return -1;
  struct stat status;
  if (old >= 0 && ::fstat(old, &status) == 0 && !S_ISREG(status.st_mode)) return old;
  lock_ = old;
  const int handle = CreateBeside();
  if (handle < 0 || old < 0 || CopyRights(old, handle)) return handle;
  ::close(handle);
  return -1;
}

bool Replacement::Commit() {
  if (!*temporary_) return true;
  if (::rename(temporary_, target_) != 0) return false;
  *temporary_ = '\0';
  return true;
}

}  // namespace steprt
