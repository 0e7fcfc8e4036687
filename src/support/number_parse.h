// Text to numbers, as the C functions convert it in the C locale, whatever the host's locale and rounding mode.
#ifndef STEPRT_SUPPORT_NUMBER_PARSE_H
#define STEPRT_SUPPORT_NUMBER_PARSE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/ascii.h"
#include "support/eight_bytes.h"

namespace steprt {

// Returns the first character that is no white space. The conversions skip the same characters.
const char* SkipSpaces(const char* text);

// Whether the text is an optional sign and digits. A text without digits counts too.
bool IsIntegerText(const char* text);

struct Digits {
  unsigned long long value;
  std::ptrdiff_t count;
};
inline constexpr int kIntDigits = 9;        // so many digits always fit an int
inline constexpr int kMantissaDigits = 19;  // and so many always fit 64 bits

// Appends the digits from p on to `digits` and returns their end. With more than kMantissaDigits the value wraps.
inline const char* ScanDigits(const char* p, Digits* digits) {
  for (; IsDigit(*p); ++p, ++digits->count) digits->value = digits->value * 10 + static_cast<unsigned>(*p - '0');
  return p;
}

inline constexpr std::size_t kScanReach = 8;  // AppendEight reads so many bytes, wherever the digits end
inline constexpr unsigned long long kEightPowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// Appends the digits among the eight bytes from *p on, moves *p to their end, and returns whether there are eight.
inline bool AppendEight(const char** p, Digits* digits) {
  std::uint64_t bytes = LoadEight(*p) ^ 0x3030303030303030;
  const int count = FirstMarked(((bytes + 0x7676767676767676) | bytes) & 0x8080808080808080);
  if (count == 0) return false;
  bytes <<= 64 - 8 * count;  // the digits last, zeros before them
  bytes = bytes * 10 + (bytes >> 8);
  bytes =
      ((bytes & 0x000000FF000000FF) * 0x000F424000000064 + (bytes >> 16 & 0x000000FF000000FF) * 0x0000271000000001) >>
      32;
  digits->value = digits->value * kEightPowers[count] + bytes;
  digits->count += count;
  *p += count;
  return count == 8;
}

// Does the same as ScanDigits for up to 24 digits, with no branch for each digit. It is no loop: a compiler would keep
// the constants of one in registers, which costs more than a short number.
inline const char* ScanDigitsFast(const char* p, Digits* digits) {
  static_cast<void>(AppendEight(&p, digits) && AppendEight(&p, digits) && AppendEight(&p, digits));
  return p;
}

// Converts white space, a sign and digits, as far as they go. Returns 0 if there are no digits, and the nearest int for
// a number out of range.
int TextToInt(const char* text);

// Converts a decimal or hexadecimal number, "inf" or "nan", as far as it goes. Returns 0 if there is none, and an
// infinity or 0 for a number out of range.
double TextToReal(const char* text);

// Converts a text that is known to be [sign] digits [. digits] [e [sign] digits] with at least one digit.
double DecimalToReal(std::string_view text);

// Stores `mantissa` * 10^`exponent` in *result if one operation rounds it as it must be rounded, and returns whether it
// does.
bool SmallDecimalToReal(unsigned long long mantissa, int exponent, double* result);

}  // namespace steprt

#endif
