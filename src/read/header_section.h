// The header of a file: only the names of its schemas are kept.
#ifndef STEPRT_READ_HEADER_SECTION_H
#define STEPRT_READ_HEADER_SECTION_H

#include "read/transfer/record.h"

namespace steprt {

// The library's own descriptor of the header's records.
APPobject0* HeaderSchema();

// Reads the records up to and including ENDSEC; gives SEC_ENDSEC, or SEC_NONE at the end of the file.
int ReadHeaderSection(STEPtransfer* t, APPobject0* table);

// Whether none of the names that the header gave is this one, in any case.
bool SchemaNotListed(STEPtransfer* t, const char* schemaName);

}  // namespace steprt

#endif
