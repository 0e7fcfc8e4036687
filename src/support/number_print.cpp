// Most reals of a file are short decimals. They are printed from one product of two doubles; to_chars prints the rest.
#include "support/number_print.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "support/powers_of_ten.h"

namespace steprt {
namespace {

constexpr std::uint32_t kSevenDigits = 1000000;  // the least number that has them

// The digits after the point that bring 1e-4 <= value < 1e6 to six significant digits.
int DecimalsOf(double value) {
  if (value < 1.0) return value >= 0.1 ? 6 : value >= 0.01 ? 7 : value >= 0.001 ? 8 : 9;
  int decimals = 5;
  for (double bound = 10.0; decimals > 0 && value >= bound; bound *= 10.0) --decimals;
  return decimals;
}

// Prints digits / 10^decimals. The last digit is not 0, unless it is in front of the point.
char* PrintDecimal(char* buffer, std::uint32_t digits, int decimals) {
  char text[12];
  char* end = std::to_chars(text, text + sizeof text, digits).ptr;
  const int whole = static_cast<int>(end - text) - decimals;
  if (whole > 0) {
    buffer = std::copy(text, text + whole, buffer);
    if (decimals == 0) return buffer;
    *buffer++ = '.';
    return std::copy(text + whole, end, buffer);
  }
  *buffer++ = '0';
  *buffer++ = '.';
  buffer = std::fill_n(buffer, -whole, '0');
  return std::copy(text, end, buffer);
}

// Prints 1e-4 <= value < 1e6 with a point. Returns null where the sixth digit is in doubt. The product below is less
// than 10^6 and rounded once, so it is off by at most 2^-34, about 6e-11; a power of ten is exact. kDoubt is far above
// that: only a rest so close to one half may round the wrong way.
char* ShortRealToText(char* buffer, double value) {
  constexpr double kDoubt = 1e-7;
  int decimals = DecimalsOf(value);
  const double scaled = value * kPowersOfTen[decimals];
  auto digits = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - digits;
  if (rest > 0.5 - kDoubt && rest < 0.5 + kDoubt) return nullptr;
  if (rest > 0.5) ++digits;
  if (digits >= kSevenDigits) return nullptr;
  for (; decimals > 0 && digits % 10 == 0; --decimals) digits /= 10;
  return PrintDecimal(buffer, digits, decimals);
}

}  // namespace

char* IntToText(char* buffer, int value) { return std::to_chars(buffer, buffer + kIntBuffer, value).ptr; }

// Magnitudes are compared by their bits: those of a NaN compare without a floating-point exception.
char* RealToText(char* buffer, double value) {
  constexpr auto bitsOf = [](double real) { return std::bit_cast<std::uint64_t>(real); };
  const double magnitude = std::fabs(value);
  const std::uint64_t bits = bitsOf(magnitude);
  if (bits > bitsOf(HUGE_VAL))
    return std::ranges::copy(std::string_view(std::signbit(value) ? "-nan" : "nan"), buffer).out;
  if (bits >= bitsOf(1e-4) && bits < bitsOf(999999.0)) {
    char* start = buffer;
    if (value < 0) *start++ = '-';
    const int whole = static_cast<int>(magnitude);
    if (whole == magnitude) return IntToText(start, whole);
    if (char* end = ShortRealToText(start, magnitude)) return end;
  }
  return std::to_chars(buffer, buffer + kRealBuffer, value, std::chars_format::general, 6).ptr;
}

}  // namespace steprt
