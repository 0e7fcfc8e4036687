// Instances by type: the limits of a query, and the subtype test beside the types that a query goes by. What queries
// find is checked with random edits, in fuzz/edit_checks.cpp.
#include <gtest/gtest.h>

#include <algorithm>

#include "schema/generated_chain.h"
#include "schema/lookup.h"
#include "steprt/aggregate.h"
#include "steprt/instance.h"
#include "steprt/schema.h"

namespace {

using namespace steprt_test;

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

STEPheader* Make(STEPmodel* model, int type) {
  auto* object = new STEPheader(model);
  object->Type(type);
  return object;
}

// Rings fill what is asked for, and hold all that is below a type all the same.
TEST(TypeQueries, ATypeIsBelowAnotherWhereItIsAmongItsTypes) {
  std::mt19937 random(1414);
  int subtypes = 0;
  for (int round = 0; round < 60; ++round) {
    const auto schemas = GenerateChainWithoutTwins(random);
    const Chain chain(schemas);
    Model model(chain.Head());
    std::vector<int> all = {77777, -1};  // neither has a row
    for (const Schema& schema : schemas) {
      for (const Row& row : schema.rows) all.push_back(row.type);
    }
    for (const char* path : {"linear", "indexed"}) {
      for (const int type : all) {
        std::vector<int> types(100'000);
        types.resize(static_cast<std::size_t>(ExtractTypes(chain.Head(), type, types.data(), 100'000, 100)));
        for (const int other : all) {
          const bool isBelow = type < 0 || type == other || std::count(types.begin(), types.end(), other) > 0;
          ASSERT_EQ(steprt::IsSubtype(chain.Head(), type, other), isBelow)
              << "round " << round << ", " << path << ": " << other << " of " << type;
          subtypes += isBelow && type >= 0 && type != other;
        }
      }
      model.PrepareHash();
    }
  }
  EXPECT_GT(subtypes, 1000);
}

TEST(TypeQueries, WithoutASourceOrASchemaFindNothing) {
  const Chain chain({{"S", {{"TOP", 1}}}});
  Model model(chain.Head());
  Make(&model, 1);
  STEPaggr none;
  EXPECT_EQ(Take(model.GetSTEPaggr(&none, 1, 5)), Found{});
  EXPECT_EQ(Take(model.GetSTEPaggr(nullptr, 1, 5)), Found{});
  EXPECT_EQ(Take(model.GetSTEPaggrAll(nullptr, 1)), Found{});
  Model bare(nullptr);
  const Found alone = {Make(&bare, 1)};
  EXPECT_EQ(Take(bare.GetSTEPlist(1, 1)), alone);
  EXPECT_EQ(Take(bare.GetSTEPlist(1, 2)), Found{});
}

// Type 0 and 40 others, one instance of each. Side by side 31 types count, in row order or from the last row on; one
// below the other, 31 types are used up before 31 levels are.
TEST(TypeQueries, Count31TypesAndDropTheOthersSilently) {
  for (const bool isDeep : {false, true}) {
    Schema many{"S", {{"E0", 0}}};
    for (int i = 1; i <= 40; ++i) {
      many.rows.push_back({"E" + std::to_string(i), i, "E" + std::to_string(isDeep ? i - 1 : 0)});
    }
    const Chain chain({many});
    Model model(chain.Head());
    Found all;
    for (int i = 0; i <= 40; ++i) all.push_back(Make(&model, i));
    const Found first(all.begin(), all.begin() + 31);
    Found last(all.begin() + 11, all.end());
    last.insert(last.begin(), all[0]);
    EXPECT_EQ(Take(model.GetSTEPaggrAll(0)), first) << isDeep;
    EXPECT_EQ(Take(model.GetSTEPlist(0, isDeep ? 1000 : 2)), first) << isDeep;
    model.PrepareHash();
    EXPECT_EQ(Take(model.GetSTEPaggrAll(0)), isDeep ? first : last) << isDeep;
  }
}

}  // namespace
