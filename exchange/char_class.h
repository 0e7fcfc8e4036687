// Classes of bytes. Letters are those of ASCII.
#ifndef STEPRT_EXCHANGE_CHAR_CLASS_H
#define STEPRT_EXCHANGE_CHAR_CLASS_H

#include <array>
#include <cstdint>

namespace exchange {

enum CharClass : std::uint8_t {
  kBlankChar = 1,   // a blank, and all control characters but NUL, which ends the bytes
  kDigitChar = 2,   // 0-9
  kUpperChar = 4,   // A-Z and _
  kLowerChar = 8,   // a-z
  kHexChar = 16,    // 0-9 and A-F
  kPlainChar = 32,  // within a text: nothing to look at
  kWordChar = kDigitChar | kUpperChar | kLowerChar,
};

constexpr std::array<std::uint8_t, 256> MakeCharClasses() {
  std::array<std::uint8_t, 256> classes{};
  const auto add = [&](int from, int to, std::uint8_t set) {
    for (int c = from; c <= to; ++c) classes[static_cast<std::size_t>(c)] |= set;
  };
  add(1, ' ', kBlankChar);
  add('0', '9', kDigitChar | kHexChar);
  add('A', 'Z', kUpperChar);
  add('_', '_', kUpperChar);
  add('a', 'z', kLowerChar);
  add('A', 'F', kHexChar);
  add(' ', '~', kPlainChar);
  classes['\''] = 0;
  classes['\\'] = 0;
  return classes;
}

inline constexpr std::array<std::uint8_t, 256> kCharClasses = MakeCharClasses();

constexpr bool Is(char c, int set) { return (kCharClasses[static_cast<unsigned char>(c)] & set) != 0; }

}  // namespace exchange

#endif
