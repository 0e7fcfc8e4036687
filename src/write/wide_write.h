// What a write of ISO 10303-21 as it is published keeps, in clear text and in XML. A write of the library's own forms
// has none of it.
#ifndef STEPRT_WRITE_WIDE_WRITE_H
#define STEPRT_WRITE_WIDE_WRITE_H

#include <cstddef>
#include <cstdint>

#include "steprt/standard_write.h"
#include "write/record_names.h"

namespace steprt {

struct WideWrite {
  explicit WideWrite(const STEPwriteOptions& given) : options(given) {}

  const STEPwriteOptions options;
  bool isDocument = false;  // XML
  RecordNames names;
  std::uint64_t name = 0;    // of the record that is being written
  std::size_t column = 0;    // of the line of clear text that is being written
  bool isPart = false;       // see wSTEPispart
  bool isNamed = false;      // the record or part has its keyword
  const char* keyword = "";  // of the row; what the record or part gets if the write function does not say another
};

}  // namespace steprt

#endif
