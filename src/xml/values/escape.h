// Text as the content of an XML element.
#ifndef STEPRT_XML_VALUES_ESCAPE_H
#define STEPRT_XML_VALUES_ESCAPE_H

#include <string_view>

#include "platform/output_file.h"

namespace steprt {

// Writes `text` with &, < and > escaped. Everything else, quotes too, is written unchanged.
void EscapeText(OutputFile& out, std::string_view text);

}  // namespace steprt

#endif
