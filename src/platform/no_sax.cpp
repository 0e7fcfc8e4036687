// The SAX service of a library that is built without an XML parser.
#include "platform/sax.h"

namespace steprt {

constinit const SaxService* saxService = nullptr;

}  // namespace steprt
