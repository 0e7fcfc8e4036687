// The system's calls for files, as a table, so that a test can make the n-th of them fail or fall short.
#ifndef STEPRT_PLATFORM_POSIX_FILE_CALLS_H
#define STEPRT_PLATFORM_POSIX_FILE_CALLS_H

#include <sys/types.h>

#include <cstddef>

namespace steprt {

struct FileCalls {
  int (*open)(const char* name, int flags, ...);
  ssize_t (*read)(int handle, void* block, size_t size);
  ssize_t (*write)(int handle, const void* block, size_t size);
};

extern FileCalls fileCalls;

// Opens a file, which the flags may let be created, however often a signal interrupts it. Gives a handle behind those
// of the standard streams, to be closed in a new program, or one below 0 with the reason in errno.
int OpenFile(const char* name, int flags);

}  // namespace steprt

#endif
