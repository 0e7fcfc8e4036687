// What a transfer remembers of lookups is the answer of the path in force, at every moment.
#include "schema/lookup_cache.h"

#include <gtest/gtest.h>

#include <cctype>

#include "schema/generated_chain.h"
#include "schema/lookup.h"
#include "support/chain.h"
#include "support/failing_new.h"

namespace {

using steprt::LookupCache;
using namespace steprt_test;

std::string InSomeCase(std::string name, std::mt19937& random) {
  for (char& c : name) {
    if (random() % 4 == 0) c = static_cast<char>(std::tolower(c));
  }
  return name;
}

class Questions {
 public:
  Questions(const std::vector<Schema>& schemas, std::mt19937& random) : random_(random) {
    for (const Schema& schema : schemas) {
      for (const Row& row : schema.rows) {
        names_.push_back(row.name);
        types_.push_back(row.type);
      }
    }
    names_.insert(names_.end(), {"NOBODY", ""});
    types_.insert(types_.end(), {-1, 1, 100000});
  }

  void Ask(LookupCache& cache, APPobject0* schema) {
    const std::string name = InSomeCase(Any(names_), random_);
    const int type = Any(types_);
    const int other = Any(types_);
    ASSERT_EQ(cache.FindEntityByName(name.c_str()), steprt::FindEntityByName(name.c_str(), schema)) << name;
    ASSERT_EQ(cache.FindEntityByType(type), steprt::FindEntityByType(type, schema)) << type;
    ASSERT_EQ(cache.IsSubtype(type, other), steprt::IsSubtype(schema, type, other)) << type << " of " << other;
  }

 private:
  template <typename T>
  const T& Any(const std::vector<T>& list) {
    return list[random_() % list.size()];
  }

  std::mt19937& random_;
  std::vector<std::string> names_;
  std::vector<int> types_;
};

// Half of the indexes lack a node.
void ChangeSomething(Model& model, Model& added, std::mt19937& random) {
  const auto change = random() % 5;
  const FailingNew failing(change == 3 ? static_cast<long>(1 + random() % 30) : 1000000);
  if (change == 0 || change == 3) model.PrepareHash();
  if (change == 1) model.RemoveHash();
  if (change == 2) model.AddModel(&added);
}

TEST(LookupCache, AgreesWithThePathInForceWhateverHappensBetweenTwoQuestions) {
  std::mt19937 random(4711);
  for (int round = 0; round < 300; ++round) {
    std::vector<Schema> schemas = GenerateChain(random);
    std::vector<Schema> more = GenerateChain(random);
    more[0].name = "MORE";
    const Chain chain(schemas);
    const Chain addition(more);
    Model model(chain.Head());
    Model added(addition.Head());
    schemas.insert(schemas.end(), more.begin(), more.end());
    Questions questions(schemas, random);
    LookupCache cache(chain.Head());
    for (int step = 0; step < 60; ++step) {
      if (random() % 3 == 0) ChangeSomething(model, added, random);
      const long fails = random() % 6 == 0 ? static_cast<long>(1 + random() % 3) : 1000000;
      const FailingNew failing(fails, FailingNew::kAndAllBehind);
      questions.Ask(cache, chain.Head());
      if (HasFatalFailure()) FAIL() << "round " << round << ", step " << step;
    }
  }
}

// An index of another chain that is built and dropped is two changes.
TEST(LookupCache, BuildsItsSnapshotOnceAndKeepsItWhenOtherChainsChange) {
  const Chain chain({{"S", {{"WALL", 1}}}, {"T", {{"DOOR", 2, "WALL"}}}});
  const Chain others({{"OTHERS", {{"DUCT", 3}}}});
  const Chain stranger({{"STRANGER", {{"PIPE", 4}}}});
  Model other(others.Head());
  Model another(stranger.Head());
  LookupCache cache(chain.Head());
  EXPECT_EQ(cache.FindEntityByType(2), &chain.At(1)->entities[0]);
  for (int i = 0; i < 100; ++i) {
    other.PrepareHash();
    other.RemoveHash();
    if (i == 50) other.AddModel(&another);
    const long made = CountAllocations();
    EXPECT_EQ(cache.FindEntityByName("door"), &chain.At(1)->entities[0]);
    EXPECT_EQ(cache.FindEntityByType(2), &chain.At(1)->entities[0]);
    EXPECT_TRUE(cache.IsSubtype(1, 2));
    EXPECT_EQ(CountAllocations(), made) << i;
  }
}

// The one that counts comes first; the others push it out of what is remembered.
TEST(LookupCache, SeesItsOwnChangeAmongManyOthers) {
  for (int others = 0; others < 12; ++others) {
    const Chain chain({{"S", {{"WALL", 1}}}, {"T", {{"DOOR", 2}}}});
    const Chain added({{"ADDED", {{"PIPE", 4}}}});
    const Chain elsewhere({{"ELSEWHERE", {{"DUCT", 3}}}});
    Model model(chain.Head());
    Model addition(added.Head());
    Model other(elsewhere.Head());
    LookupCache cache(chain.Head());
    EXPECT_EQ(cache.FindEntityByName("pipe"), nullptr);
    model.AddModel(&addition);
    for (int i = 0; i < others; ++i) i % 2 ? other.RemoveHash() : other.PrepareHash();
    EXPECT_EQ(cache.FindEntityByName("pipe"), &added.Head()->entities[0]) << others;
  }
}

TEST(LookupCache, SeesThatItsChainWasCutOff) {
  const Chain chain({{"S", {{"WALL", 1}}}, {"T", {{"DOOR", 2}}}});
  const Chain taker({{"TAKER", {{"DUCT", 3}}}});
  Model model(chain.Head());
  Model other(taker.Head());
  LookupCache cache(chain.Head());
  EXPECT_EQ(cache.FindEntityByName("door"), &chain.At(1)->entities[0]);
  other.AddModel(&model);
  EXPECT_EQ(cache.FindEntityByName("door"), nullptr);
}

TEST(LookupCache, AnswersByWalksWhenMemoryRunsOutForTheSnapshotAndTriesAgainAfterAChange) {
  const Chain chain({{"S", {{"WALL", 1}, {"DOOR", 2, "WALL"}}}});
  Model model(chain.Head());
  LookupCache cache(chain.Head());
  long tried = 0;
  {
    const FailingNew noMemory(1, FailingNew::kAndAllBehind);
    EXPECT_EQ(cache.FindEntityByName("wall"), &chain.Head()->entities[0]);
    tried = CountAllocations();
    EXPECT_TRUE(cache.IsSubtype(1, 2));
    EXPECT_EQ(cache.FindEntityByType(2), &chain.Head()->entities[1]);
    EXPECT_EQ(CountAllocations(), tried);
  }
  EXPECT_EQ(cache.FindEntityByType(2), &chain.Head()->entities[1]);
  EXPECT_EQ(CountAllocations(), tried);
  model.PrepareHash();
  EXPECT_EQ(cache.FindEntityByName("wall"), nullptr);
  EXPECT_GT(CountAllocations(), tried + 5);
}

}  // namespace
