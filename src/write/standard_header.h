// The header of a standard file, in clear text and in XML.
#ifndef STEPRT_WRITE_STANDARD_HEADER_H
#define STEPRT_WRITE_STANDARD_HEADER_H

#include "read/transfer/record.h"
#include "steprt/file_header.h"

namespace steprt {

// Writes FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA. `header` may be null.
void WriteStandardHeader(STEPtransfer* t, const STEPfileHeader* header);

}  // namespace steprt

#endif
