#include "support/file_name.h"

#include <cstring>

namespace steprt {

const char* DefaultFileName(TextBuffer& room, const char* name) {
  const char* backslash = std::strrchr(name, '\\');
  if (std::strchr(backslash ? backslash + 1 : name, '.')) return name;
  room.Add(name).Add(".stp");
  return room.IsCut() ? nullptr : room.Text();
}

const char* QuoteFileName(TextBuffer& room, const char* name) {
  for (const char* c = name; *c; ++c) {
    if (*c == '\'') room.Add('\'');
    room.Add(*c);
  }
  return room.IsCut() ? nullptr : room.Text();
}

const char* CommentFileName(TextBuffer& room, const char* name) {
  for (const char* c = name; *c; ++c) room.Add(c[0] == '-' && c[1] == '-' ? '_' : *c);
  return room.IsCut() ? nullptr : room.Text();
}

}  // namespace steprt
