// The text of an attribute that is not there, one for the whole library.
#ifndef STEPRT_SUPPORT_EMPTY_TEXT_H
#define STEPRT_SUPPORT_EMPTY_TEXT_H

namespace steprt {

// It lies in memory that cannot be written, though its type would allow it.
inline char* EmptyText() {
  static constexpr char kEmpty[1] = "";
  return const_cast<char*>(kEmpty);
}

}  // namespace steprt

#endif
