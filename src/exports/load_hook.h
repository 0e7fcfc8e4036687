// Called when the library is loaded and unloaded. It is entry number 1.
#ifndef STEPRT_EXPORTS_LOAD_HOOK_H
#define STEPRT_EXPORTS_LOAD_HOOK_H

#include "steprt/export.h"

namespace steprt {

inline constexpr unsigned kProcessDetach = 0;
inline constexpr unsigned kProcessAttach = 1;

}  // namespace steprt

// Returns 1. Returns 0 if the library could not be made known at its load. Other reasons do nothing.
extern "C" STEPRT_API int DllMain(HINSTANCE module, unsigned reason, void* reserved);

#endif
