// Target: the texts of ISO 10303-21 and UTF-8. The bytes are UTF-8 that is encoded, and a text that is decoded.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "steprt/encoding.h"

namespace {

using steprt::DecodeText;
using steprt::EncodeText;
using steprt::TextFaults;

// A breach prints its line and ends the program, in every kind of build.
void Check(bool holds, int line = __builtin_LINE()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%d: does not hold\n", __FILE__, line);
  std::abort();
}

// Another way to tell UTF-8: each character is taken by the length that its first byte says, and is then looked at.
bool IsUtf8(std::string_view text) {
  constexpr std::uint32_t kLowest[] = {0, 0, 0x80, 0x800, 0x10000};
  while (!text.empty()) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const unsigned length = lead < 0x80 ? 1 : lead >> 5 == 6 ? 2 : lead >> 4 == 14 ? 3 : lead >> 3 == 30 ? 4 : 0;
    if (length == 0 || length > text.size()) return false;
    std::uint32_t c = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (const char next : text.substr(1, length - 1)) {
      const auto byte = static_cast<unsigned char>(next);
      if (byte >> 6 != 2) return false;
      c = c * 64 + byte % 64;
    }
    if (c < kLowest[length] || c > 0x10FFFF || c >> 11 == 0xD800 >> 11) return false;
    text.remove_prefix(length);
  }
  return true;
}

// What comes of it is ASCII without a fault, and each character of the text comes back.
std::string CheckedEncoded(std::string_view utf8) {
  TextFaults faults;
  const std::string encoded = EncodeText(utf8, &faults);
  Check(encoded.size() <= 12 * utf8.size() && faults.malformed == 0);
  for (const char c : encoded) Check(c >= ' ' && c <= '~');
  TextFaults back;
  const std::string decoded = DecodeText(encoded, &back);
  Check(back.None() && IsUtf8(decoded));
  Check((faults.replaced == 0) == IsUtf8(utf8));
  Check((faults.replaced == 0) == (decoded == utf8));
  Check(EncodeText(decoded) == encoded);
  return encoded;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckedEncoded(bytes);
  TextFaults faults;
  const std::string decoded = DecodeText(bytes, &faults);
  Check(IsUtf8(decoded));
  Check(DecodeText(CheckedEncoded(decoded)) == decoded);
  Check(bytes.find('\\') != std::string_view::npos || (faults.malformed == 0 && faults.None() == (decoded == bytes)));
  return 0;
}
