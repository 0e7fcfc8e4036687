// The records of a standard file, in clear text and in XML.
#ifndef STEPRT_WRITE_WIDE_RECORDS_H
#define STEPRT_WRITE_WIDE_RECORDS_H

#include "read/transfer/record.h"

namespace steprt {

// Assigns a name to each instance of the chain that will have a record. Returns false, with a report, when memory runs
// out.
[[nodiscard]] bool NameRecords(STEPtransfer* t, STEPheader* first);

// Writes a record for each of these instances. Returns their count, or a negative number if the stream fails.
int WriteWideRecords(STEPtransfer* t, STEPheader* first);

}  // namespace steprt

#endif
