// Names as Expat passes them on: the address of the namespace, if there is one, a separator, and the local part.
#ifndef STEPRT_PLATFORM_EXPAT_NAMES_H
#define STEPRT_PLATFORM_EXPAT_NAMES_H

#include <expat.h>

#include <cstring>

namespace steprt {

inline constexpr XML_Char kSeparator = '\x01';  // which no document can hold

inline const XML_Char* LocalPart(const XML_Char* name) {
  const XML_Char* separator = std::strchr(name, kSeparator);
  return separator ? separator + 1 : name;
}

}  // namespace steprt

#endif
