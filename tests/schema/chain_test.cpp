// Joining schemas into one chain, and the library of a schema.
#include "support/chain.h"

#include <gtest/gtest.h>

#include "steprt/library.h"

namespace {

using steprt_test::Chain;
using steprt_test::Model;
using steprt_test::Schema;

std::vector<std::string> NamesOf(const APPobject0* schema) {
  std::vector<std::string> names;
  for (; schema; schema = schema->next) names.push_back(schema->name);
  return names;
}

using Names = std::vector<std::string>;

TEST(AddModel, LinksTheOtherHeadAloneBehindTheChain) {
  const Chain own({{"ONE", {}}, {"TWO", {}}});
  const Chain added({{"THREE", {}}, {"FOUR", {}}});
  Model model(own.Head());
  Model other(added.Head());
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(model.AddModel(&other), 1);
    EXPECT_EQ(NamesOf(own.Head()), (Names{"ONE", "TWO", "THREE"}));
    EXPECT_EQ(NamesOf(added.Head()), Names{"THREE"});
    EXPECT_EQ(other.schema, added.Head());
  }
}

TEST(AddModel, ChangesNothingForANameThatIsThere) {
  for (const char* name : {"one", "Two", "THREE"}) {
    const Chain own({{"ONE", {}}, {"TWO", {}}, {"three", {}}});
    const Chain added({{name, {}}, {"FOUR", {}}});
    Model model(own.Head());
    Model other(added.Head());
    EXPECT_EQ(model.AddModel(&other), 1) << name;
    EXPECT_EQ(NamesOf(own.Head()), (Names{"ONE", "TWO", "three"})) << name;
    EXPECT_EQ(NamesOf(added.Head()), (Names{name, "FOUR"})) << name;
  }
}

// What stands behind the other head is cut off, this model's own chain included.
TEST(AddModel, MakesNoRingOfAChainThatLeadsBack) {
  const Chain chain({{"ONE", {}}, {"TWO", {}}, {"THREE", {}}});
  Model whole(chain.Head());
  Model tail(chain.At(1));
  for (Model* other : {&whole, &tail}) {
    EXPECT_EQ(tail.AddModel(other), 1);
    EXPECT_EQ(NamesOf(chain.At(1)), (Names{"TWO", "THREE", "ONE"}));
    EXPECT_EQ(NamesOf(chain.Head()), Names{"ONE"});
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

TEST(ModelWithoutASchema, HasNoLibraryAndJoinsNone) {
  const Chain chain({{"ONE", {{"A", 1}}}});
  Model model(chain.Head());
  EXPECT_EQ(model.schema, chain.Head());
  EXPECT_EQ(chain.Head()->index, nullptr);
  EXPECT_FALSE(model.shared);
  Model bare(nullptr);
  STEPlib lib(static_cast<HINSTANCE>(nullptr));
  bare.SetLib(&lib);
  bare.PrepareHash();
  bare.RemoveHash();
  EXPECT_EQ(bare.GetLib("ONE"), nullptr);
  EXPECT_EQ(bare.AddModel(&model), 0);
  EXPECT_EQ(model.AddModel(&bare), 0);
  EXPECT_EQ(model.AddModel(nullptr), 0);
  EXPECT_EQ(bare.schema, nullptr);
  EXPECT_EQ(chain.Head()->next, nullptr);
}

}  // namespace
