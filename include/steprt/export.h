/// @file
/// What the library exports, and the module handle on a platform that has no type of its own for it.
#ifndef STEPRT_EXPORT_H
#define STEPRT_EXPORT_H

#if defined(__GNUC__)
/// Marks a name that the library exports. Every other name of the library is hidden.
#define STEPRT_API __attribute__((visibility("default")))
#else
#define STEPRT_API
#endif

#if !defined(_WIN32)
/// A loaded module. On POSIX it is the handle that dlopen returns.
typedef void* HINSTANCE;
#endif

#endif
