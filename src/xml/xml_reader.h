// The driver of an XML read, for STEPmodel::Read and ReadXml. The driver of a clear-text read is STEPread.
#ifndef STEPRT_XML_XML_READER_H
#define STEPRT_XML_XML_READER_H

#include "steprt/schema.h"

namespace steprt {

// Reads an XML document into the current model: `text`, or the file `fileName` if `text` is null. Reports name the
// document `fileName` in both cases. The name gets ".stp" if it has no dot after its last backslash; never pass null.
//
// Returns the count of errors reported. A fault of the document sets it to -1, and each later report adds 1. Returns 0
// without a report when memory runs out for the transfer, and 0 with a message box if there is no SAX service. Returns
// 1 for a null schema.
int STEPreadXml(char* fileName, APPobject0* schema, const char* text);

}  // namespace steprt

#endif
