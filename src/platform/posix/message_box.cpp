#include "platform/message_box.h"

#include <cstdio>

#include "platform/posix/quiet_signals.h"

namespace steprt {

void ShowMessage(const char* caption, const char* text) {
  const QuietSignals quiet;
  std::fprintf(stderr, *caption ? "%s: %s\n" : "%s%s\n", caption, text);
  std::fflush(stderr);
}

}  // namespace steprt
