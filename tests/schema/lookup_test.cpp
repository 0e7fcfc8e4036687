// Lookups and the subtype test, on both paths.
#include "schema/lookup.h"

#include <gtest/gtest.h>

#include "schema/index.h"
#include "steprt/instance.h"
#include "support/chain.h"

namespace {

using steprt::FindEntityByName;
using steprt::FindEntityByType;
using steprt::IsSubtype;
using steprt_test::Chain;
using steprt_test::Model;

class Lookup : public testing::Test {
 protected:
  // The row's place in the chain, so that rows of one name or type are told apart.
  const APPentity* RowAt(int schema, int row) { return &chain.At(schema)->entities[row]; }

  const int roof = 128 + steprt::HashName("roof");
  const Chain chain{
      {{"Plant",
        {{"ROOT", 1}, {"WALL", 2, "ROOT"}, {"SHARED", 3}, {"Pipe_1", 4}, {"TWICE", 5}, {"12W", 10}, {"ROOF", roof}}},
       {"EMPTY", {}},
       {"HVAC", {{"SHARED", 6}, {"DUCT", 7, "WALL"}, {"LATER", 5}, {"LOST", 8, "NOWHERE"}}}}};
  Model model{chain.Head()};
};

// Where the answers of the two paths differ: the index finds the last of twins, and a name in another case only where
// that hashes alike, or where the bucket that it hashes to holds the row by its type. A name looks into the chain from
// the descriptor `from` on; no model of a later one has an index.
TEST_F(Lookup, ANameAndATypeAreFoundAlongTheChainOrByTheIndex) {
  const APPentity* const none = nullptr;
  const struct {
    const char* name;
    int from;
    const APPentity* linear;
    const APPentity* indexed;
  } names[] = {{"WALL", 0, RowAt(0, 1), RowAt(0, 1)},
               {"wall", 0, RowAt(0, 1), none},
               {"SHARED", 0, RowAt(0, 2), RowAt(2, 0)},
               {"PIPE_1", 0, RowAt(0, 3), none},
               {"12w", 0, RowAt(0, 5), RowAt(0, 5)},
               {"roof", 0, RowAt(0, 6), RowAt(0, 6)},
               {"Roof", 0, RowAt(0, 6), none},
               {"Duct", 0, RowAt(2, 1), none},
               {"WAL", 0, none, none},
               {"WALLS", 0, none, none},
               {"", 0, none, none},
               {"PIPE@1", 0, none, none},
               {"SHARED", 1, RowAt(2, 0), RowAt(2, 0)},
               {"WALL", 1, none, none}};
  const struct {
    int type;
    int from;
    const APPentity* linear;
    const APPentity* indexed;
  } types[] = {{1, 0, RowAt(0, 0), RowAt(0, 0)},
               {5, 0, RowAt(0, 4), RowAt(2, 2)},
               {7, 0, RowAt(2, 1), RowAt(2, 1)},
               {9, 0, none, none},
               {0, 0, none, none},
               {-1, 0, none, none},
               {5, 2, RowAt(2, 2), RowAt(2, 2)},
               {1, 2, none, none}};
  for (const bool indexed : {false, true}) {
    if (indexed) model.PrepareHash();
    for (const auto& row : names) {
      EXPECT_EQ(FindEntityByName(row.name, chain.At(row.from)), indexed ? row.indexed : row.linear) << row.name;
    }
    for (const auto& row : types) {
      EXPECT_EQ(FindEntityByType(row.type, chain.At(row.from)), indexed ? row.indexed : row.linear) << row.type;
    }
  }
  EXPECT_EQ(FindEntityByName("WALL", nullptr), nullptr);
  EXPECT_EQ(FindEntityByType(1, nullptr), nullptr);
}

TEST_F(Lookup, ASubtypeIsOneAlongAllItsSupertypes) {
  const struct {
    const char* what;
    int expected;
    int actual;
    bool is;
  } cases[] = {{"none is required of a type without a row", -1, 99, true},
               {"any negative number requires none", -7, 2, true},
               {"equal without a row", 99, 99, true},
               {"no row", 1, 99, false},
               {"a supertype without a row", 1, 8, false}};
  for (const char* path : {"linear", "indexed"}) {
    for (const auto& each : cases) {
      EXPECT_EQ(IsSubtype(chain.Head(), each.expected, each.actual), each.is) << each.what << ", " << path;
    }
    model.PrepareHash();
  }
  EXPECT_TRUE(IsSubtype(nullptr, 4, 4));
  EXPECT_FALSE(IsSubtype(nullptr, 4, 5));
}

// The instance's own answer goes by the index, and there the last row of a type is found.
TEST_F(Lookup, AModelNamesItsTypesWithoutTheIndexAndAnInstanceItsOwnThroughIt) {
  auto* object = new STEPheader(&model);
  object->Type(5);
  const std::pair<int, const char*> rows[] = {{2, "WALL"}, {5, "TWICE"}, {7, "DUCT"}, {99, "Unknown"}, {-1, "Unknown"}};
  for (const char* own : {"TWICE", "LATER"}) {
    for (const auto& [type, name] : rows) EXPECT_STREQ(model.EntityName(type), name) << type;
    EXPECT_STREQ(object->EntityName(), own);
    model.PrepareHash();
  }
  object->Type(99);
  EXPECT_STREQ(object->EntityName(), "");
}

TEST_F(Lookup, AModelIsOfItsFirstSchema) {
  const std::pair<const char*, bool> rows[] = {
      {"Plant", true}, {"PLANT", true}, {"HVAC", false}, {"PLAN", false}, {"", false}};
  for (const auto& [name, is] : rows) EXPECT_EQ(model.IsSchema(const_cast<char*>(name)), is) << name;
}

}  // namespace
