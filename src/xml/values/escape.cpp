#include "xml/values/escape.h"

#include <cstddef>
#include <string_view>

namespace steprt {
namespace {

std::string_view EscapeOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    default:
      return "&gt;";
  }
}

constexpr bool Ends(char c) { return c == '\0' || c == '&' || c == '<' || c == '>'; }

}  // namespace

void EscapeText(OutputFile& out, const char* text) {
  for (;;) {
    const char* end = text;
    while (!Ends(*end)) ++end;
    out.Put(std::string_view(text, static_cast<std::size_t>(end - text)));
    if (*end == '\0') return;
    out.Put(EscapeOf(*end));
    text = end + 1;
  }
}

}  // namespace steprt
