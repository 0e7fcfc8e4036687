// Subtype tests on generated chains, by the walk and by the index, against supertypes that are followed by hand.
#include <gtest/gtest.h>

#include "schema/generated_chain.h"
#include "schema/lookup.h"
#include "schema/supertypes.h"
#include "steprt/instance.h"

namespace {

using steprt_test::Chain;
using steprt_test::Model;
using steprt_test::Supertypes;

TEST(SubtypeTest, AgreesWithTheSupertypesOnBothPaths) {
  std::mt19937 random(2718);
  int subtypes = 0;
  for (int round = 0; round < 60; ++round) {
    const auto schemas = steprt_test::GenerateChainWithoutTwins(random);
    const Supertypes supertypes(schemas);
    const Chain chain(schemas);
    Model model(chain.Head());
    auto* object = new STEPheader(&model);
    for (const char* path : {"linear", "indexed"}) {
      for (const int actual : supertypes.Types()) {
        object->Type(actual);
        for (const int expected : supertypes.Types()) {
          const bool is = supertypes.StepsUp(actual, expected) >= 0;
          subtypes += is && actual != expected;
          ASSERT_EQ(steprt::IsSubtype(chain.Head(), expected, actual), is)
              << "round " << round << ", " << path << ": " << actual << " of " << expected;
          ASSERT_EQ(object->IsKindOf(expected), is)
              << "round " << round << ", " << path << ": " << actual << " of " << expected;
        }
      }
      model.PrepareHash();
    }
  }
  EXPECT_GT(subtypes, 1000);
}

}  // namespace
