// The elements of a standard file in XML that are not those of attributes.
#ifndef STEPRT_WRITE_WIDE_DOCUMENT_H
#define STEPRT_WRITE_WIDE_DOCUMENT_H

#include "read/transfer/record.h"

namespace steprt {

// Write the start tag of an entity or part, with the name of the record at hand, and its end tag. What the keyword has
// and no keyword may have becomes `_`, as in clear text.
void BeginEntity(STEPtransfer* t, const char* keyword);
void EndEntity(STEPtransfer* t, const char* keyword);

// The same for an element of xml/values/names.h.
void BeginFrame(STEPtransfer* t, const char* name);
void EndFrame(STEPtransfer* t, const char* name);

// Write what comes before the first record and after the last one.
void BeginDocument(STEPtransfer* t);
void EndDocument(STEPtransfer* t);

}  // namespace steprt

#endif
