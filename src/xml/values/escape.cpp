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

constexpr bool IsMarkup(char c) { return c == '&' || c == '<' || c == '>'; }

}  // namespace

void EscapeText(OutputFile& out, std::string_view text) {
  const char* p = text.data();
  const char* const end = p + text.size();
  for (;;) {
    const char* const start = p;
    while (p != end && !IsMarkup(*p)) ++p;
    out.Put(std::string_view(start, static_cast<std::size_t>(p - start)));
    if (p == end) return;
    out.Put(EscapeOf(*p++));
  }
}

}  // namespace steprt
