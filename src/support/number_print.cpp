// Most reals of a file are short decimals. They are printed from one product of two doubles; to_chars prints the rest.
#include "support/number_print.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "support/eight_bytes.h"
#include "support/powers_of_ten.h"

namespace steprt {
namespace {

constexpr std::uint32_t kSevenDigits = 1000000;  // the least number that has them

// The eight digits of a number below 10^8, as bytes from 0 to 9. The number is halved three times into shorter ones,
// all of which are divided at once: a product and a shift divide every value that occurs.
constexpr std::uint64_t EightDigits(std::uint32_t number) {
  const std::uint64_t fours = number / 10000 | std::uint64_t{number % 10000} << 32;
  const std::uint64_t hundreds = fours * 10486 >> 20 & 0x0000007F0000007F;
  const std::uint64_t twos = hundreds | (fours - hundreds * 100) << 16;
  const std::uint64_t tens = twos * 103 >> 10 & 0x000F000F000F000F;
  return tens | (twos - tens * 10) << 8;
}

constexpr std::uint64_t kZeros = '0' * kOneInEach;

// The digits after the point that bring 1e-4 <= value < 1e6 to six significant digits.
int DecimalsOf(double value) {
  if (value < 1.0) return value >= 0.1 ? 6 : value >= 0.01 ? 7 : value >= 0.001 ? 8 : 9;
  return 5 - (value >= 1e1) - (value >= 1e2) - (value >= 1e3) - (value >= 1e4) - (value >= 1e5);
}

// Prints digits / 10^decimals, where `digits` has six digits, without zeros at its end. It may write eight bytes more.
char* PrintDecimal(char* buffer, std::uint32_t digits, int decimals) {
  const std::uint64_t six = EightDigits(digits) >> 16;
  const int kept = 8 - std::countl_zero(six) / 8;
  const int whole = 6 - decimals;
  if (whole <= 0) {
    buffer = std::ranges::copy(std::string_view("0.000").substr(0, static_cast<std::size_t>(2 - whole)), buffer).out;
    StoreEight(buffer, six | kZeros);
    return buffer + kept;
  }
  StoreEight(buffer, six | kZeros);
  if (kept <= whole) return buffer + whole;
  buffer[whole] = '.';
  StoreEight(buffer + whole + 1, (six | kZeros) >> 8 * whole);
  return buffer + kept + 1;
}

// Prints 1e-4 <= value < 1e6 with a point. Returns null where the sixth digit is in doubt. The product below is less
// than 10^6 and rounded once, so it is off by at most 2^-34, about 6e-11; a power of ten is exact. kDoubt is far above
// that: only a rest so close to one half may round the wrong way.
char* ShortRealToText(char* buffer, double value) {
  constexpr double kDoubt = 1e-7;
  const int decimals = DecimalsOf(value);
  const double scaled = value * kPowersOfTen[decimals];
  auto digits = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - digits;
  if (rest > 0.5 - kDoubt && rest < 0.5 + kDoubt) return nullptr;
  if (rest > 0.5) ++digits;
  if (digits >= kSevenDigits) return nullptr;
  return PrintDecimal(buffer, digits, decimals);
}

}  // namespace

// Nearly all integers of a file have at most eight digits.
char* IntToText(char* buffer, int value) {
  constexpr int kEightDigits = 100'000'000;
  if (value <= -kEightDigits || value >= kEightDigits) return std::to_chars(buffer, buffer + kIntBuffer, value).ptr;
  *buffer = '-';
  buffer += value < 0;
  const std::uint64_t digits = EightDigits(static_cast<std::uint32_t>(value < 0 ? -value : value));
  const int zeros = std::countr_zero(digits | std::uint64_t{1} << 56) / 8;  // before the first digit; 0 has one
  StoreEight(buffer, (digits | kZeros) >> 8 * zeros);
  return buffer + 8 - zeros;
}

// Magnitudes are compared by their bits: those of a NaN compare without a floating-point exception.
char* RealToText(char* buffer, double value) {
  constexpr auto bitsOf = [](double real) { return std::bit_cast<std::uint64_t>(real); };
  const double magnitude = std::fabs(value);
  const std::uint64_t bits = bitsOf(magnitude);
  if (bits > bitsOf(HUGE_VAL))
    return std::ranges::copy(std::string_view(std::signbit(value) ? "-nan" : "nan"), buffer).out;
  char* const start = buffer;
  *buffer = '-';
  buffer += std::signbit(value);
  if (bits >= bitsOf(1e-4) && bits < bitsOf(999999.0)) {
    if (char* end = ShortRealToText(buffer, magnitude)) return end;
  } else if (bits == 0) {
    *buffer = '0';
    return buffer + 1;
  }
  return std::to_chars(start, start + kRealBuffer, value, std::chars_format::general, 6).ptr;
}

char* ExactRealToText(char* buffer, double value) {
  const double magnitude = std::fabs(value);
  const bool isPlain = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e15);
  char text[kExactRealBuffer];
  const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
  const char* const start = text;
  const char* const end = std::to_chars(text, text + sizeof text, value, format).ptr;
  const char* const exponent = std::find(start, end, 'e');
  char* out = std::copy(start, exponent, buffer);
  if (std::find(buffer, out, '.') == out) *out++ = '.';
  if (exponent == end) return out;
  *out++ = 'E';
  return std::copy(exponent + 1, end, out);
}

}  // namespace steprt
