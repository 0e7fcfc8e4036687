// The tags of an attribute in XML.
#ifndef STEPRT_WRITE_ELEMENT_H
#define STEPRT_WRITE_ELEMENT_H

#include <string_view>

#include "read/records.h"

namespace steprt {

// Puts the element of an attribute about the value that `putValue` prints. The name goes out unchanged.
template <typename PutValue>
void PutElement(STEPtransfer* t, const char* name, PutValue putValue) {
  OutputFile& out = *t->file.out;
  const std::string_view tag = name;
  out.Put('<');
  out.Put(tag);
  out.Put('>');
  putValue();
  out.Put("</");
  out.Put(tag);
  out.Put('>');
}

}  // namespace steprt

#endif
