// Texts to numbers and numbers to texts, held against the C library's functions in every rounding mode.
#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

#include "fuzz/value_checks.h"
#include "host/plain_host.h"
#include "support/number_parse.h"
#include "support/number_print.h"

namespace {

using fuzz::CheckReal;
using fuzz::CheckWord;
using steprt_test::PlainHost;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// A PlainHost of the caller brings the host's own mode back.
void UseMode(unsigned i) {
  constexpr int kModes[] = {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};
  std::fesetround(kModes[i % 4]);
}

// Which a host may let end it.
TEST(Numbers, RaiseNoFloatingPointExceptionReadOrPrinted) {
  const int all = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;
  for (const char* word :
       {"nan", "-nan(1)", "inf", "1e400", "1e-400", "4.9e-324", "2.2250738585072011e-308", "0x1.8p-1074", "-1e308",
        "0.1", "123456789012345678901234567890", "99999999999999999999", "-", "."}) {
    std::feclearexcept(FE_ALL_EXCEPT);
    steprt::TextToReal(word);
    steprt::TextToInt(word);
    EXPECT_EQ(std::fetestexcept(all), 0) << word;
  }
  const double signalling = std::numeric_limits<double>::signaling_NaN();
  for (const double value : {kNan, signalling, HUGE_VAL, 0.0, 4.9e-324, 1.7e308, 0.1}) {
    char buffer[steprt::kRealBuffer];
    std::feclearexcept(FE_ALL_EXCEPT);
    steprt::RealToText(buffer, value);
    EXPECT_EQ(std::fetestexcept(all), 0) << value;
  }
}

TEST(Numbers, OddWordsAreReadAsTheCFunctionsReadThem) {
  std::istringstream words(
      "+ - . +-5 -+5 --5 ++5 5+ 12X 1. .5 +.5 -.5e-1 1.E3 1e 1e+ 1e-x 1.5.2 1,5 1_000 1e5e5 0000.0000 /* \"1\" 0x 0x. "
      "0xg "
      "0x1 -0x1F 0X1.8p1 0x.8 0x1p 0x1p+-1 0x1.fp-1 0x1p-1074 0x1p-1075 0x1.8p-1075 0x1p1023 0x1p1024 0x1p99999999999 "
      "inf -INF +infinity infinit nan -NaN nan(a1_) nan( in n 1e308 1.8e308 -1e309 1e-307 4.9e-324 2.4e-324 2.5e-324 "
      "-1e-400 1e400000000000 0e400000000000 -0.0e-99999999999 0.000e999 1e-400000000000 2147483647 2147483648 "
      "-2147483648 -2147483649 99999999999999999999999 -99999999999999999999999 00000000000000000000001 "
      "9007199254740993 9007199254740992.5 9007199254740993.000000000000000000001");
  for (std::string word; words >> word;) CheckWord(word);
  for (const char* word : {"", "\v5", " \t7.5", "\n-3", "5\v"}) CheckWord(word);
  // Longer than any fast road, on both sides of the range.
  const std::string zeros(400, '0');
  for (const std::string& word :
       {std::string(400, '9'), "0." + zeros + "1", "0." + zeros + "1e400", std::string(700, '7') + "e-700",
        "0x" + std::string(300, 'f'), "0x0." + zeros + "1p1600"}) {
    CheckWord(word);
  }
}

// Huge and tiny, denormal, of many digits.
TEST(Numbers, DecimalsOfAllRangesAreExactInEveryRoundingMode) {
  const PlainHost host;
  std::mt19937 random(2);
  const auto digits = [&](std::size_t most) {
    std::string text(random() % most, '0');
    for (char& c : text) c = static_cast<char>('0' + random() % 10);
    return text;
  };
  for (unsigned i = 0; i < 300'000 && !HasFailure(); ++i) {
    const std::size_t most = i % 50 == 0 ? 400 : 22;
    const int reach = i % 3 == 0 ? 340 : 30;
    const int exponent = static_cast<int>(random() % static_cast<unsigned>(2 * reach)) - reach;
    UseMode(i);
    CheckWord((i % 2 ? "-" : "") + digits(most) + "7." + digits(most) + "e" + std::to_string(exponent));
  }
}

TEST(Numbers, TheShortRoadIsTakenForMostNumbersOfFiles) {
  const PlainHost host;  // it rounds to nearest
  double value = 0.0;
  for (int exponent = -22; exponent <= 22; ++exponent) {
    EXPECT_TRUE(steprt::SmallDecimalToReal(1, exponent, &value)) << exponent;
    EXPECT_TRUE(steprt::SmallDecimalToReal(9007199254740992, exponent, &value)) << exponent;
  }
}

TEST(Numbers, IntegersPrintAsPercentD) {
  std::mt19937 random(1);
  for (int i = 0; i < 200'000 && !HasFailure(); ++i) fuzz::CheckInt(static_cast<int>(random()) >> random() % 32);
  for (const int value : {INT_MIN, INT_MAX, 0}) fuzz::CheckInt(value);
}

void CheckNeighbours(double value) {
  CheckReal(value);
  CheckReal(-value);
  double above = value;
  double below = value;
  for (int i = 0; i < 3; ++i) {
    CheckReal(above = std::nextafter(above, HUGE_VAL));
    CheckReal(below = std::nextafter(below, -HUGE_VAL));
  }
}

// The sixth digit is in doubt where the seventh is a 5 and nothing follows it, or nearly so.
TEST(Numbers, RealsPrintAsInCNearPowersOfTenAndNearTies) {
  const PlainHost host;
  for (const double value : {0.0, 2.5, 1.0 / 3, 999999.5, 99999.96, HUGE_VAL, kNan}) CheckNeighbours(value);
  for (int power = -330; power <= 308; ++power) {
    for (const char* digits : {"1", "5", "9.99999", "9.999995", "9.9999949999999999", "1.000005", "1.23456500000"})
      CheckNeighbours(steprt::TextToReal((std::string(digits) + "e" + std::to_string(power)).c_str()));
  }
  std::mt19937 random(2);
  for (unsigned i = 0; i < 60'000 && !HasFailure(); ++i) {
    const double digits = static_cast<double>(100000 + random() % 900000);
    UseMode(i);
    CheckNeighbours((digits + 0.5) / std::pow(10.0, i % 12));
    CheckNeighbours(static_cast<double>(random() % 10000000) / static_cast<double>(1u << random() % 24));
  }
}

}  // namespace
