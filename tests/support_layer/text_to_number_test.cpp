// Texts to numbers, held against the C library's functions in the C locale.
#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cmath>
#include <cstring>
#include <random>
#include <sstream>

#include "host/plain_host.h"
#include "support/number.h"

namespace {

using steprt::DecimalToReal;
using steprt::SmallDecimalToReal;
using steprt::TextToInt;
using steprt::TextToReal;

const int kModes[] = {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};

int ExpectedInt(const std::string& text) {
  const long long value = std::strtoll(text.c_str(), nullptr, 10);
  return value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

double ExpectedReal(const std::string& text) {
  const steprt_test::PlainHost plain;
  return std::strtod(text.c_str(), nullptr);
}

// The sign of what is no number counts, too.
bool Same(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b) && std::signbit(a) == std::signbit(b);
  return std::memcmp(&a, &b, sizeof a) == 0;
}

void ExpectAsC(const std::string& text) {
  const double expected = ExpectedReal(text);
  const double real = TextToReal(text.c_str());
  ASSERT_TRUE(Same(real, expected)) << "'" << text << "' gave " << real << " for " << expected;
  ASSERT_EQ(TextToInt(text.c_str()), ExpectedInt(text)) << "'" << text << "'";
}

// Which a host may let end it.
TEST(TextToNumber, NoWordRaisesAFloatingPointException) {
  for (const char* word :
       {"nan", "-nan(1)", "inf", "1e400", "1e-400", "4.9e-324", "2.2250738585072011e-308", "0x1.8p-1074", "-1e308",
        "0.1", "123456789012345678901234567890", "99999999999999999999", "-", "."}) {
    std::feclearexcept(FE_ALL_EXCEPT);
    TextToReal(word);
    TextToInt(word);
    EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW), 0) << word;
  }
}

TEST(TextToNumber, OddWordsAreReadAsTheCFunctionsReadThem) {
  std::istringstream words(
      "+ - . +-5 -+5 --5 ++5 5+ 12X 1. .5 +.5 -.5e-1 1.E3 1e 1e+ 1e-x 1.5.2 1,5 1_000 1e5e5 0000.0000 /* \"1\" 0x 0x. "
      "0xg "
      "0x1 -0x1F 0X1.8p1 0x.8 0x1p 0x1p+-1 0x1.fp-1 0x1p-1074 0x1p-1075 0x1.8p-1075 0x1p1023 0x1p1024 0x1p99999999999 "
      "inf -INF +infinity infinit nan -NaN nan(a1_) nan( in n 1e308 1.8e308 -1e309 1e-307 4.9e-324 2.4e-324 2.5e-324 "
      "-1e-400 1e400000000000 0e400000000000 -0.0e-99999999999 0.000e999 1e-400000000000 2147483647 2147483648 "
      "-2147483648 -2147483649 99999999999999999999999 -99999999999999999999999 00000000000000000000001 "
      "9007199254740993 9007199254740992.5 9007199254740993.000000000000000000001");
  for (std::string word; words >> word;) ExpectAsC(word);
  for (const char* word : {"", "\v5", " \t7.5", "\n-3", "5\v"}) ExpectAsC(word);
  // Longer than any fast road, on both sides of the range.
  ExpectAsC(std::string(400, '9'));
  ExpectAsC("0." + std::string(400, '0') + "1");
  ExpectAsC("0." + std::string(400, '0') + "1e400");
  ExpectAsC(std::string(700, '7') + "e-700");
  ExpectAsC("0x" + std::string(300, 'f'));
  ExpectAsC("0x0." + std::string(300, '0') + "1p1200");
}

TEST(TextToNumber, AMillionRandomWordsAreReadAsTheCFunctionsReadThem) {
  constexpr char kAlphabet[] = "00112233456789+-..eExXpPinfaNFt()_";
  std::mt19937 random(1);
  std::uniform_int_distribution<std::size_t> letter(0, sizeof kAlphabet - 2);
  for (int i = 0; i < 1000000 && !testing::Test::HasFatalFailure(); ++i) {
    std::string word(random() % 12, '0');
    for (char& c : word) c = kAlphabet[letter(random)];
    if (i % 4 == 0) word.insert(0, "0x");
    ExpectAsC(word);
  }
}

struct Decimal {
  std::string digits;
  std::string fraction;
  int exponent = 0;

  std::string Text() const { return digits + "." + fraction + "e" + std::to_string(exponent); }
};

// All ranges: huge and tiny, denormal, of many digits.
Decimal RandomDecimal(std::mt19937& random) {
  const auto digits = [&](std::size_t most) {
    std::string text(random() % most, '0');
    for (char& c : text) c = static_cast<char>('0' + random() % 10);
    return text;
  };
  const std::size_t most = random() % 50 == 0 ? 400 : 22;
  const int reach = random() % 3 == 0 ? 340 : 30;
  return {digits(most) + "7", digits(most), static_cast<int>(random() % static_cast<unsigned>(2 * reach)) - reach};
}

TEST(TextToNumber, DecimalsAreExactInEveryRoundingMode) {
  std::mt19937 random(2);
  for (int i = 0; i < 400000; ++i) {
    const std::string text = RandomDecimal(random).Text();
    const double expected = ExpectedReal(text);
    const int mode = kModes[i % 4];
    std::fesetround(mode);
    const double real = TextToReal(text.c_str());
    const double negative = DecimalToReal("-" + text);
    const int after = std::fegetround();
    std::fesetround(FE_TONEAREST);
    ASSERT_EQ(after, mode);
    ASSERT_TRUE(Same(real, expected) && Same(negative, -expected)) << text << " in mode " << mode;
  }
}

TEST(TextToNumber, TheShortRoadIsExactOrNotTaken) {
  std::mt19937_64 random(3);
  int taken = 0;
  for (int i = 0; i < 400000; ++i) {
    const unsigned long long mantissa = random() >> random() % 60;
    const int exponent = static_cast<int>(random() % 50) - 25;
    std::fesetround(kModes[i % 4]);
    double value = 0.0;
    const bool isTaken = SmallDecimalToReal(mantissa, exponent, &value);
    std::fesetround(FE_TONEAREST);
    taken += isTaken;
    const std::string text = std::to_string(mantissa) + "e" + std::to_string(exponent);
    const double expected = ExpectedReal(text);
    ASSERT_TRUE(!isTaken || Same(value, expected)) << text << " in mode " << kModes[i % 4];
  }
  EXPECT_GT(taken, 50000);
}

}  // namespace
