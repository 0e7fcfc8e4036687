// The text of an attribute that is not there, one for the whole library.
#ifndef STEPRT_SUPPORT_EMPTY_TEXT_H
#define STEPRT_SUPPORT_EMPTY_TEXT_H

namespace steprt {

// Nobody writes to it, though its type would allow it.
inline char* EmptyText() {
  static constinit char empty[1] = "";
  return empty;
}

}  // namespace steprt

#endif
