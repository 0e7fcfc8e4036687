#include "platform/posix/file_calls.h"

#include <unistd.h>

namespace steprt {

constinit FileCalls fileCalls = {::read, ::write};

}  // namespace steprt
