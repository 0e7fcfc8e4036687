// The scanners of XML values, against plainer ones.
#ifndef STEPRT_FUZZ_XML_VALUES_H
#define STEPRT_FUZZ_XML_VALUES_H

#include <string>

namespace fuzz {

// A difference is a failure of Google Test. There is no byte of 0 in the text.
void CheckXmlValues(const std::string& text);

}  // namespace fuzz

#endif
