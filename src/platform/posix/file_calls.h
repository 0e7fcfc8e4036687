// The system's calls on open files, as a table, so that a test can make the n-th of them fail or fall short.
#ifndef STEPRT_PLATFORM_POSIX_FILE_CALLS_H
#define STEPRT_PLATFORM_POSIX_FILE_CALLS_H

#include <sys/types.h>

#include <cstddef>

namespace steprt {

struct FileCalls {
  ssize_t (*read)(int handle, void* block, size_t size);
  ssize_t (*write)(int handle, const void* block, size_t size);
};

extern FileCalls fileCalls;

}  // namespace steprt

#endif
