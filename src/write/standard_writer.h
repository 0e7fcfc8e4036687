// The driver of a write of ISO 10303-21 as it is published, in clear text and in XML.
#ifndef STEPRT_WRITE_STANDARD_WRITER_H
#define STEPRT_WRITE_STANDARD_WRITER_H

#include "steprt/instance.h"
#include "steprt/standard_write.h"

namespace steprt {

// The arguments and the result are those of STEPwriteStandard. `isDocument`: writes XML.
int WriteStandardFile(const char* fileName, const STEPfileHeader* header, STEPheader* first, APPobject0* schema,
                      const STEPwriteOptions* options, bool isDocument);

}  // namespace steprt

#endif
