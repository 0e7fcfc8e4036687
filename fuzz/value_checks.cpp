#include "value_checks.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bytes.h"
#include "host/plain_host.h"
#include "support/number_parse.h"
#include "support/number_print.h"
#include "xml_values.h"

namespace fuzz {
namespace {

using namespace steprt;
using steprt_test::PlainHost;

constexpr int kModes[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO, FE_TONEAREST};

// The sign of what is no number counts, too.
bool AreSame(double left, double right) {
  const bool isSame = std::isnan(left) ? std::isnan(right) : left == right;
  return isSame && std::signbit(left) == std::signbit(right);
}

double CReal(const std::string& text) {
  const PlainHost plain;
  return std::strtod(text.c_str(), nullptr);
}

int CInt(const std::string& text) {
  const PlainHost plain;
  const long value = std::strtol(text.c_str(), nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

std::string CText(double value) {
  const PlainHost plain;
  char text[64];
  std::snprintf(text, sizeof text, "%lg", value);
  return text;
}

bool IsIntegerByRule(const std::string& text) {
  const std::size_t start = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  return text.find_first_not_of("0123456789", start) == std::string::npos;
}

// [sign] digits [. digits] [e [sign] digits], with a digit before the e
bool IsDecimal(const std::string& text) {
  const char* p = text.c_str();
  const auto digits = [&p] {
    const std::size_t count = std::strspn(p, "0123456789");
    p += count;
    return count;
  };
  const auto skip = [&p](const char* any) { return *p && std::strchr(any, *p) && ++p; };
  skip("+-");
  std::size_t count = digits();
  if (skip(".")) count += digits();
  if (count == 0) return false;
  if (!skip("eE")) return *p == '\0';
  skip("+-");
  return digits() > 0 && *p == '\0';
}

// What the printer puts into the buffer, and nothing beyond it.
template <std::size_t kSize, typename Number>
std::string Printed(char* (*print)(char*, Number), Number value) {
  char buffer[kSize + 1];
  buffer[kSize] = '\x7f';
  const std::string text(buffer, print(buffer, value));
  EXPECT_EQ(buffer[kSize], '\x7f') << text;
  return text;
}

// Exact, or not taken.
void CheckSmallDecimal(std::uint64_t mantissa, int exponent) {
  double value;
  if (!SmallDecimalToReal(mantissa, exponent, &value)) return;
  const std::string text = std::to_string(mantissa) + "e" + std::to_string(exponent);
  EXPECT_TRUE(AreSame(value, CReal(text))) << text;
}

}  // namespace

void CheckWord(const std::string& word) {
  const double expected = CReal(word);
  const double real = TextToReal(word.c_str());
  EXPECT_TRUE(AreSame(real, expected)) << "'" << word << "' gave " << real << " for " << expected;
  EXPECT_EQ(TextToInt(word.c_str()), CInt(word)) << word;
  EXPECT_EQ(IsIntegerText(word.c_str()), IsIntegerByRule(word)) << word;
  EXPECT_TRUE(!IsDecimal(word) || AreSame(DecimalToReal(word), expected)) << word;
}

void CheckReal(double value) {
  const std::string printed = Printed<kRealBuffer>(RealToText, value);
  EXPECT_EQ(printed, CText(value));
  const double again = TextToReal(printed.c_str());
  EXPECT_TRUE(!std::isnormal(again) || Printed<kRealBuffer>(RealToText, again) == printed) << printed;
}

void CheckInt(int value) {
  const std::string printed = Printed<kIntBuffer>(IntToText, value);
  EXPECT_EQ(printed, std::to_string(value));
  EXPECT_EQ(TextToInt(printed.c_str()), value);
}

void CheckValues(const std::string& all) {
  Bytes bytes(all);
  const auto pattern = bytes.Any<std::uint64_t>();
  const int exponent = static_cast<int>(bytes.Any<std::int8_t>()) % 32;
  const int integer = bytes.Any<int>();
  double value;
  std::memcpy(&value, &pattern, sizeof value);
  const std::string word = bytes.Rest();
  const double power = CReal("1e" + std::to_string(exponent));

  const int host = std::fegetround();
  for (const int mode : kModes) {
    std::fesetround(mode);
    CheckWord(word);
    CheckSmallDecimal(pattern >> (integer & 63), exponent);
    CheckInt(integer);
    // Any, of few digits, where halves are near, and the word's.
    for (const double each : {value, integer * power, (integer % 10000000 + 0.5) * power, CReal(word)}) CheckReal(each);
    EXPECT_EQ(std::fegetround(), mode);
  }
  std::fesetround(host);
  CheckXmlValues(word);
}

}  // namespace fuzz
