// Writes values of attributes, without the commas or tags around them.
#ifndef STEPRT_WRITE_VALUES_H
#define STEPRT_WRITE_VALUES_H

#include "read/transfer/record.h"

namespace steprt {

void PutInt(STEPtransfer* t, int value);
void PutReal(STEPtransfer* t, double value);             // with six significant digits
void PutNumber(STEPtransfer* t, int number);             // # and the number of an instance
void PutReference(STEPtransfer* t, STEPheader* object);  // # and the instance's number; `$` for null
void PutQuoted(STEPtransfer* t, const char* text);       // in apostrophes, its own doubled; `$` for null
void PutWord(STEPtransfer* t, const char* word);         // as it is, escaped inside an XML element
void PutEscaped(STEPtransfer* t, const char* text);      // with the markup of XML escaped; `$` for null
const char* LogicalKeyword(int value);                   // .U. for all but 0 and 1

}  // namespace steprt

#endif
