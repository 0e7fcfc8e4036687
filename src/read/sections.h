// Moves through a file by its section keywords and its semicolons.
#ifndef STEPRT_READ_SECTIONS_H
#define STEPRT_READ_SECTIONS_H

#include "read/transfer/keywords.h"
#include "read/transfer/record.h"

namespace steprt {

// Skips everything before the next section keyword, reads that, and returns its code. Returns SEC_NONE at the end of
// the file.
int NextSection(STEPtransfer* t);

// Reads tokens up to the next `;` or the end of the file. Returns the kind of that last token, which has been read.
int SkipToSemicolon(STEPtransfer* t);

}  // namespace steprt

#endif
