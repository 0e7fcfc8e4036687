#include "platform/message_box.h"

#include <cstdio>

namespace steprt {

void ShowMessage(const char* caption, const char* text) {
  std::fprintf(stderr, *caption ? "%s: %s\n" : "%s%s\n", caption, text);
}

}  // namespace steprt
