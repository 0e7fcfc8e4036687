// ExtractTypes and what it stands on: the order of subtypes on the two paths, depth, capacity, and chains whose
// supertypes form rings.
#include "schema/expand.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "schema/generated_chain.h"
#include "support/chain.h"
#include "support/failing_new.h"

namespace {

using steprt_test::Chain;
using steprt_test::FailingNew;
using steprt_test::GenerateChain;
using steprt_test::Model;
using steprt_test::Row;
using steprt_test::Schema;
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

struct Case {
  const char* what;
  int type;
  int capacity;
  int depth;
  Types linear;
  Types indexed;
};

void ExpectTypes(const Chain& chain, const std::vector<Case>& cases) {
  Model model(chain.Head());
  for (const Case& each : cases) {
    model.RemoveHash();
    EXPECT_EQ(Extract(chain.Head(), each.type, each.capacity, each.depth), each.linear) << each.what << ", linear";
    model.PrepareHash();
    EXPECT_EQ(Extract(chain.Head(), each.type, each.capacity, each.depth), each.indexed) << each.what << ", indexed";
  }
}

TEST(ExtractTypes, SubtypesComeDepthFirstInRowOrderOrItsReverse) {
  const Chain chain({{"FIRST", {{"T", 10}, {"A", 11, "T"}, {"LONE", 15, "NOWHERE"}}},
                     {"SECOND", {{"B", 12, "T"}, {"D", 13, "A"}, {"E", 14, "D"}}}});
  ExpectTypes(chain, {
                         {"depth 0: the type alone", 10, 9, 0, {10}, {10}},
                         {"below 0 too", 10, 9, INT_MIN, {10}, {10}},
                         {"depth 1: with the direct ones", 10, 9, 1, {10, 11, 12}, {10, 12, 11}},
                         {"depth 2: with theirs", 10, 9, 2, {10, 11, 13, 12}, {10, 12, 11, 13}},
                         {"depth 3", 10, 9, 3, {10, 11, 13, 14, 12}, {10, 12, 11, 13, 14}},
                         {"more depth than levels", 10, 9, INT_MAX, {10, 11, 13, 14, 12}, {10, 12, 11, 13, 14}},
                         {"exactly full", 10, 5, 3, {10, 11, 13, 14, 12}, {10, 12, 11, 13, 14}},
                         {"full in a deeper level", 10, 3, 3, {10, 11, 13}, {10, 12, 11}},
                         {"capacity 1", 10, 1, 3, {10}, {10}},
                         {"capacity 0", 10, 0, 3, {}, {}},
                         {"capacity below 0", 10, -5, 3, {}, {}},
                         {"a leaf", 12, 9, 3, {12}, {12}},
                         {"a supertype without a row", 15, 9, 3, {15}, {15}},
                         {"a type without a row", 99, 9, 3, {}, {}},
                         {"the type of no instance yet", -1, 9, 3, {}, {}},
                     });
}

TEST(ExtractTypes, WithoutASchemaThereAreNone) { EXPECT_EQ(Extract(nullptr, 1, 5, 5), Types{}); }

TEST(ExtractTypes, FromALaterDescriptorTheChainBehindItCounts) {
  const Chain chain({{"FIRST", {{"T", 1}, {"A", 2, "T"}}}, {"SECOND", {{"B", 3}, {"C", 4, "B"}, {"D", 5, "A"}}}});
  Model model(chain.Head());
  model.PrepareHash();
  EXPECT_EQ(Extract(chain.At(1), 3, 9, 9), (Types{3, 4}));
  EXPECT_EQ(Extract(chain.At(1), 1, 9, 9), Types{});
}

TEST(ExtractTypes, ASupertypeInAnotherCaseLinksOnTheLinearPathAlone) {
  const Chain chain({{"S", {{"WALL", 1}, {"CURTAIN", 2, "Wall"}, {"PARTY", 3, "WALL"}}}});
  ExpectTypes(chain, {{"wall", 1, 9, 1, {1, 2, 3}, {1, 3}}});
}

// Letters whose weight is 4 or more keep their bucket in either case, and there the comparison folds.
TEST(ExtractTypes, ASupertypeInAnotherCaseLinksWhereItHashesAlike) {
  const Chain chain({{"S", {{"12W", 1}, {"CURTAIN", 2, "12w"}}}});
  ExpectTypes(chain, {{"12W", 1, 9, 1, {1, 2}, {1, 2}}});
}

TEST(ExtractTypes, RowsOfOneNameEachStandBelowTheirSupertype) {
  const Chain chain({{"S",
                      {{"P", 1},
                       {"Q", 2},
                       {"TWIN", 3, "P"},
                       {"BESIDE", 4, "P"},
                       {"TWIN", 5, "P"},
                       {"TWIN", 6, "Q"},
                       {"LEAF", 7, "TWIN"}}}});
  ExpectTypes(chain, {
                         {"two under P", 1, 20, 1, {1, 3, 4, 5}, {1, 5, 4, 3}},
                         {"with what is below the name", 1, 20, 2, {1, 3, 7, 4, 5, 7}, {1, 5, 7, 4, 3, 7}},
                         {"the third under Q", 2, 20, 9, {2, 6, 7}, {2, 6, 7}},
                         {"a twin", 3, 20, 9, {3, 7}, {3, 7}},
                     });
}

TEST(ExtractTypes, OfRowsOfOneTypeTheLinearPathTakesTheFirstAndTheIndexedTheLast) {
  const Chain chain({{"S", {{"A", 1}, {"B", 1}, {"UNDERA", 2, "A"}, {"UNDERB", 3, "B"}}}});
  ExpectTypes(chain, {{"type 1", 1, 9, 9, {1, 2}, {1, 3}}});
}

TEST(ExtractTypes, RingsOfSupertypesRepeatUntilDepthOrCapacityEndsThem) {
  const Chain chain({{"S",
                      {{"SELF", 1, "SELF"},
                       {"UNDER", 2, "SELF"},
                       {"A", 3, "C"},
                       {"B", 4, "A"},
                       {"C", 5, "B"},
                       {"TWIN", 6, "TWIN"},
                       {"TWIN", 7, "TWIN"}}}});
  ExpectTypes(chain, {
                         {"its own supertype, depth 2", 1, 20, 2, {1, 1, 1, 2, 2}, {1, 2, 1, 2, 1}},
                         {"its own supertype, capacity 5", 1, 5, INT_MAX, {1, 1, 1, 1, 1}, {1, 2, 1, 2, 1}},
                         {"ring of three, depth 4", 3, 20, 4, {3, 4, 5, 3, 4}, {3, 4, 5, 3, 4}},
                         {"ring of three, capacity 3", 3, 3, INT_MAX, {3, 4, 5}, {3, 4, 5}},
                         {"twins below themselves", 6, 4, INT_MAX, {6, 6, 6, 6}, {6, 7, 7, 7}},
                     });
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

// Each level of a tree that is deeper than the room for levels takes memory.
TEST(ExtractTypes, LevelsThatFindNoMemoryAreDropped) {
  Schema deep{"S", {{"E0", 0}}};
  for (int i = 1; i <= 100; ++i) deep.rows.push_back({"E" + std::to_string(i), i, "E" + std::to_string(i - 1)});
  const Chain chain({deep});
  Model model(chain.Head());
  Types all;
  for (int i = 0; i <= 100; ++i) all.push_back(i);
  for (const char* path : {"linear", "indexed"}) {
    EXPECT_EQ(Extract(chain.Head(), 0, 200, 100), all) << path;
    {
      const FailingNew noMemory(1, FailingNew::kAndAllBehind);
      EXPECT_EQ(Extract(chain.Head(), 0, 200, 100), Types(all.begin(), all.begin() + 33)) << path;
      EXPECT_EQ(Extract(chain.Head(), 0, 200, 31), Types(all.begin(), all.begin() + 32)) << path;
    }
    EXPECT_EQ(Extract(chain.Head(), 0, 200, 100), all) << path;
    model.PrepareHash();
  }
}

// The rule of the linear path, written down as it is told, with the order of siblings as the one difference.
int Expand(const std::vector<Row>& rows, const std::string& name, bool reverse, Types& out, int left, int depth) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[reverse ? rows.size() - 1 - i : i];
    if (row.super != name || left < 1) continue;
    out.push_back(row.type);
    --left;
    if (depth - 1 > 0) left = Expand(rows, row.name, reverse, out, left, depth - 1);
  }
  return left;
}

