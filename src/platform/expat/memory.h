// Expat's memory comes from the same operators as the library's own, so that what watches or fails those reaches both.
#ifndef STEPRT_PLATFORM_EXPAT_MEMORY_H
#define STEPRT_PLATFORM_EXPAT_MEMORY_H

#include <expat.h>

namespace steprt {

extern const XML_Memory_Handling_Suite expatMemory;

}  // namespace steprt

#endif
