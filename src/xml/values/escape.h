// Text as an XML element may hold it.
#ifndef STEPRT_XML_VALUES_ESCAPE_H
#define STEPRT_XML_VALUES_ESCAPE_H

#include "platform/output_file.h"

namespace steprt {

// Writes `text` with &, < and > escaped and everything else, quotes too, as it is.
void EscapeText(OutputFile& out, const char* text);

}  // namespace steprt

#endif
