// The records of a header in a standard file, with the fields of those that a STEPfileHeader holds.
#ifndef STEPRT_READ_HEADER_FIELDS_H
#define STEPRT_READ_HEADER_FIELDS_H

#include "read/transfer/record.h"

namespace steprt {

// Returns the descriptor of a header's records in a standard read. Those that only later editions have are passed over.
APPobject0* WideHeaderSchema();

// Returns whether FILE_SCHEMA of a standard file lists this name, compared case-insensitively and without the object
// identifier.
bool IsSchemaListed(STEPtransfer* t, const char* schemaName);

}  // namespace steprt

#endif
