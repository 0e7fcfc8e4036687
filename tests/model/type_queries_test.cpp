// Instances by type, out of a model and out of an aggregate.
#include <gtest/gtest.h>

#include "steprt/aggregate.h"
#include "steprt/instance.h"
#include "support/chain.h"

namespace {

using namespace steprt_test;

// Instances are told apart by their ids.
using Ids = std::vector<std::string>;

STEPheader* Make(STEPmodel& model, int type, const char* id) {
  auto* object = new STEPheader(&model);
  object->Type(type);
  object->Id(id);
  return object;
}

Ids Take(STEPlist* head) {
  Ids ids;
  for (const STEPlist* node = head; node; node = node->next) ids.push_back(node->value.object->Id());
  DeleteSTEPlist(&head);
  return ids;
}

Ids Take(STEPaggr* aggr) {
  if (!aggr) return {"no aggregate"};
  Ids ids = Take(aggr->head);
  delete aggr;
  return ids;
}

// TOP 1 > MID 2 > LOW 3 > BOTTOM 4, and SIDE 5 below TOP; type 9 has no row.
class TypeQueries : public testing::Test {
 protected:
  TypeQueries() {
    const std::pair<int, const char*> objects[] = {{4, "bottom"}, {1, "top"},  {9, "rowless"}, {3, "low"},
                                                   {2, "mid"},    {5, "side"}, {1, "top2"}};
    for (const auto& [type, id] : objects) Make(model, type, id);
  }

  const Chain chain{
      {{"S", {{"TOP", 1}, {"MID", 2, "TOP"}, {"LOW", 3, "MID"}}}, {"T", {{"BOTTOM", 4, "LOW"}, {"SIDE", 5, "TOP"}}}}};
  Model model{chain.Head()};
  const Ids all = {"bottom", "top", "low", "mid", "side", "top2"};
};

struct Case {
  const char* what;
  int type;
  int depth;
  Ids ids;
};

TEST_F(TypeQueries, OverTheModelGiveInstancesInTheOrderOfItsList) {
  const Case cases[] = {{"depth 0: the type alone", 1, 0, {"top", "top2"}},
                        {"depth 1 too", 1, 1, {"top", "top2"}},
                        {"below 0 too", 1, -4, {"top", "top2"}},
                        {"depth 2: two levels", 1, 2, {"top", "low", "mid", "side", "top2"}},
                        {"depth 3: three", 1, 3, all},
                        {"in the middle", 2, 2, {"bottom", "low", "mid"}},
                        {"a leaf", 5, 9, {"side"}},
                        {"a type without a row, alone", 9, 1, {"rowless"}},
                        {"a type without a row, by the schema", 9, 2, {}},
                        {"a type of no instance", 7, 0, {}},
                        {"the type of no class", -1, 0, {}}};
  for (const char* path : {"linear", "indexed"}) {
    for (const Case& each : cases) {
      EXPECT_EQ(Take(model.GetSTEPlist(each.type, each.depth)), each.ids) << each.what << ", " << path;
      EXPECT_EQ(Take(model.GetSTEPaggr(each.type, each.depth)), each.ids) << each.what << ", " << path;
    }
    EXPECT_EQ(Take(model.GetSTEPaggrAll(1)), all) << path;
    EXPECT_EQ(Take(model.GetSTEPaggrAll(9)), Ids{}) << path;
    model.PrepareHash();
  }
}

TEST_F(TypeQueries, OverAnAggregateGiveItsMembersInItsOrder) {
  Model elsewhere(nullptr);
  STEPaggr source;
  STEPheader* mid = model.FindFirst(2);
  for (STEPheader* member : {model.FindFirst(5), mid, static_cast<STEPheader*>(nullptr), model.FindFirst(1),
                             Make(elsewhere, 4, "stranger"), mid, model.FindFirst(9)}) {
    source.Append(member);
  }
  const Case cases[] = {{"the type alone, each time that it stands there", 2, 1, {"mid", "mid"}},
                        {"two levels", 1, 2, {"side", "mid", "top", "mid"}},
                        {"three levels", 1, 3, {"side", "mid", "top", "stranger", "mid"}},
                        {"without a row, alone", 9, 0, {"rowless"}},
                        {"without a row, by the schema", 9, 2, {}}};
  for (const char* path : {"linear", "indexed"}) {
    for (const Case& each : cases) {
      EXPECT_EQ(Take(model.GetSTEPaggr(&source, each.type, each.depth)), each.ids) << each.what << ", " << path;
    }
    EXPECT_EQ(Take(model.GetSTEPaggrAll(&source, 1)), (Ids{"side", "mid", "top", "stranger", "mid"})) << path;
    model.PrepareHash();
  }
  EXPECT_EQ(source.GetMemberCount(), 7);

  STEPaggr* result = model.GetSTEPaggr(&source, 2, 1);
  DeleteSTEPlist(&source.head);
  EXPECT_EQ(Take(result), (Ids{"mid", "mid"}));
}

TEST_F(TypeQueries, WithoutASourceOrASchemaFindNothing) {
  Model empty(chain.Head());
  STEPaggr none;
  EXPECT_EQ(empty.GetSTEPlist(1, 5), nullptr);
  EXPECT_EQ(Take(empty.GetSTEPaggr(1, 5)), Ids{});
  EXPECT_EQ(Take(model.GetSTEPaggr(&none, 1, 5)), Ids{});
  EXPECT_EQ(Take(model.GetSTEPaggr(nullptr, 1, 5)), Ids{});
  EXPECT_EQ(Take(model.GetSTEPaggrAll(nullptr, 1)), Ids{});
  Model bare(nullptr);
  Make(bare, 1, "bare");
  EXPECT_EQ(Take(bare.GetSTEPlist(1, 1)), Ids{"bare"});
  EXPECT_EQ(Take(bare.GetSTEPlist(1, 2)), Ids{});
}

Ids IdsFrom(int first, int last, Ids ids = {}) {
  for (int i = first; i <= last; ++i) ids.push_back(std::to_string(i));
  return ids;
}

// Type 0 and 40 others, one instance of each. Side by side 31 types count, in row order or from the last row on; one
// below the other, 31 types are used up before 31 levels are.
TEST(TypeQueriesOfManyTypes, Count31TypesAndDropTheOthersSilently) {
  for (const bool isDeep : {false, true}) {
    Schema many{"S", {{"E0", 0}}};
    for (int i = 1; i <= 40; ++i) {
      many.rows.push_back({"E" + std::to_string(i), i, "E" + std::to_string(isDeep ? i - 1 : 0)});
    }
    const Chain chain({many});
    Model model(chain.Head());
    STEPaggr source;
    for (int i = 0; i <= 40; ++i) source.Append(Make(model, i, std::to_string(i).c_str()));
    for (const Ids& expected : {IdsFrom(0, 30), isDeep ? IdsFrom(0, 30) : IdsFrom(11, 40, {"0"})}) {
      EXPECT_EQ(Take(model.GetSTEPaggrAll(0)), expected) << isDeep;
      EXPECT_EQ(Take(model.GetSTEPaggrAll(&source, 0)), expected) << isDeep;
      EXPECT_EQ(Take(model.GetSTEPlist(0, isDeep ? 1000 : 2)), expected) << isDeep;
      model.PrepareHash();
    }
    DeleteSTEPlist(&source.head);
  }
}

}  // namespace
