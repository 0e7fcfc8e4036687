// Lookups without an index, and the subtype test on both paths.
#include "schema/lookup.h"

#include <gtest/gtest.h>

#include "steprt/instance.h"
#include "support/chain.h"

namespace {

using steprt::FindEntityByName;
using steprt::FindEntityByType;
using steprt::IsSubtype;
using steprt_test::Chain;
using steprt_test::Model;

// The row's place in the chain, so that rows of one name or type are told apart.
const APPentity* RowAt(const Chain& chain, int schema, int row) { return &chain.At(schema)->entities[row]; }

class Lookup : public testing::Test {
 protected:
  const Chain chain{{{"Plant", {{"ROOT", 1}, {"WALL", 2, "ROOT"}, {"SHARED", 3}, {"Pipe_1", 4}, {"TWICE", 5}}},
                     {"EMPTY", {}},
                     {"HVAC", {{"SHARED", 6}, {"DUCT", 7, "WALL"}, {"LATER", 5}, {"LOST", 8, "NOWHERE"}}}}};
  Model model{chain.Head()};
};

TEST_F(Lookup, NamesAreFoundInAnyCaseTheFirstAlongTheChain) {
  const std::pair<const char*, const APPentity*> rows[] = {{"WALL", RowAt(chain, 0, 1)},
                                                           {"wall", RowAt(chain, 0, 1)},
                                                           {"PIPE_1", RowAt(chain, 0, 3)},
                                                           {"shared", RowAt(chain, 0, 2)},
                                                           {"Duct", RowAt(chain, 2, 1)},
                                                           {"WAL", nullptr},
                                                           {"WALLS", nullptr},
                                                           {"", nullptr},
                                                           {"PIPE@1", nullptr}};
  for (const auto& [name, row] : rows) EXPECT_EQ(FindEntityByName(name, chain.Head()), row) << name;
  EXPECT_EQ(FindEntityByName("WALL", nullptr), nullptr);
  // Only letters fold: these pairs differ in the bit that tells the cases of a letter apart.
  const Chain odd({{"S", {{"A[", 1}, {"A@", 2}, {"\xc4", 3}}}});
  for (const char* name : {"A{", "A`", "\xe4"}) EXPECT_EQ(FindEntityByName(name, odd.Head()), nullptr) << name;
}

TEST_F(Lookup, TypesAreFoundTheFirstAlongTheChain) {
  const std::pair<int, const APPentity*> rows[] = {{1, RowAt(chain, 0, 0)},
                                                   {5, RowAt(chain, 0, 4)},
                                                   {7, RowAt(chain, 2, 1)},
                                                   {9, nullptr},
                                                   {0, nullptr},
                                                   {-1, nullptr}};
  for (const auto& [type, row] : rows) EXPECT_EQ(FindEntityByType(type, chain.Head()), row) << type;
  EXPECT_EQ(FindEntityByType(1, nullptr), nullptr);
}

TEST_F(Lookup, ALaterDescriptorSeesItselfAndWhatIsBehindIt) {
  EXPECT_EQ(FindEntityByName("SHARED", chain.At(1)), RowAt(chain, 2, 0));
  EXPECT_EQ(FindEntityByName("WALL", chain.At(1)), nullptr);
  EXPECT_EQ(FindEntityByType(5, chain.At(2)), RowAt(chain, 2, 2));
  EXPECT_EQ(FindEntityByType(1, chain.At(2)), nullptr);
}

TEST_F(Lookup, ASubtypeIsOneAlongAllItsSupertypes) {
  struct {
    const char* what;
    int expected;
    int actual;
    bool is;
  } const cases[] = {
      {"none is required", -1, 2, true},
      {"none is required of a type without a row", -1, 99, true},
      {"any negative number requires none", -7, 2, true},
      {"equal", 2, 2, true},
      {"equal without a row", 99, 99, true},
      {"no row", 1, 99, false},
      {"a supertype without a row", 1, 8, false},
  };
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
