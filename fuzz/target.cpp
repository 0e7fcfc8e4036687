#include "target.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/proj_schema.h"

namespace fuzz {
namespace {

// The default listener has printed the failure before.
class Ender : public testing::EmptyTestEventListener {
  void OnTestPartResult(const testing::TestPartResult& result) override {
    if (result.failed()) std::abort();
  }
};

}  // namespace

void SetUp() {
  static const bool isDone = [] {
    testing::InitGoogleTest();
    testing::UnitTest::GetInstance()->listeners().Append(new Ender);
    steprt_test::SetProbe({"tifffssaApET"});
    return true;
  }();
  static_cast<void>(isDone);
}

int Run(void (*check)(const std::string& bytes), const std::uint8_t* data, std::size_t size) {
  SetUp();
  check({data, data + size});
  return 0;
}

}  // namespace fuzz