TEST(ExtractTypes, BothPathsGiveTheSameTreeOnGeneratedChains) {
  std::mt19937 random(20240611);
  for (int round = 0; round < 300; ++round) {
    const std::vector<Schema> schemas = GenerateChain(random);
    std::vector<Row> rows;
    for (const Schema& each : schemas) rows.insert(rows.end(), each.rows.begin(), each.rows.end());
    const Chain chain(schemas);
    Model model(chain.Head());
    for (const bool indexed : {false, true}) {
      if (indexed) model.PrepareHash();
      for (const Row& row : rows) {
        const int capacity = static_cast<int>(random() % 40);
        const int depth = static_cast<int>(random() % 34) - 1;
        Types expected;
        if (capacity > 0) expected.push_back(row.type);
        if (capacity > 0 && depth > 0) Expand(rows, row.name, indexed, expected, capacity - 1, depth);
        ASSERT_EQ(Extract(chain.Head(), row.type, capacity, depth), expected)
            << "round " << round << ", type " << row.type << ", capacity " << capacity << ", depth " << depth
            << (indexed ? ", indexed" : ", linear");
      }
    }
  }
}

TEST(ExpandSubtypes, GivesTheCapacityThatIsLeft) {
  const Chain chain({{"S", {{"T", 1}, {"A", 2, "T"}, {"B", 3, "T"}, {"C", 4, "A"}}}});
  Model model(chain.Head());
  struct {
    const char* name;
    int capacity;
    int depth;
    int left;
  } const cases[] = {{"T", 5, 1, 3}, {"T", 5, 2, 2}, {"T", 2, 2, 0},   {"T", 0, 2, 0},
                     {"T", 5, 0, 3}, {"C", 5, 2, 5}, {"NONE", 5, 2, 5}};
  for (const char* path : {"linear", "indexed"}) {
    for (const auto& each : cases) {
      int out[5];
      EXPECT_EQ(steprt::ExpandSubtypes(chain.Head(), each.name, out, each.capacity, each.depth), each.left)
          << each.name << ", capacity " << each.capacity << ", depth " << each.depth << ", " << path;
    }
    model.PrepareHash();
  }
}

}  // namespace
