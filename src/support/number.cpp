#include "support/number.h"

#include <algorithm>
#include <bit>
#include <cfenv>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace steprt {
namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Holds rounding to nearest for its own life, so that a host's other mode changes no number.
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

// Much cheaper than to ask: only rounding to nearest makes both of these vanish against 1.
bool RoundsToNearest() {
  static const volatile double tiny = DBL_MIN;
  const double epsilon = tiny;
  return 1.0 + epsilon == 1.0 - epsilon;
}

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kLargestExactPower = 22;
constexpr std::uint64_t kLargestExactInteger = 1ull << 53;

// Whether a number that from_chars found out of range lies above the range (an infinity) or below it (0). Only the
// place of the first digit and the exponent decide.
bool IsTooLarge(std::string_view text, bool hexadecimal) {
  const char marker = hexadecimal ? 'p' : 'e';
  long long place = 0;  // of the first digit that is not 0: above 0 left of the point
  bool found = false;
  bool behindPoint = false;
  std::size_t i = 0;
  for (; i < text.size() && ToLower(text[i]) != marker; ++i) {
    if (text[i] == '.') {
      behindPoint = true;
    } else {
      found = found || text[i] != '0';
      if (found && !behindPoint) ++place;
      if (!found && behindPoint) --place;
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

// What is converted ends where no number goes on, so that a long text behind it costs nothing. from_chars itself would
// take two signs behind the p.
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

// The exponent behind a number's digits, 0 if there is none.
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

// digits [. digits] [(e | E) [sign] digits], with a digit in it; 0 without one.
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
  if (*text == '-' || *text == '+') return 0.0;  // from_chars would take a second minus
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
  // Signed: a compiler may convert an unsigned 64-bit number by a difference, which makes a 0 negative when the host
  // rounds downward.
  const double exact = static_cast<double>(static_cast<long long>(mantissa));
  if (exponent == 0) {
    *result = exact;
    return true;
  }
  if (!RoundsToNearest()) return false;
  *result = exponent < 0 ? exact / kPowersOfTen[-exponent] : exact * kPowersOfTen[exponent];
  return true;
}

char* IntToText(char* room, int value) { return std::to_chars(room, room + kIntBuffer, value).ptr; }

namespace {

// Prints digits and a point for 0 < value < 10^6, or gives null where the sixth digit is in doubt: one product of two
// doubles is off by less than 1e-9 here, so only a rest that close to one half needs the exact road.
char* ShortRealToText(char* room, double value) {
  constexpr double kDoubt = 1e-7;
  int decimals = 0;  // behind the point, so that six digits remain in all
  if (value >= 100000.0) {
    decimals = 0;
  } else {
    decimals = 5;
    for (double bound = 10.0; value >= bound; bound *= 10.0) --decimals;
    if (value < 1.0) decimals = value >= 0.1 ? 6 : value >= 0.01 ? 7 : value >= 0.001 ? 8 : 9;
  }
  const double scaled = value * kPowersOfTen[decimals];
  std::uint32_t digits = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - digits;
  if (rest > 0.5 - kDoubt && rest < 0.5 + kDoubt) return nullptr;
  if (rest > 0.5) ++digits;
  if (digits >= 1000000) return nullptr;  // rounded up to a seventh digit
  while (decimals > 0 && digits % 10 == 0) {
    digits /= 10;
    --decimals;
  }
  char text[12];
  char* end = std::to_chars(text, text + sizeof text, digits).ptr;
  const int count = static_cast<int>(end - text);
  const int whole = count - decimals;
  if (whole > 0) {
    room = std::copy(text, text + whole, room);
    if (decimals == 0) return room;
    *room++ = '.';
    return std::copy(text + whole, end, room);
  }
  *room++ = '0';
  *room++ = '.';
  for (int zeros = -whole; zeros > 0; --zeros) *room++ = '0';
  return std::copy(text, end, room);
}

}  // namespace

// Bits of magnitudes compare as the values do, and a NaN raises no floating-point exception in them.
char* RealToText(char* room, double value) {
  constexpr auto bitsOf = [](double real) { return std::bit_cast<std::uint64_t>(real); };
  const double magnitude = std::fabs(value);
  const std::uint64_t bits = bitsOf(magnitude);
  if (bits > bitsOf(HUGE_VAL))
    return std::ranges::copy(std::string_view(std::signbit(value) ? "-nan" : "nan"), room).out;
  if (bits >= bitsOf(1e-4) && bits < bitsOf(999999.0)) {
    char* start = room;
    if (value < 0) *start++ = '-';
    const int whole = static_cast<int>(magnitude);
    if (whole == magnitude) return IntToText(start, whole);
    if (char* end = ShortRealToText(start, magnitude)) return end;
  }
  return std::to_chars(room, room + kRealBuffer, value, std::chars_format::general, 6).ptr;
}

}  // namespace steprt
