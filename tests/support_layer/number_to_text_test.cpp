// Numbers to texts, held against "%d" and "%lg" of the C library.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "host/plain_host.h"
#include "support/number.h"

namespace {

using steprt::IntToText;
using steprt::kIntBuffer;
using steprt::kRealBuffer;
using steprt::RealToText;

std::string RealText(double value) {
  char room[kRealBuffer + 1];
  room[kRealBuffer] = '\x7f';
  const std::string text(room, RealToText(room, value));
  EXPECT_EQ(room[kRealBuffer], '\x7f') << text;
  return text;
}

// In the rounding mode of the moment; the expected text is always that of rounding to nearest.
void ExpectAsC(double value) {
  char expected[64];
  {
    const steprt_test::PlainHost plain;
    std::snprintf(expected, sizeof expected, "%lg", value);
  }
  ASSERT_EQ(RealText(value), expected);
}

void ExpectNeighboursAsC(double value) {
  ExpectAsC(value);
  ExpectAsC(-value);
  double above = value;
  double below = value;
  for (int i = 0; i < 3; ++i) {
    ExpectAsC(above = std::nextafter(above, HUGE_VAL));
    ExpectAsC(below = std::nextafter(below, -HUGE_VAL));
  }
}

TEST(NumberToText, IntegersPrintAsPercentD) {
  std::mt19937 random(1);
  for (int i = 0; i < 200000; ++i) {
    const int value = static_cast<int>(random()) >> random() % 32;
    char room[kIntBuffer];
    ASSERT_EQ(std::string(room, IntToText(room, value)), std::to_string(value));
  }
  char room[kIntBuffer];
  EXPECT_EQ(std::string(room, IntToText(room, std::numeric_limits<int>::min())), "-2147483648");
  EXPECT_EQ(std::string(room, IntToText(room, std::numeric_limits<int>::max())), "2147483647");
}

TEST(NumberToText, RealsHaveSixDigitsAndNoMore) {
  for (const double value : {0.0,     1.0,       2.5,      100000.0, 999999.0,
                             1e6,     1234567.0, 0.0001,   0.00001,  1.0 / 3,
                             2.0 / 3, 999999.5,  99999.96, 123456.5, 123457.5,
                             1e300,   4.9e-324,  1e-100,   HUGE_VAL, std::numeric_limits<double>::quiet_NaN()}) {
    ExpectAsC(value);
    ExpectAsC(-value);
  }
}

// Which a host may let end it.
TEST(NumberToText, NoRealRaisesAFloatingPointException) {
  for (const double value : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::signaling_NaN(),
                             HUGE_VAL, 0.0, 4.9e-324, 1.7e308, 0.1}) {
    std::feclearexcept(FE_ALL_EXCEPT);
    RealText(value);
    EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW), 0) << value;
  }
}

TEST(NumberToText, PowersOfTenAndTheirNeighboursPrintAsInC) {
  for (int power = -330; power <= 308; ++power) {
    for (const char* digits : {"1", "5", "9.99999", "9.999995", "9.9999949999999999", "1.000005", "1.23456500000"}) {
      ExpectNeighboursAsC(steprt::TextToReal((std::string(digits) + "e" + std::to_string(power)).c_str()));
    }
  }
}

// The sixth digit is in doubt where the seventh is a 5 and nothing behind it, or nearly so.
TEST(NumberToText, TiesAndNearTiesPrintAsInC) {
  std::mt19937 random(2);
  for (int i = 0; i < 100000; ++i) {
    const double digits = static_cast<double>(100000 + random() % 900000);
    ExpectNeighboursAsC(digits + 0.5);
    ExpectNeighboursAsC((digits + 0.5) / std::pow(10.0, random() % 12));
    ExpectNeighboursAsC(static_cast<double>(random() % 10000000) / static_cast<double>(1u << random() % 24));
  }
}

TEST(NumberToText, RealsOfEveryMagnitudePrintAsInCInEveryRoundingMode) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> usual(-1000.0, 1000.0);
  std::uniform_real_distribution<double> power(-7.0, 8.0);
  for (int i = 0; i < 500000 && !testing::Test::HasFatalFailure(); ++i) {
    const int modes[] = {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};
    std::fesetround(modes[i % 4]);
    const std::uint64_t bits = random();
    double any;
    std::memcpy(&any, &bits, sizeof any);
    ExpectAsC(any);
    ExpectAsC(usual(random));
    ExpectAsC(std::pow(10.0, power(random)));
    ExpectAsC(std::round(usual(random) * 1000.0) / 1000.0);
  }
  std::fesetround(FE_TONEAREST);
}

}  // namespace
