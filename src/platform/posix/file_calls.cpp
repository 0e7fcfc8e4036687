#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace steprt {

constinit FileCalls fileCalls = {::read, ::write};

int OpenFile(const char* name, int flags) {
  int handle;
  do {
    handle = ::open(name, flags, 0666);
  } while (handle < 0 && errno == EINTR);
  return handle;
}

}  // namespace steprt
