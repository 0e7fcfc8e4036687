// The DATA section of a standard file. It differs from that of the library's own form (data_section) in what it takes
// and in what it notes for reports:
//
//   data   = "DATA" ["(" parameters ")"] ";" {record}
//   record = "#" number "=" body ";"
//   body   = NAME "(" attributes ")" | complex | "&SCOPE" {record} "ENDSCOPE" ["/" exported "/"] body
//
// A record that is refused costs one report and is passed over.
#ifndef STEPRT_READ_STANDARD_DATA_H
#define STEPRT_READ_STANDARD_DATA_H

#include "read/transfer/record.h"

namespace steprt {

// Reads the records and the section keyword after them, and returns the code of that. Returns SEC_NONE at the end of
// the file.
int ReadStandardData(STEPtransfer* t);

// Enters the number of a record of XML. Returns null, with a report, for a number that no record can have.
STEPentry* EnterDocumentRecord(STEPtransfer* t, int number);

// Enters the keyword of a record or part that has just been read. Returns the row that reads it: that of the entity,
// or the one of the options for unknown entities. Returns null if there is none. `row` is that of the entity; if it has
// no read function, it does not count.
const APPentity* EnterKeyword(STEPtransfer* t, const APPentity* row);

// Reports a keyword for which EnterKeyword has returned null. It must be the last token.
void ReportUnknownEntity(STEPtransfer* t);

}  // namespace steprt

#endif
