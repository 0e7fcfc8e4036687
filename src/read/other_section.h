// The sections of edition 3 that are passed over: ANCHOR, REFERENCE and SIGNATURE. They have tokens of their own, such
// as <#a> for an address and the characters of a signature, so they are scanned byte by byte.
#ifndef STEPRT_READ_OTHER_SECTION_H
#define STEPRT_READ_OTHER_SECTION_H

#include "read/transfer/record.h"

namespace steprt {

// Passes over a section whose keyword has been read, up to its ENDSEC. Nothing in it is reported. Returns SEC_ENDSEC,
// or SEC_NONE at the end of the file.
int PassOverSection(STEPtransfer* t);

}  // namespace steprt

#endif
