// The keywords that part a file into sections.
#ifndef STEPRT_READ_SECTIONS_H
#define STEPRT_READ_SECTIONS_H

#include "read/records.h"

namespace steprt {

enum {
  SEC_START = 0,
  SEC_HEADER = 1,
  SEC_DATA = 2,
  SEC_ENDSEC = 3,
  SEC_END = 4,
  SEC_NONE = 5  // any other word, and the end of the file
};

// The code of a keyword, in any case; SEC_NONE for another word.
int SectionCode(const char* word);

// The keyword that is written for a code; the empty text for a code without one.
const char* SectionKeyword(int code);

// Passes over everything up to the next section keyword and gives its code; SEC_NONE at the end of the file.
int NextSection(STEPtransfer* t);

// Reads tokens up to and including the next `;`, or to the end of the file.
void SkipPastSemicolon(STEPtransfer* t);

}  // namespace steprt

#endif
