// The driver of an XML write, for STEPmodel::WriteXml. The driver of a clear-text write is STEPwrite.
#ifndef STEPRT_XML_XML_WRITER_H
#define STEPRT_XML_XML_WRITER_H

#include "steprt/schema.h"

namespace steprt {

// Writes a chain of instances as an XML document. Arguments, results and reports are those of STEPwrite. Unlike there,
// other XML writers may write to the file meanwhile.
int STEPwriteXml(char* fileName, const char* remark, STEPheader* first, APPobject0* schema);

}  // namespace steprt

#endif
