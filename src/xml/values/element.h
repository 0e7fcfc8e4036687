// The text of an attribute in the XML entity that is being read.
#ifndef STEPRT_XML_VALUES_ELEMENT_H
#define STEPRT_XML_VALUES_ELEMENT_H

#include "read/transfer/record.h"

namespace steprt {

// Returns the text of the first child element of this name, compared case-insensitively. It is valid until the next
// entity begins. Returns the empty text, which must not be written to, if there is no such element or it has no text.
char* ElementValue(STEPtransfer* t, const char* name);

}  // namespace steprt

#endif
