// Random bytes give the tokens that a scan of one byte at a time finds in them.
#include <gtest/gtest.h>

#include <random>

#include "host/plain_host.h"
#include "read/token_run.h"
#include "support/faulty_calls.h"
#include "whole/reference/tokens.h"

namespace {

using namespace steprt_test;

TokenRun RunReference(const std::string& bytes) {
  const PlainHost plain;
  ReferenceTokens reference(bytes);
  std::string tokens;
  for (int kind = reference.Next(); kind != TOK_EOF; kind = reference.Next()) {
    tokens += tokens.empty() ? "" : "|";
    tokens += TokenText(kind, reference.integer, reference.real, reference.text.c_str());
  }
  return {tokens, reference.reports, reference.line};
}

// Bytes of a file, likely ones first; runs make long words and texts.
std::string RandomBytes(std::mt19937& random) {
  static const std::string kUsual = "0123456789''''##..,,;()==$*+-eEAaTx \n\t\r_\"/!\\\v\x80\xff";
  std::string bytes;
  while (bytes.size() < 600) {
    char c = kUsual[random() % kUsual.size()];
    if (random() % 200 == 0) c = static_cast<char>(random());
    const bool isRun = random() % 150 == 0;
    bytes.append(isRun ? 240 + random() % 30 : 1, c);
    if (isRun) bytes.append(1, "'A1 "[random() % 4]);
  }
  bytes.resize(random() % bytes.size());
  return bytes;
}

TEST(Tokeniser, RandomBytesGiveTheTokensOfAByteByByteScan) {
  std::mt19937 random(1);
  for (int i = 0; i < 4000; ++i) {
    const std::string bytes = RandomBytes(random);
    const TokenRun expected = RunReference(bytes);
    const FaultyCalls calls({.atMost = [&] { return static_cast<int>(1 + random() % 64); }});
    ASSERT_EQ(RunTokeniser(MakeFile("t.stp", bytes)), expected) << testing::PrintToString(bytes);
  }
}

}  // namespace
