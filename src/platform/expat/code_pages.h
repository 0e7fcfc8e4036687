// The single-byte encodings that a document may declare in addition to those of Expat.
#ifndef STEPRT_PLATFORM_EXPAT_CODE_PAGES_H
#define STEPRT_PLATFORM_EXPAT_CODE_PAGES_H

#include <expat.h>

namespace steprt {

// For XML_SetUnknownEncodingHandler: windows-1250 to -1252, ISO-8859-2, -5 and -15. Names are compared
// case-insensitively.
int XMLCALL DescribeCodePage(void* data, const XML_Char* name, XML_Encoding* encoding);

}  // namespace steprt

#endif
