// The text of an attribute that is absent, one for the whole library.
#ifndef STEPRT_SUPPORT_EMPTY_TEXT_H
#define STEPRT_SUPPORT_EMPTY_TEXT_H

namespace steprt {

// Never write to it: its memory is read-only, although the interface needs a type that would allow it.
inline char* EmptyText() {
  static constexpr char kEmpty[1] = "";
  return const_cast<char*>(kEmpty);
}

}  // namespace steprt

#endif
