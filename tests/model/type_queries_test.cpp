// Instances by type, out of a model and out of an aggregate.
#include <gtest/gtest.h>

#include "steprt/aggregate.h"
#include "steprt/instance.h"
#include "support/chain.h"
#include "support/failing_new.h"

namespace {

using steprt_test::Chain;
using steprt_test::CountAllocations;
using steprt_test::FailingNew;
using steprt_test::Model;
using steprt_test::Row;
using steprt_test::Schema;

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
    Make(model, 4, "bottom");
    Make(model, 1, "top");
    Make(model, 9, "rowless");
    Make(model, 3, "low");
    Make(model, 2, "mid");
    Make(model, 5, "side");
    Make(model, 1, "top2");
  }

  const Chain chain{
      {{"S", {{"TOP", 1}, {"MID", 2, "TOP"}, {"LOW", 3, "MID"}}}, {"T", {{"BOTTOM", 4, "LOW"}, {"SIDE", 5, "TOP"}}}}};
  Model model{chain.Head()};
};

struct Case {
  const char* what;
  int type;
  int depth;
  Ids ids;
};

const Case kCases[] = {
    {"depth 0: the type alone", 1, 0, {"top", "top2"}},
    {"depth 1 too", 1, 1, {"top", "top2"}},
    {"below 0 too", 1, -4, {"top", "top2"}},
    {"depth 2: two levels", 1, 2, {"top", "low", "mid", "side", "top2"}},
    {"depth 3: three", 1, 3, {"bottom", "top", "low", "mid", "side", "top2"}},
    {"in the middle", 2, 2, {"bottom", "low", "mid"}},
    {"a leaf", 5, 9, {"side"}},
    {"a type without a row, alone", 9, 1, {"rowless"}},
    {"a type without a row, by the schema", 9, 2, {}},
    {"a type of no instance", 7, 0, {}},
    {"the type of no class", -1, 0, {}},
};

TEST_F(TypeQueries, OverTheModelGiveInstancesInTheOrderOfItsList) {
  for (const char* path : {"linear", "indexed"}) {
    for (const Case& each : kCases) {
      EXPECT_EQ(Take(model.GetSTEPlist(each.type, each.depth)), each.ids) << each.what << ", " << path;
      EXPECT_EQ(Take(model.GetSTEPaggr(each.type, each.depth)), each.ids) << each.what << ", " << path;
    }
    EXPECT_EQ(Take(model.GetSTEPaggrAll(1)), (Ids{"bottom", "top", "low", "mid", "side", "top2"})) << path;
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
  const Case cases[] = {
      {"the type alone, each time that it stands there", 2, 1, {"mid", "mid"}},
      {"two levels", 1, 2, {"side", "mid", "top", "mid"}},
      {"three levels", 1, 3, {"side", "mid", "top", "stranger", "mid"}},
      {"without a row, alone", 9, 0, {"rowless"}},
      {"without a row, by the schema", 9, 2, {}},
  };
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

// TOP 0 and 40 direct subtypes, one instance of each: 31 types count, in row order or from the last row on.
TEST(TypeQueriesOfManyTypes, Count31TypesAndDropTheOthersSilently) {
  Schema many{"S", {{"TOP", 0}}};
  for (int i = 1; i <= 40; ++i) many.rows.push_back({"SUB" + std::to_string(i), i, "TOP"});
  const Chain chain({many});
  Model model(chain.Head());
  STEPaggr source;
  for (int i = 0; i <= 40; ++i) source.Append(Make(model, i, std::to_string(i).c_str()));
  Ids linear{"0"};
  for (int i = 1; i <= 30; ++i) linear.push_back(std::to_string(i));
  Ids indexed{"0"};
  for (int i = 11; i <= 40; ++i) indexed.push_back(std::to_string(i));
  EXPECT_EQ(Take(model.GetSTEPlist(0, 2)), linear);
  EXPECT_EQ(Take(model.GetSTEPaggrAll(&source, 0)), linear);
  model.PrepareHash();
  EXPECT_EQ(Take(model.GetSTEPlist(0, 2)), indexed);
  EXPECT_EQ(Take(model.GetSTEPaggrAll(&source, 0)), indexed);
  DeleteSTEPlist(&source.head);
}

// One type a level: 31 ids are used up before 31 levels are.
TEST(TypeQueriesOfManyTypes, AllReachesDownTo30Levels) {
  Schema deep{"S", {{"E0", 0}}};
  for (int i = 1; i <= 40; ++i) deep.rows.push_back({"E" + std::to_string(i), i, "E" + std::to_string(i - 1)});
  const Chain chain({deep});
  Model model(chain.Head());
  Ids expected;
  for (int i = 0; i <= 40; ++i) {
    Make(model, i, std::to_string(i).c_str());
    if (i <= 30) expected.push_back(std::to_string(i));
  }
  for (const char* path : {"linear", "indexed"}) {
    EXPECT_EQ(Take(model.GetSTEPaggrAll(0)), expected) << path;
    EXPECT_EQ(Take(model.GetSTEPlist(0, 1000)), expected) << path;
    model.PrepareHash();
  }
}

TEST_F(TypeQueries, WithoutMemoryEndEarlyOrGiveNothing) {
  STEPaggr source;
  for (STEPheader* each = model.Inst(); each; each = each->NextHead()) source.Append(each);
  const Ids all = {"bottom", "top", "low", "mid", "side", "top2"};
  const int count = static_cast<int>(all.size());
  for (int nth = 1; nth <= count + 2; ++nth) {
    const auto nodes = [&](int made) { return Ids(all.begin(), all.begin() + std::min(made, count)); };
    const Ids withAggr = nth == 1 ? Ids{"no aggregate"} : nodes(nth - 2);
    {
      const FailingNew failing(nth);
      EXPECT_EQ(Take(model.GetSTEPlist(1, 9)), nodes(nth - 1)) << nth;
    }
    {
      const FailingNew failing(nth);
      EXPECT_EQ(Take(model.GetSTEPaggr(1, 9)), withAggr) << nth;
    }
    {
      const FailingNew failing(nth);
      EXPECT_EQ(Take(model.GetSTEPaggr(&source, 1, 9)), withAggr) << nth;
    }
  }
  const long before = CountAllocations();
  {
    const FailingNew failing(1);
    EXPECT_EQ(model.GetSTEPaggr(1, 9), nullptr);
  }
  EXPECT_EQ(CountAllocations(), before + 1);  // no query runs for an aggregate that is not there
  DeleteSTEPlist(&source.head);
}

}  // namespace
