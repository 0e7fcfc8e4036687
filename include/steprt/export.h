// What leaves the library, and the module handle of platforms that have none of their own.
#ifndef STEPRT_EXPORT_H
#define STEPRT_EXPORT_H

// Everything of the library is hidden but what bears this mark.
#if defined(__GNUC__)
#define STEPRT_API __attribute__((visibility("default")))
#else
#define STEPRT_API
#endif

// A loaded module. On POSIX it is what dlopen gives.
#if !defined(_WIN32)
typedef void* HINSTANCE;
#endif

#endif
