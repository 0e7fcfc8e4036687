// The driver of a read of ISO 10303-21 as it is published.
#ifndef STEPRT_READ_STANDARD_READER_H
#define STEPRT_READ_STANDARD_READER_H

#include <cstddef>
#include <string_view>

#include "read/transfer/record.h"

namespace steprt {

// Reads a file in XML: the transfer's, or if `bytes` is not null, those in memory.
using DocumentReader = void(STEPtransfer* t, const char* bytes, std::size_t size);

// The arguments and the result are those of STEPreadStandard. A file that begins with "<" is left to `readDocument`.
int ReadStandardFile(const char* name, std::string_view memory, bool isInMemory, APPobject0* schema,
                     const STEPreadOptions* options, DocumentReader* readDocument);

}  // namespace steprt

#endif
