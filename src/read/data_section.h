// The DATA section of a file: records `#n = NAME(...);`. The read function of the entity's row reads what is in the
// brackets.
#ifndef STEPRT_READ_DATA_SECTION_H
#define STEPRT_READ_DATA_SECTION_H

#include "read/transfer/record.h"

namespace steprt {

// Reads the records and the name after them, and returns the section code of that name. Returns SEC_NONE if it is no
// section keyword, at the end of the file, and if a record breaks off before its keyword.
int ReadDataSection(STEPtransfer* t);

}  // namespace steprt

#endif
