// Joining schemas into one chain, and the library of a schema.
#include "support/chain.h"

#include <gtest/gtest.h>

#include "steprt/library.h"

namespace {

using steprt_test::Chain;
using steprt_test::Model;
using steprt_test::Schema;

using Names = std::vector<std::string>;

Names NamesOf(const APPobject0* schema) {
  Names names;
  for (; schema; schema = schema->next) names.push_back(schema->name);
  return names;
}

// What follows the other head is cut off. A name that is there changes nothing.
TEST(AddModel, AppendsOnlyTheHeadOfTheOtherChainUnlessItsNameIsThere) {
  const struct {
    const char* name;
    Names own;
    Names added;
  } rows[] = {{"THREE", {"ONE", "TWO", "THREE"}, {"THREE"}},
              {"one", {"ONE", "TWO"}, {"one", "FOUR"}},
              {"Two", {"ONE", "TWO"}, {"Two", "FOUR"}}};
  for (const auto& row : rows) {
    const Chain own({{"ONE", {}}, {"TWO", {}}});
    const Chain added({{row.name, {}}, {"FOUR", {}}});
    Model model(own.Head());
    Model other(added.Head());
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(model.AddModel(&other), 1);
      EXPECT_EQ(NamesOf(own.Head()), row.own);
      EXPECT_EQ(NamesOf(added.Head()), row.added);
    }
  }
}

TEST(AddModel, MakesNoRingOfAChainThatLeadsBack) {
  const Chain chain({{"ONE", {}}, {"TWO", {}}, {"THREE", {}}});
  Model whole(chain.Head());
  Model tail(chain.At(1));
  for (Model* other : {&whole, &tail}) {
    EXPECT_EQ(tail.AddModel(other), 1);
    EXPECT_EQ(NamesOf(chain.At(1)), (Names{"TWO", "THREE", "ONE"}));
  }
}

TEST(AddModel, TakesANameThatIsMissingForTheEmptyOne) {
  const Chain own({{"ONE", {}}, {"TWO", {}}});
  const Chain added({Schema{"THREE", {}}});
  const Chain more({Schema{"FOUR", {}}});
  own.At(1)->name = nullptr;
  Model model(own.Head());
  Model other(added.Head());
  Model third(more.Head());
  EXPECT_EQ(model.AddModel(&other), 1);
  EXPECT_EQ(own.At(1)->next, added.Head());
  for (const char* name : {"", static_cast<const char*>(nullptr)}) {
    more.Head()->name = name;
    EXPECT_EQ(model.AddModel(&third), 1);
    EXPECT_EQ(added.Head()->next, nullptr);
  }
  STEPlib lib(static_cast<HINSTANCE>(nullptr));
  added.Head()->lib = &lib;
  EXPECT_EQ(model.GetLib("three"), &lib);
}

TEST(SchemaLibrary, IsFoundByTheNameOfItsSchemaAndSetForTheHeadOnly) {
  const Chain chain({{"ONE", {}}, {"Two", {}}, {"TWO", {}}, {"THREE", {}}});
  Model model(chain.Head());
  STEPlib first(static_cast<HINSTANCE>(nullptr));
  STEPlib second(static_cast<HINSTANCE>(nullptr));
  model.SetLib(&first);
  chain.At(1)->lib = &second;
  const std::pair<const char*, const STEPlib*> rows[] = {{"ONE", &first},    {"one", &first},   {"TWO", &second},
                                                         {"THREE", nullptr}, {"FOUR", nullptr}, {"", nullptr},
                                                         {nullptr, nullptr}};
  for (const auto& [name, lib] : rows) EXPECT_EQ(model.GetLib(name), lib) << (name ? name : "null");
  model.SetLib(nullptr);
  EXPECT_EQ(model.GetLib("ONE"), nullptr);
  EXPECT_EQ(chain.At(1)->lib, &second);
}

TEST(AddModel, NeedsTwoSchemas) {
  const Chain chain({{"ONE", {{"A", 1}}}});
  Model model(chain.Head());
  Model bare(nullptr);
  bare.RemoveHash();
  EXPECT_EQ(bare.AddModel(&model), 0);
  EXPECT_EQ(model.AddModel(&bare), 0);
  EXPECT_EQ(model.AddModel(nullptr), 0);
  EXPECT_EQ(bare.schema, nullptr);
  EXPECT_EQ(chain.Head()->next, nullptr);
}

}  // namespace
