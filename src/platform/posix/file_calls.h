// The system's calls for files, as a table, so that a test can make the n-th call fail or transfer less.
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

// Opens a file, or creates it if the flags say so, however often a signal interrupts the call. Returns a handle above
// those of the standard streams, or a negative one with the reason in errno. A new program does not inherit it.
int OpenFile(const char* name, int flags);

}  // namespace steprt

#endif
