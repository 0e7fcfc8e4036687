// The values of a standard file in XML: the text of an element is one value in clear text, or a text without its
// apostrophes. So all readers take their tokens from the elements, and only which element that is depends on the name.
#ifndef STEPRT_READ_ELEMENT_VALUES_H
#define STEPRT_READ_ELEMENT_VALUES_H

#include "read/transfer/record.h"

namespace steprt {

// Goes to the first value of the entity whose elements the transfer has.
void BeginElementValues(STEPtransfer* t);

// Makes the next token that of the element with this name, or of the next one for a null name. An element that is
// missing is an omitted value, and after the last one there is none. A text that cannot be taken for another value has
// no apostrophes: it begins with a letter and has no bracket.
void EnterElementValue(STEPtransfer* t, const char* name);

// Reads tokens from a text.
void EnterText(STEPtransfer* t, const char* text);

}  // namespace steprt

#endif
