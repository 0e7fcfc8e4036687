// Numbers to and from text, as the C functions do it in the C locale, whatever the host's locale and rounding mode.
#ifndef STEPRT_SUPPORT_NUMBER_H
#define STEPRT_SUPPORT_NUMBER_H

#include <cstddef>
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

// Blanks, a sign, digits: as far as they go, 0 when there are none. Out of range it saturates.
int TextToInt(const char* text);

// As far as a number goes, 0 when there is none: decimal, hexadecimal, "inf", "nan". Out of range: an infinity or 0.
double TextToReal(const char* text);

// The same for a text known to be [sign] digits [. digits] [e [sign] digits] with a digit in it.
double DecimalToReal(std::string_view text);

// Whether `mantissa` * 10^`exponent` can be had exactly by one operation in the current rounding mode, and if so its
// value in *result.
bool SmallDecimalToReal(unsigned long long mantissa, int exponent, double* result);

inline constexpr std::size_t kIntRoom = 12;   // sign and ten digits, and one to spare
inline constexpr std::size_t kRealRoom = 32;  // of IntToText and RealToText

// Print into `room` without a terminator and give the end of what they wrote: "%d", and "%lg" (six significant digits).
char* IntToText(char* room, int value);
char* RealToText(char* room, double value);

}  // namespace steprt

#endif
