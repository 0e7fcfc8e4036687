// The HEADER section of a file. Of its records only the names of FILE_SCHEMA are kept.
#ifndef STEPRT_READ_HEADER_SECTION_H
#define STEPRT_READ_HEADER_SECTION_H

#include "read/transfer/record.h"

namespace steprt {

// Returns the library's own descriptor of the header's records.
APPobject0* HeaderSchema();

// A read function that skips the record. The `;` is pushed back: it is accepted in place of the `)`.
STEPheader* PassOverHeaderRecord(STEPtransfer* t);

// Reads the records and the ENDSEC after them. Returns SEC_ENDSEC, or SEC_NONE at the end of the file. Unlike in DATA,
// no other keyword ends the section.
int ReadHeaderSection(STEPtransfer* t, APPobject0* table);

// Returns whether FILE_SCHEMA did not list this name, compared case-insensitively.
bool SchemaNotListed(STEPtransfer* t, const char* schemaName);

}  // namespace steprt

#endif
