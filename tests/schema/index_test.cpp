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

// What is below a row hangs on the node that its name finds.
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
    for (int bucket = 0; bucket < kIndexBuckets; ++bucket) {
      nodes += count(bucket, nullptr);
      for (const APPindexNode* node = table[bucket]; node; node = node->next) {
        EXPECT_TRUE(!node->children || node == FindIndexNode(node->row->name, table)) << node->row->name;
      }
    }
    EXPECT_EQ(nodes, 2 * rows) << "round " << round;
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

// Allocation 1 is the table, 2 the first row's node by name, 3 its node by type, and so on. Names and types of this
// chain all have buckets of their own.
TEST(IndexWithoutMemory, ARowWithoutANodeIsMissingUnderThatKeyOnly) {
  const Chain chain({{"S", {{"A", 1}, {"B", 2, "A"}, {"C", 3, "B"}, {"D", 4, "A"}}}});
  {
    Model model(chain.Head());
    const FailingNew failing(1);
    model.PrepareHash();
    EXPECT_EQ(chain.Head()->index, nullptr) << "without the table the walk stays in force";
  }
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
