// The data of a file: records `#n = NAME(...);`, each handed to the read function of its entity's row.
#ifndef STEPRT_READ_DATA_SECTION_H
#define STEPRT_READ_DATA_SECTION_H

#include "read/transfer/record.h"

namespace steprt {

// Reads the records up to and including the name that ends the section, and gives its section code. SEC_NONE for a
// word that is no keyword, at the end of the file, and where a record breaks off before its keyword.
int ReadDataSection(STEPtransfer* t);

}  // namespace steprt

#endif
