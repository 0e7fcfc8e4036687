// ExtractTypes: the order of subtypes on the two paths, depth, capacity, and chains whose supertypes form rings.
#include "schema/expand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "support/chain.h"

namespace {

using namespace steprt_test;
using Types = std::vector<int>;

constexpr int kUntouched = -77;

// The types stored. Fails if the result is not their number, or if a place after them was written to.
Types Extract(APPobject0* schema, int type, int capacity, int depth) {
  Types out(static_cast<std::size_t>(std::max(capacity, 0)) + 1, kUntouched);
  const int count = ExtractTypes(schema, type, out.data(), capacity, depth);
  for (std::size_t i = static_cast<std::size_t>(count); i < out.size(); ++i) EXPECT_EQ(out[i], kUntouched) << i;
  out.resize(static_cast<std::size_t>(count));
  return out;
}

// Siblings are in row order on the linear path and in its reverse on the indexed one. Of rows of one type the linear
// path takes the first and the indexed the last. A supertype in another case links on the linear path and where it
// hashes alike: letters whose weight is 4 or more keep their bucket in either case. Rows of one name have the subtypes
// of that name each, and both nodes of AAAAAAA are in one bucket.
TEST(ExtractTypes, StoresATypeAndItsSubtypesInRowOrderOrItsReverse) {
  const Chain chain(
      {{"FIRST", {{"T", 10}, {"A", 11, "T"}, {"LONE", 15, "NOWHERE"}}},
       {"SECOND", {{"B", 12, "T"}, {"D", 13, "A"}, {"E", 14, "D"}}},
       {"CASES", {{"WALL", 1}, {"CURTAIN", 2, "Wall"}, {"PARTY", 3, "WALL"}, {"12W", 4}, {"U", 5, "12w"}}},
       {"TWINS", {{"X", 6}, {"Y", 6}, {"UNDERX", 7, "X"}, {"UNDERY", 8, "Y"}}},
       {"NAMES", {{"M", 20}, {"N", 21, "M"}, {"N", 22, "M"}, {"O", 23, "N"}, {"M", 24}}},
       {"RING", {{"P", 30, "Q"}, {"Q", 31, "P"}, {"R", 32, "P"}}},
       {"BUCKET", {{"AAAAAAA", 63}, {"BELOW", 65, "AAAAAAA"}}}});
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
              {6, 9, 9, {6, 7}, {6, 8}},
              {20, 9, 9, {20, 21, 23, 22, 23}, {20, 22, 23, 21, 23}},
              {20, 3, 9, {20, 21, 23}, {20, 22, 23}},
              {20, 9, 1, {20, 21, 22}, {20, 22, 21}},
              {24, 9, 1, {24, 21, 22}, {24, 22, 21}},
              {30, 9, 3, {30, 31, 30, 31, 32, 32}, {30, 32, 31, 30, 32, 31}},
              {30, 5, 3, {30, 31, 30, 31, 32}, {30, 32, 31, 30, 32}},
              {31, 5, 99, {31, 30, 31, 30, 31}, {31, 30, 32, 31, 30}},
              {63, 9, 9, {63, 65}, {63, 65}}};
  Model model(chain.Head());
  for (const bool indexed : {false, true}) {
    if (indexed) model.PrepareHash();
    for (const auto& row : rows) {
      const Types& expected = indexed ? row.indexed : row.linear;
      EXPECT_EQ(Extract(chain.Head(), row.type, row.capacity, row.depth), expected) << row.type << indexed;
    }
  }
  EXPECT_EQ(Extract(chain.At(1), 13, 9, 9), (Types{13, 14}))
      << "from a later descriptor on, what comes after it counts";
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

// Sixty-nine levels need the heap. Each L has the next L below it and, in a later row, the next S.
TEST(ExtractTypes, TheLevelsAboveStayWhereTheyWereWhenTheStackOfLevelsGrows) {
  Schema schema{"S", {{"L0", 0}}};
  Types linear{0};
  Types indexed{0};
  for (int level = 1; level < 70; ++level) {
    const std::string above = "L" + std::to_string(level - 1);
    schema.rows.push_back({"L" + std::to_string(level), level, above});
    schema.rows.push_back({"S" + std::to_string(level), 1000 + level, above});
    linear.push_back(level);
    indexed.insert(indexed.end(), {1000 + level, level});
  }
  for (int level = 69; level > 0; --level) linear.push_back(1000 + level);
  const Chain chain({schema});
  Model model(chain.Head());
  EXPECT_EQ(Extract(chain.Head(), 0, 999, 69), linear);
  model.PrepareHash();
  EXPECT_EQ(Extract(chain.Head(), 0, 999, 69), indexed);
}

}  // namespace
