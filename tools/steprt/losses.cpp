#include "losses.h"

#include <charconv>
#include <cstring>

namespace steprt_tools {

void Losses::AddReal(double real) {
  constexpr int kDigits = 6;
  char text[32];
  const char* const end = std::to_chars(text, text + sizeof text, real, std::chars_format::general, kDigits).ptr;
  double rounded = 0;
  std::from_chars(text, end, rounded);
  if (rounded != real) ++digits;
}

void Losses::AddText(const char* text) {
  constexpr std::size_t kLimit = 256;  // from there on the library's own reader reports a text
  if (std::strlen(text) >= kLimit) ++texts;
}

}  // namespace steprt_tools
