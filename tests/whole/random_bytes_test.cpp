// The checks of the fuzz targets, given random bytes.
#include <gtest/gtest.h>

#include <random>

#include "fuzz/edit_checks.h"
#include "fuzz/value_checks.h"

namespace {

std::string RandomBytes(std::mt19937& random, std::size_t count, const std::string& alphabet = "") {
  std::string bytes(count, '\0');
  for (char& c : bytes) c = alphabet.empty() ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
  return bytes;
}

TEST(RandomBytes, AsEditsKeepModelsAndTheirPartsAsTheirCounterpartsAre) {
  std::string low;  // which pick an instance more often than others
  for (char c = 0; c < 20; ++c) low += c;
  std::mt19937 random(1);
  for (int i = 0; i < 3000 && !HasFailure(); ++i)
    fuzz::CheckEdits(RandomBytes(random, random() % 2000, i % 4 ? low : ""));
}

TEST(RandomBytes, AsNumbersAndWordsAreReadAndPrintedAsInC) {
  const std::string digits = "00112233456789";
  const std::string alphabets[] = {digits, digits + "+-..eE", digits + "+-..eExXpPinfaNt()_", " #$.;'\tAbe1+-5", ""};
  std::mt19937 random(2);
  for (int i = 0; i < 100'000 && !HasFailure(); ++i) {
    const std::string word = RandomBytes(random, random() % (i % 50 ? 14 : 400), alphabets[random() % 5]);
    fuzz::CheckValues(RandomBytes(random, 16) + (i % 8 ? "" : "0x") + word);
  }
}

}  // namespace
