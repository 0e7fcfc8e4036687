// The driver of an XML read.
#ifndef STEPRT_XML_XML_READER_H
#define STEPRT_XML_XML_READER_H

#include "steprt/schema.h"

namespace steprt {

// Reads an XML document into the current model: `text`, or, when that is null, the file `fileName`, which names the
// document in reports either way and gets ".stp" when what stands behind its last backslash has no dot.
//
// Gives the count of errors reported. A fault of the document sets it to -1, and later reports count up from there. 0,
// without a report, when there is no memory for the transfer; 0 and a message box when there is no SAX service.
int STEPreadXml(char* fileName, APPobject0* schema, const char* text);

}  // namespace steprt

#endif
