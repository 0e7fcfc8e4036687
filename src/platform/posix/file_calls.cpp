#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace steprt {

namespace {

// If the host has closed its standard streams, a new file may receive one of their handles. A message to a stream would
// then be written into the file.
int MoveFromStandardStreams(int handle) {
  if (handle < 0 || handle > STDERR_FILENO) return handle;
  const int higher = ::fcntl(handle, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int reason = errno;
  ::close(handle);
  errno = reason;
  return higher;
}

}  // namespace

constinit FileCalls fileCalls = {::open, ::read, ::write};

int OpenFile(const char* name, int flags) {
  int handle;
  do {
    handle = fileCalls.open(name, flags, 0666);
  } while (handle < 0 && errno == EINTR);
  return MoveFromStandardStreams(handle);
}

}  // namespace steprt
