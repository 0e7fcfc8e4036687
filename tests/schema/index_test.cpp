// The index: its hash, its nodes, its life, and where its answers are not those of the walk along the chain.
#include "schema/index.h"

#include <gtest/gtest.h>

#include "schema/generated_chain.h"
#include "schema/lookup.h"
#include "schema/rows.h"
#include "support/chain.h"
#include "support/failing_new.h"

namespace {

using namespace steprt;
using namespace steprt_test;

const APPentity* RowAt(const Chain& chain, int schema, int row) { return &chain.At(schema)->entities[row]; }

TEST(HashName, WeighsSevenCharactersAndStartsOver) {
  struct {
    const char* name;
    int hash;
  } const cases[] = {
      {"", 0},         {"ABC", 81},     {"abc", 49},      {"A", 65},   {"AA", 67},    {"AAAAAAA", 63},
      {"AAAAAAAA", 0}, {"AAAAAAAB", 1}, {"AAAAAAAAB", 4}, {"\x80", 0}, {"\xff", 127}, {"\xff\xff", 125},
  };
  for (const auto& each : cases) EXPECT_EQ(HashName(each.name), each.hash) << each.name;
}

TEST(Index, HoldsTwoNodesOfEachRowOneByNameAndOneByType) {
  std::mt19937 random(11);
  for (int round = 0; round < 50; ++round) {
    const Chain chain(GenerateChain(random));
    Model model(chain.Head());
    model.PrepareHash();
    APPindexNode** table = chain.Head()->index;
    const auto count = [&](int bucket, const APPentity* row) {
      int nodes = 0;
      for (const APPindexNode* node = table[bucket]; node; node = node->next) nodes += !row || node->row == row;
      return nodes;
    };
    int rows = 0;
    ForEachRow(chain.Head(), [&](APPentity& row) {
      ++rows;
      const int inOne = HashName(row.name) == (row.type & 127) ? 2 : 1;
      EXPECT_EQ(count(HashName(row.name), &row), inOne) << "round " << round << ", " << row.name << " " << row.type;
      EXPECT_EQ(count(row.type & 127, &row), inOne) << "round " << round << ", " << row.name << " " << row.type;
    });
    int nodes = 0;
    for (int bucket = 0; bucket < kIndexBuckets; ++bucket) nodes += count(bucket, nullptr);
    EXPECT_EQ(nodes, 2 * rows) << "round " << round;
  }
}

TEST(Index, TheTreeHangsOnTheNodesThatNamesFind) {
  ASSERT_EQ(HashName("KID"), 109);  // which is its type too, so both of its nodes lie in one bucket
  const Chain chain({{"S", {{"TOP", 1}, {"KID", 109, "TOP"}, {"GRANDKID", 2, "KID"}, {"BROTHER", 3, "TOP"}}}});
  Model model(chain.Head());
  model.PrepareHash();
  APPindexNode** table = chain.Head()->index;
  const APPindexNode* top = FindIndexNode("TOP", table);
  const APPindexNode* kid = FindIndexNode("KID", table);
  const APPindexNode* grandkid = FindIndexNode("GRANDKID", table);
  const APPindexNode* brother = FindIndexNode("BROTHER", table);
  EXPECT_EQ(top->children, brother);
  EXPECT_EQ(brother->sibling, kid);
  EXPECT_EQ(kid->sibling, nullptr);
  EXPECT_EQ(kid->children, grandkid);
  EXPECT_EQ(top->sibling, nullptr);
  EXPECT_EQ(grandkid->children, nullptr);
  for (int bucket = 0; bucket < kIndexBuckets; ++bucket) {
    for (const APPindexNode* node = table[bucket]; node; node = node->next) {
      if (node == FindIndexNode(node->row->name, table)) continue;
      EXPECT_EQ(node->children, nullptr) << "second node of " << node->row->name;
      EXPECT_EQ(node->sibling, nullptr) << "second node of " << node->row->name;
    }
  }
}

TEST(Index, IsBuiltOnceAndDroppedWithItsModel) {
  const Chain chain({{"S", {{"WALL", 1}, {"DOOR", 2}}}});
  {
    Model model(chain.Head());
    model.PrepareHash();
    APPindexNode** table = chain.Head()->index;
    ASSERT_NE(table, nullptr);
    const long made = CountAllocations();
    model.PrepareHash();
    {
      STEPmodel second(static_cast<STEPmodel*>(&model));
      second.PrepareHash();
    }
    EXPECT_EQ(chain.Head()->index, table);
    EXPECT_EQ(CountAllocations(), made);
    EXPECT_EQ(FindEntityByName("DOOR", chain.Head()), RowAt(chain, 0, 1));
  }
  EXPECT_EQ(chain.Head()->index, nullptr);
  EXPECT_EQ(FindEntityByName("door", chain.Head()), RowAt(chain, 0, 1));
}

// Where the answers of the two paths differ, a case a row. `nullptr` is a name or type that is not found.
TEST(Index, DiffersFromTheWalkInCaseAndForTwins) {
  // The type of ROOF falls into the bucket of "roof".
  const int roof = 128 + HashName("roof");
  const Chain chain(
      {{"S", {{"WALL", 1}, {"12W", 2}, {"ROOF", roof}, {"TWIN", 4}, {"SAME", 5}}}, {"T", {{"TWIN", 6}, {"ALIKE", 5}}}});
  Model model(chain.Head());
  struct {
    const char* what;
    const char* name;
    const APPentity* linear;
    const APPentity* indexed;
  } const names[] = {
      {"as it is spelled", "WALL", RowAt(chain, 0, 0), RowAt(chain, 0, 0)},
      {"in another case", "wall", RowAt(chain, 0, 0), nullptr},
      {"in another case that hashes alike", "12w", RowAt(chain, 0, 1), RowAt(chain, 0, 1)},
      {"in another case whose bucket holds the type's node", "roof", RowAt(chain, 0, 2), RowAt(chain, 0, 2)},
      {"and in a third case", "Roof", RowAt(chain, 0, 2), nullptr},
      {"twice", "TWIN", RowAt(chain, 0, 3), RowAt(chain, 1, 0)},
  };
  for (const auto& each : names) EXPECT_EQ(FindEntityByName(each.name, chain.Head()), each.linear) << each.what;
  EXPECT_EQ(FindEntityByType(5, chain.Head()), RowAt(chain, 0, 4));
  model.PrepareHash();
  for (const auto& each : names) EXPECT_EQ(FindEntityByName(each.name, chain.Head()), each.indexed) << each.what;
  EXPECT_EQ(FindEntityByType(5, chain.Head()), RowAt(chain, 1, 1));
}

TEST(Index, ANegativeTypeLooksInTheBucketOfItsLowBits) {
  const Chain chain({{"S", {{"A", 127}, {"B", 255}, {"C", 126}}}});
  Model model(chain.Head());
  model.PrepareHash();
  EXPECT_EQ(FindEntityByType(-1, chain.Head()), nullptr);
  EXPECT_EQ(FindEntityByType(-2, chain.Head()), nullptr);
  EXPECT_EQ(FindEntityByType(255, chain.Head()), RowAt(chain, 0, 1));
}

TEST(Index, DoesNotLearnOfSchemasThatJoinLater) {
  const Chain first({{"FIRST", {{"ROOT", 1}}}});
  const Chain second({{"SECOND", {{"WALL", 2, "ROOT"}}}});
  Model model(first.Head());
  Model other(second.Head());
  model.PrepareHash();
  ASSERT_EQ(model.AddModel(&other), 1);
  model.PrepareHash();
  for (const APPentity* found : {static_cast<const APPentity*>(nullptr), RowAt(second, 0, 0)}) {
    int types[9];
    EXPECT_EQ(FindEntityByName("WALL", first.Head()), found);
    EXPECT_EQ(FindEntityByType(2, first.Head()), found);
    EXPECT_EQ(ExtractTypes(first.Head(), 1, types, 9, 9), found ? 2 : 1);
    EXPECT_STREQ(model.EntityName(2), "WALL");
    EXPECT_EQ(FindEntityByName("WALL", second.Head()), RowAt(second, 0, 0));
    model.RemoveHash();
    EXPECT_EQ(FindEntityByName("WALL", first.Head()), RowAt(second, 0, 0));
    model.PrepareHash();
  }
}

TEST(Index, OfALaterDescriptorIsNotLookedAt) {
  const Chain chain({{"S", {{"WALL", 1}}}, {"T", {{"DOOR", 2}}}});
  Model head(chain.Head());
  Model later(chain.At(1));
  later.PrepareHash();
  EXPECT_EQ(FindEntityByName("door", chain.Head()), RowAt(chain, 1, 0));
  EXPECT_EQ(FindEntityByName("door", chain.At(1)), nullptr);
  later.RemoveHash();
  head.PrepareHash();
  EXPECT_EQ(FindEntityByName("door", chain.Head()), nullptr);
  EXPECT_EQ(FindEntityByName("door", chain.At(1)), RowAt(chain, 1, 0));
}

TEST(IndexWithoutMemory, TheTableLeavesTheWalkInForce) {
  const Chain chain({{"S", {{"WALL", 1}}}});
  Model model(chain.Head());
  {
    const FailingNew failing(1);
    model.PrepareHash();
  }
  EXPECT_EQ(chain.Head()->index, nullptr);
  EXPECT_EQ(FindEntityByName("wall", chain.Head()), RowAt(chain, 0, 0));
}

// Allocation 1 is the table, 2 the first row's node by name, 3 its node by type, and so on. Names and types of this
// chain all have buckets of their own.
TEST(IndexWithoutMemory, ARowWithoutANodeIsMissingUnderThatKeyOnly) {
  const Chain chain({{"S", {{"A", 1}, {"B", 2, "A"}, {"C", 3, "B"}, {"D", 4, "A"}}}});
  struct {
    int failing;
    std::vector<int> below;  // of type 1, to any depth
  } const cases[] = {{2, {1}},       {3, {}},        {4, {1, 4}},      {5, {1, 4, 2, 3}},
                     {6, {1, 4, 2}}, {8, {1, 2, 3}}, {9, {1, 4, 2, 3}}};
  for (const auto& each : cases) {
    Model model(chain.Head());
    {
      const FailingNew failing(each.failing);
      model.PrepareHash();
      ASSERT_TRUE(failing.HasFailed());
    }
    for (int i = 0; i < 4; ++i) {
      const APPentity* row = RowAt(chain, 0, i);
      const bool noName = each.failing == 2 + 2 * i;
      const bool noType = each.failing == 3 + 2 * i;
      EXPECT_EQ(FindEntityByName(row->name, chain.Head()), noName ? nullptr : row) << each.failing << row->name;
      EXPECT_EQ(FindEntityByType(row->type, chain.Head()), noType ? nullptr : row) << each.failing << row->name;
    }
    int types[9];
    const int count = ExtractTypes(chain.Head(), 1, types, 9, 9);
    EXPECT_EQ(std::vector<int>(types, types + count), each.below) << "allocation " << each.failing;
  }
}

}  // namespace
