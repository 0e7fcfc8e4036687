// The text of an attribute in the XML entity being read.
#ifndef STEPRT_XML_VALUES_ELEMENT_H
#define STEPRT_XML_VALUES_ELEMENT_H

#include "read/transfer/record.h"

namespace steprt {

// The text of the first child element of this name, in any case; the empty text, to which nobody writes, when there is
// none or when it has no character data. It lives until the next entity begins.
char* ElementValue(STEPtransfer* t, const char* name);

}  // namespace steprt

#endif
