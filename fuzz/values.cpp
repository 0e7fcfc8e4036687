// The number scanners and printers against the C library's, whatever the rounding mode; and the scanners of XML values.
#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "bytes.h"
#include "support/number.h"
#include "target.h"
#include "xml_values.h"

namespace {

using namespace steprt;

bool AreSame(double left, double right) {
  if (std::isnan(left) || std::isnan(right)) return std::isnan(left) && std::isnan(right);
  return left == right && std::signbit(left) == std::signbit(right);
}

// ---- text to number

int CInt(const char* text) {
  const long value = std::strtol(text, nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

bool IsIntegerByRule(const std::string& text) {
  const std::size_t start = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  return text.find_first_not_of("0123456789", start) == std::string::npos;
}

// [sign] digits [. digits] [e [sign] digits], with a digit before the e
bool IsDecimal(const std::string& text) {
  const char* p = text.c_str();
  if (*p == '+' || *p == '-') ++p;
  const std::size_t whole = std::strspn(p, "0123456789");
  p += whole;
  std::size_t rest = 0;
  if (*p == '.') {
    rest = std::strspn(++p, "0123456789");
    p += rest;
  }
  if (whole + rest == 0) return false;
  if (*p != 'e' && *p != 'E') return *p == '\0';
  ++p;
  if (*p == '+' || *p == '-') ++p;
  const std::size_t power = std::strspn(p, "0123456789");
  return power > 0 && p[power] == '\0';
}

void CheckText(const std::string& text) {
  const double real = std::strtod(text.c_str(), nullptr);
  EXPECT_TRUE(TextToInt(text.c_str()) == CInt(text.c_str()));
  EXPECT_TRUE(AreSame(TextToReal(text.c_str()), real));
  EXPECT_TRUE(IsIntegerText(text.c_str()) == IsIntegerByRule(text));
  EXPECT_TRUE(!IsDecimal(text) || AreSame(DecimalToReal(text), real));
}

void CheckSmallDecimal(std::uint64_t mantissa, int exponent) {
  double value;
  if (!SmallDecimalToReal(mantissa, exponent, &value)) return;
  const std::string text = std::to_string(mantissa) + "e" + std::to_string(exponent);
  EXPECT_TRUE(AreSame(value, std::strtod(text.c_str(), nullptr)));
}

// ---- number to text

std::string Print(double value) {
  char room[kRealBuffer];
  char* end = RealToText(room, value);
  EXPECT_TRUE(end > room && end <= room + kRealBuffer);
  return std::string(room, end);
}

std::string Print(int value) {
  char room[kIntBuffer];
  char* end = IntToText(room, value);
  EXPECT_TRUE(end > room && end <= room + kIntBuffer);
  return std::string(room, end);
}

// What is printed is read back, and printed alike.
void CheckReal(double value) {
  char expected[64];
  std::snprintf(expected, sizeof expected, "%lg", value);
  const std::string printed = Print(value);
  EXPECT_TRUE(printed == expected);
  EXPECT_TRUE(std::isnan(value) || Print(TextToReal(printed.c_str())) == printed);
}

void CheckInt(int value) {
  const std::string printed = Print(value);
  EXPECT_TRUE(printed == std::to_string(value));
  EXPECT_TRUE(TextToInt(printed.c_str()) == value);
}

// ---- rounding modes, which change no answer

void CheckRounding(const std::string& text, double value) {
  const double real = TextToReal(text.c_str());
  const std::string printed = Print(value);
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(mode);
    const double realThere = TextToReal(text.c_str());
    const std::string printedThere = Print(value);
    const int modeAfterwards = std::fegetround();
    std::fesetround(FE_TONEAREST);
    EXPECT_TRUE(AreSame(real, realThere));
    EXPECT_TRUE(printed == printedThere);
    EXPECT_TRUE(mode == modeAfterwards);
  }
}

}  // namespace

// Sixteen bytes of numbers, and a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::SetUp();
  fuzz::Bytes bytes(data, size);
  const auto pattern = bytes.Any<std::uint64_t>();
  const int exponent = static_cast<int>(bytes.Any<std::int8_t>()) % 32;
  const int integer = bytes.Any<int>();
  double value;
  std::memcpy(&value, &pattern, sizeof value);
  std::string text;
  while (!bytes.IsEmpty()) text += static_cast<char>(bytes.Byte());
  text = text.c_str();

  CheckText(text);
  fuzz::CheckXmlValues(text);
  CheckSmallDecimal(pattern >> (integer & 63), exponent);
  CheckInt(integer);
  CheckReal(value);
  CheckReal(integer * std::pow(10.0, exponent));  // few digits, where halves are near
  CheckReal((integer % 10000000 + 0.5) * std::pow(10.0, exponent % 8));
  CheckReal(std::strtod(text.c_str(), nullptr));
  CheckRounding(text, value);
  CheckRounding(text, integer * std::pow(10.0, exponent));
  return 0;
}
