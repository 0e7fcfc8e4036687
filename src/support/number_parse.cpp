// Text to numbers. A short decimal is one product or quotient of two exact doubles; std::from_chars converts the rest,
// with what it does differently from the C functions put right.
#include "support/number_parse.h"

#include <cfenv>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "support/ascii.h"
#include "support/powers_of_ten.h"

namespace steprt {
namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Rounds to nearest as long as it lives, so that another mode of the host changes no number.
class NearestRounding {
 public:
  NearestRounding() : mode_(std::fegetround()) {
    if (mode_ != FE_TONEAREST) std::fesetround(FE_TONEAREST);
  }
  ~NearestRounding() {
    if (mode_ != FE_TONEAREST) std::fesetround(mode_);
  }
  NearestRounding(const NearestRounding&) = delete;
  NearestRounding& operator=(const NearestRounding&) = delete;

 private:
  int mode_;
};

// Much cheaper than std::fegetround. Only when rounding to nearest do both sums give 1.
bool RoundsToNearest() {
  static const volatile double tiny = DBL_MIN;
  const double epsilon = tiny;
  return 1.0 + epsilon == 1.0 - epsilon;
}

constexpr int kLargestExactPower = 22;
constexpr std::uint64_t kLargestExactInteger = 1ull << 53;

// Whether a number that from_chars found out of range is above the range (an infinity) or below it (0). Only the place
// of the first digit and the exponent decide.
bool IsTooLarge(std::string_view text, bool hexadecimal) {
  const char marker = hexadecimal ? 'p' : 'e';
  long long place = 0;  // of the first digit that is not 0: positive left of the point
  bool found = false;
  bool afterPoint = false;
  std::size_t i = 0;
  for (; i < text.size() && ToLower(text[i]) != marker; ++i) {
    if (text[i] == '.') {
      afterPoint = true;
    } else {
      found = found || text[i] != '0';
      if (found && !afterPoint) ++place;
      if (!found && afterPoint) --place;
    }
  }
  if (hexadecimal) place *= 4;
  long long exponent = 0;
  bool negative = false;
  for (++i; i < text.size(); ++i) {
    if (text[i] == '-') negative = true;
    if (IsDigit(text[i]) && exponent < LLONG_MAX / 20) exponent = exponent * 10 + (text[i] - '0');
  }
  return place + (negative ? -exponent : exponent) > 0;
}

double UnsignedToReal(std::string_view text, std::chars_format format) {
  const NearestRounding nearest;
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, format);
  if (error == std::errc::result_out_of_range) {
    const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
    return IsTooLarge(number, format == std::chars_format::hex) ? HUGE_VAL : 0.0;
  }
  return error == std::errc{} ? value : 0.0;
}

bool IsHexDigit(char c) { return IsDigit(c) || (ToLower(c) >= 'a' && ToLower(c) <= 'f'); }

bool StartsHexadecimal(const char* text) {
  if (text[0] != '0' || ToLower(text[1]) != 'x') return false;
  return IsHexDigit(text[2] == '.' ? text[3] : text[2]);
}

// Only the number itself is handed on, so that a long text after it costs nothing. from_chars would accept two signs
// after the p.
double HexadecimalToReal(const char* text) {
  const char* end = text;
  while (IsHexDigit(*end) || *end == '.') ++end;
  if (ToLower(*end) == 'p') {
    const char* digit = end[1] == '+' || end[1] == '-' ? end + 2 : end + 1;
    while (IsDigit(*digit)) end = ++digit;
  }
  return UnsignedToReal({text, static_cast<std::size_t>(end - text)}, std::chars_format::hex);
}

// "inf", "infinity", "nan"
double NameToReal(const char* text) {
  constexpr std::size_t kLongest = 8;
  std::size_t length = 0;
  while (length < kLongest && IsLetter(text[length])) ++length;
  return UnsignedToReal({text, length}, std::chars_format::general);
}

// Stores the exponent after a number's digits in *exponent, 0 if there is none, and returns its end.
const char* ScanExponent(const char* text, int* exponent) {
  *exponent = 0;
  if (*text != 'e' && *text != 'E') return text;
  const bool negative = text[1] == '-';
  Digits power = {0, 0};
  const char* end = ScanDigits(text + (negative || text[1] == '+' ? 2 : 1), &power);
  if (power.count == 0) return text;
  const int value = power.count > kIntDigits ? INT_MAX / 2 : static_cast<int>(power.value);
  *exponent = negative ? -value : value;
  return end;
}

// Converts digits [. digits] [(e | E) [sign] digits]. Returns 0 if there is no digit.
double DigitsToReal(const char* text) {
  Digits digits = {0, 0};
  const char* end = ScanDigits(text, &digits);
  const std::ptrdiff_t whole = digits.count;
  if (*end == '.') end = ScanDigits(end + 1, &digits);
  if (digits.count == 0) return 0.0;
  int exponent;
  end = ScanExponent(end, &exponent);
  double value;
  const bool isShort = digits.count <= kMantissaDigits;
  if (isShort && SmallDecimalToReal(digits.value, exponent + static_cast<int>(whole - digits.count), &value))
    return value;
  return UnsignedToReal({text, static_cast<std::size_t>(end - text)}, std::chars_format::general);
}

double UnsignedTextToReal(const char* text) {
  if (StartsHexadecimal(text)) return HexadecimalToReal(text + 2);
  return IsDigit(*text) || *text == '.' ? DigitsToReal(text) : NameToReal(text);
}

}  // namespace

const char* SkipSpaces(const char* text) {
  while (IsSpace(*text)) ++text;
  return text;
}

bool IsIntegerText(const char* text) {
  if (*text == '+' || *text == '-') ++text;
  while (IsDigit(*text)) ++text;
  return *text == '\0';
}

int TextToInt(const char* text) {
  text = SkipSpaces(text);
  const bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  long long value = 0;
  for (; IsDigit(*text) && value <= INT_MAX; ++text) value = value * 10 + (*text - '0');
  if (negative) value = -value;
  if (value > INT_MAX) return INT_MAX;
  return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

double TextToReal(const char* text) {
  text = SkipSpaces(text);
  const bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  if (*text == '-' || *text == '+') return 0.0;  // from_chars would accept a second minus
  const double value = UnsignedTextToReal(text);
  const bool isNumber = value != 0.0 || IsDigit(text[*text == '.' ? 1 : 0]);
  return negative && isNumber ? -value : value;  // a lone sign is 0, not -0
}

double DecimalToReal(std::string_view text) {
  const bool negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  const double value = UnsignedToReal(text, std::chars_format::general);
  return negative ? -value : value;
}

bool SmallDecimalToReal(unsigned long long mantissa, int exponent, double* result) {
  if (mantissa > kLargestExactInteger || exponent > kLargestExactPower || exponent < -kLargestExactPower) return false;
  // The conversion is from a signed number: a compiler may convert an unsigned 64-bit number by a difference, and then
  // 0 becomes negative when the host rounds downward.
  const double exact = static_cast<double>(static_cast<long long>(mantissa));
  if (exponent == 0) {
    *result = exact;
    return true;
  }
  if (!RoundsToNearest()) return false;
  *result = exponent < 0 ? exact / kPowersOfTen[-exponent] : exact * kPowersOfTen[exponent];
  return true;
}

}  // namespace steprt
