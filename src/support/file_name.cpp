#include "support/file_name.h"

#include <cstring>

namespace steprt {

const char* DefaultFileName(TextBuffer& buffer, const char* name) {
  const char* backslash = std::strrchr(name, '\\');
  if (std::strchr(backslash ? backslash + 1 : name, '.')) return name;
  buffer.Add(name).Add(".stp");
  return buffer.IsCut() ? nullptr : buffer.Text();
}

const char* QuoteFileName(TextBuffer& buffer, const char* name) {
  for (const char* c = name; *c; ++c) {
    if (*c == '\'') buffer.Add('\'');
    buffer.Add(*c);
  }
  return buffer.IsCut() ? nullptr : buffer.Text();
}

const char* CommentFileName(TextBuffer& buffer, const char* name) {
  for (const char* c = name; *c; ++c) buffer.Add(c[0] == '-' && c[1] == '-' ? '_' : *c);
  return buffer.IsCut() ? nullptr : buffer.Text();
}

}  // namespace steprt
