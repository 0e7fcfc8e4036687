// The code of each message, which a program compares where a person reads the text.
#ifndef STEPRT_READ_TRANSFER_CODES_H
#define STEPRT_READ_TRANSFER_CODES_H

#include "steprt/standard.h"

namespace steprt {

struct MessageCode {
  const char* message;  // of messages.h
  const char* code;     // never changes
  STEPseverity severity;
};

// The entry of a message of messages.h, before its conversion is replaced. For another text, which a client has passed
// to rSTEPrefuse, the code is "refused-value".
const MessageCode& CodeOf(const char* message);

}  // namespace steprt

#endif
