// The type queries on generated chains, by the walk and by the index, against supertypes that are followed by hand.
#include <gtest/gtest.h>

#include "schema/generated_chain.h"
#include "schema/supertypes.h"
#include "steprt/aggregate.h"
#include "steprt/instance.h"
#include "steprt/schema.h"

namespace {

using steprt_test::Chain;
using steprt_test::Model;
using steprt_test::Supertypes;

using Found = std::vector<STEPheader*>;

Found Take(STEPlist* head) {
  Found found;
  for (const STEPlist* node = head; node; node = node->next) found.push_back(node->value.object);
  DeleteSTEPlist(&head);
  return found;
}

Found Take(STEPaggr* aggr) {
  Found found = Take(aggr->head);
  delete aggr;
  return found;
}

// A model with up to two instances of each type, in no order, and an aggregate that has them in the reverse order.
class Population {
 public:
  Population(APPobject0* head, const Supertypes& types, std::mt19937& random) : supertypes(types), model(head) {
    for (std::size_t i = 0; i < types.Types().size() * 2; ++i) {
      auto* object = new STEPheader(&model);
      object->Type(types.Types()[random() % types.Types().size()]);
      source.Prepend(object);
    }
  }
  ~Population() { DeleteSTEPlist(&source.head); }

  // Whether all that the query asks for has room in what it counts. A ring fills it.
  bool Fits(int type, int depth) {
    int types[32];
    return ExtractTypes(model.schema, type, types, 32, depth) < 32;
  }

  void ExpectFound(int type, int depth) {
    Found expected;
    for (STEPheader* each = model.Inst(); each; each = each->NextHead()) {
      const int steps = supertypes.StepsUp(each->Type(), type);
      if (steps == 0 || (depth >= 2 && steps > 0 && steps <= depth)) expected.push_back(each);
    }
    const Found reversed(expected.rbegin(), expected.rend());
    ASSERT_EQ(Take(model.GetSTEPlist(type, depth)), expected);
    ASSERT_EQ(Take(model.GetSTEPaggr(type, depth)), expected);
    ASSERT_EQ(Take(model.GetSTEPaggr(&source, type, depth)), reversed);
    if (depth < 31) return;
    ASSERT_EQ(Take(model.GetSTEPaggrAll(type)), expected);
    ASSERT_EQ(Take(model.GetSTEPaggrAll(&source, type)), reversed);
  }

  const Supertypes& supertypes;
  Model model;
  STEPaggr source;
};

TEST(TypeQueriesOnGeneratedChains, AgreeWithTheSupertypesOnBothPaths) {
  std::mt19937 random(1414);
  int compared = 0;
  for (int round = 0; round < 40; ++round) {
    const auto schemas = steprt_test::GenerateChainWithoutTwins(random);
    const Supertypes supertypes(schemas);
    const Chain chain(schemas);
    Population population(chain.Head(), supertypes, random);
    for (const char* path : {"linear", "indexed"}) {
      for (const int type : supertypes.Types()) {
        for (const int depth : {1, 2, 3, 31}) {
          if (!population.Fits(type, depth)) continue;
          population.ExpectFound(type, depth);
          if (testing::Test::HasFatalFailure())
            FAIL() << "round " << round << ", " << path << ": " << type << ", " << depth;
          ++compared;
        }
      }
      population.model.PrepareHash();
    }
  }
  EXPECT_GT(compared, 3000);
}

}  // namespace
