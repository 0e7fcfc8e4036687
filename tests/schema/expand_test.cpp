// ExtractTypes and what it stands on: the order of subtypes on the two paths, depth, capacity, and chains whose
// supertypes form rings.
#include "schema/expand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>

#include "schema/generated_chain.h"
#include "support/chain.h"

namespace {

using namespace steprt_test;
using Types = std::vector<int>;

constexpr int kUntouched = -77;

// The types stored; a result that does not tell their number, or a place behind them that was written to, shows.
Types Extract(APPobject0* schema, int type, int capacity, int depth) {
  Types out(static_cast<std::size_t>(std::max(capacity, 0)) + 1, kUntouched);
  const int count = ExtractTypes(schema, type, out.data(), capacity, depth);
  for (std::size_t i = static_cast<std::size_t>(count); i < out.size(); ++i) EXPECT_EQ(out[i], kUntouched) << i;
  out.resize(static_cast<std::size_t>(count));
  return out;
}

// Of rows of one type the linear path takes the first and the indexed the last. A supertype in another case links on
// the linear path and where it hashes alike: letters whose weight is 4 or more keep their bucket in either case.
TEST(ExtractTypes, StoresATypeAndItsSubtypesInRowOrderOrItsReverse) {
  const Chain chain(
      {{"FIRST", {{"T", 10}, {"A", 11, "T"}, {"LONE", 15, "NOWHERE"}}},
       {"SECOND", {{"B", 12, "T"}, {"D", 13, "A"}, {"E", 14, "D"}}},
       {"CASES", {{"WALL", 1}, {"CURTAIN", 2, "Wall"}, {"PARTY", 3, "WALL"}, {"12W", 4}, {"U", 5, "12w"}}},
       {"TWINS", {{"X", 6}, {"Y", 6}, {"UNDERX", 7, "X"}, {"UNDERY", 8, "Y"}}}});
  const struct {
    int type;
    int capacity;
    int depth;
    Types linear;
    Types indexed;
  } rows[] = {{10, 9, INT_MAX, {10, 11, 13, 14, 12}, {10, 12, 11, 13, 14}},
              {10, 9, 3, {10, 11, 13, 14, 12}, {10, 12, 11, 13, 14}},
              {10, 9, 2, {10, 11, 13, 12}, {10, 12, 11, 13}},
              {10, 9, 1, {10, 11, 12}, {10, 12, 11}},
              {10, 9, 0, {10}, {10}},
              {10, 9, INT_MIN, {10}, {10}},
              {10, 4, 9, {10, 11, 13, 14}, {10, 12, 11, 13}},
              {10, 2, 9, {10, 11}, {10, 12}},
              {10, 1, 9, {10}, {10}},
              {10, 0, 3, {}, {}},
              {10, -5, 3, {}, {}},
              {15, 9, 3, {15}, {15}},
              {99, 9, 3, {}, {}},
              {-1, 9, 3, {}, {}},
              {1, 9, 1, {1, 2, 3}, {1, 3}},
              {4, 9, 1, {4, 5}, {4, 5}},
              {6, 9, 9, {6, 7}, {6, 8}}};
  Model model(chain.Head());
  for (const bool indexed : {false, true}) {
    if (indexed) model.PrepareHash();
    for (const auto& row : rows) {
      const Types& expected = indexed ? row.indexed : row.linear;
      EXPECT_EQ(Extract(chain.Head(), row.type, row.capacity, row.depth), expected) << row.type << indexed;
    }
  }
  EXPECT_EQ(Extract(chain.At(1), 13, 9, 9), (Types{13, 14})) << "from a later descriptor what is behind it counts";
  EXPECT_EQ(Extract(chain.At(1), 10, 9, 9), Types{});
  EXPECT_EQ(Extract(nullptr, 1, 5, 5), Types{});
}

TEST(ExtractTypes, ARingAsDeepAsALargeCapacityEnds) {
  constexpr int kLarge = 1000000;
  const Chain chain({{"S", {{"SELF", 1, "SELF"}, {"A", 2, "B"}, {"B", 3, "A"}}}});
  Model model(chain.Head());
  for (const char* path : {"linear", "indexed"}) {
    EXPECT_EQ(Extract(chain.Head(), 1, kLarge, INT_MAX), Types(kLarge, 1)) << path;
    const Types ring = Extract(chain.Head(), 2, kLarge, INT_MAX);
    ASSERT_EQ(ring.size(), static_cast<std::size_t>(kLarge)) << path;
    EXPECT_EQ(ring.back(), 3) << path;
    model.PrepareHash();
  }
}

// The two lookups differ only in the order of siblings: a walk along the chain with its rows reversed returns what the
// index of the chain returns.
TEST(ExtractTypes, TheIndexReturnsWhatTheWalkReturnsAlongTheReversedChain) {
  std::mt19937 random(20240611);
  for (int round = 0; round < 300; ++round) {
    std::vector<Schema> schemas = GenerateChain(random);
    const Chain chain(schemas);
    std::reverse(schemas.begin(), schemas.end());
    for (Schema& each : schemas) std::reverse(each.rows.begin(), each.rows.end());
    const Chain reversed(schemas);
    Model model(chain.Head());
    model.PrepareHash();
    for (const Schema& schema : schemas) {
      for (const Row& row : schema.rows) {
        const int capacity = static_cast<int>(random() % 40);
        const int depth = static_cast<int>(random() % 34) - 1;
        ASSERT_EQ(Extract(chain.Head(), row.type, capacity, depth), Extract(reversed.Head(), row.type, capacity, depth))
            << "round " << round << ", type " << row.type << ", capacity " << capacity << ", depth " << depth;
      }
    }
  }
}

}  // namespace
