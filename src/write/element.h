// The tags of an attribute in XML.
#ifndef STEPRT_WRITE_ELEMENT_H
#define STEPRT_WRITE_ELEMENT_H

#include <algorithm>
#include <string_view>

#include "read/transfer/record.h"

namespace steprt {

// `start` is "<" or "</". A tag of usual length goes out in one piece.
inline void PutTag(OutputFile& out, std::string_view start, std::string_view name) {
  constexpr std::size_t kRoom = 64;
  if (start.size() + name.size() + 1 > kRoom) {
    out.Put(start);
    out.Put(name);
    return out.Put('>');
  }
  char* end = std::copy(start.begin(), start.end(), out.Room(kRoom));
  end = std::copy(name.begin(), name.end(), end);
  *end = '>';
  out.Advance(end + 1);
}

// Puts the element of an attribute about the value that `putValue` prints. The name goes out unchanged.
template <typename PutValue>
void PutElement(STEPtransfer* t, const char* name, PutValue putValue) {
  const std::string_view tag = name;
  PutTag(*t->file.out, "<", tag);
  putValue();
  PutTag(*t->file.out, "</", tag);
}

}  // namespace steprt

#endif
