// Numbers to and from text, as the C functions do it in the C locale, whatever the host's locale and rounding mode.
#ifndef STEPRT_SUPPORT_NUMBER_H
#define STEPRT_SUPPORT_NUMBER_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "support/ascii.h"

namespace steprt {

// The white space in front of a number, which the conversions pass over.
const char* SkipSpaces(const char* text);

// Whether the text is an optional sign and digits. No digits at all count as digits.
bool IsIntegerText(const char* text);

struct Digits {
  unsigned long long value;
  std::ptrdiff_t count;
};
inline constexpr int kIntDigits = 9;        // that always fit an int
inline constexpr int kMantissaDigits = 19;  // that always fit 64 bits

// Takes the digits from p on as well and gives their end. The value wraps when there are more than kMantissaDigits.
inline const char* ScanDigits(const char* p, Digits* digits) {
  for (; IsDigit(*p); ++p, ++digits->count) digits->value = digits->value * 10 + static_cast<unsigned>(*p - '0');
  return p;
}

inline constexpr std::size_t kScanReach = 8;  // bytes from p on that must be readable for the following
inline constexpr unsigned long long kEightPowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// The same eight digits at a time, and without a guess at each of them: the bytes behind p are looked at wherever the
// digits end.
inline const char* ScanDigitsFast(const char* p, Digits* digits) {
  if constexpr (std::endian::native != std::endian::little) return ScanDigits(p, digits);
  for (;;) {
    std::uint64_t bytes;
    std::memcpy(&bytes, p, sizeof bytes);
    bytes ^= 0x3030303030303030;
    const std::uint64_t others = ((bytes + 0x7676767676767676) | bytes) & 0x8080808080808080;
    const int count = std::countr_zero(others) / 8;
    if (count == 0) return p;
    bytes <<= 64 - 8 * count;  // the digits to the end, zeros in front of them
    bytes = bytes * 10 + (bytes >> 8);
    bytes =
        ((bytes & 0x000000FF000000FF) * 0x000F424000000064 + (bytes >> 16 & 0x000000FF000000FF) * 0x0000271000000001) >>
        32;
    digits->value = digits->value * kEightPowers[count] + bytes;
    digits->count += count;
    p += count;
    if (count < 8) return p;
  }
}

// Blanks, a sign, digits: as far as they go, 0 when there are none. Out of range it saturates.
int TextToInt(const char* text);

// As far as a number goes, 0 when there is none: decimal, hexadecimal, "inf", "nan". Out of range: an infinity or 0.
double TextToReal(const char* text);

// The same for a text known to be [sign] digits [. digits] [e [sign] digits] with a digit in it.
double DecimalToReal(std::string_view text);

// Whether `mantissa` * 10^`exponent` can be had exactly by one operation in the current rounding mode, and if so its
// value in *result.
bool SmallDecimalToReal(unsigned long long mantissa, int exponent, double* result);

inline constexpr std::size_t kIntBuffer = 12;   // sign and ten digits, and one to spare
inline constexpr std::size_t kRealBuffer = 32;  // of IntToText and RealToText

// Print into `room` without a terminator and give the end of what they wrote: "%d", and "%lg" (six significant digits).
char* IntToText(char* room, int value);
char* RealToText(char* room, double value);

}  // namespace steprt

#endif
