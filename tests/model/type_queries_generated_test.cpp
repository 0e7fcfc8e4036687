// Subtype tests and type queries on generated chains, by the walk and by the index, against supertypes that are
// followed by hand.
#include <gtest/gtest.h>

#include "schema/generated_chain.h"
#include "schema/lookup.h"
#include "steprt/aggregate.h"
#include "steprt/instance.h"
#include "steprt/schema.h"

namespace {

using namespace steprt_test;

// Of rows whose names and types stand once.
struct Supertypes {
  explicit Supertypes(const std::vector<Schema>& schemas) {
    std::map<std::string, int> typeOf;
    std::vector<Row> rows;
    for (const Schema& schema : schemas) rows.insert(rows.end(), schema.rows.begin(), schema.rows.end());
    for (const Row& row : rows) typeOf[row.name] = row.type;
    for (const Row& row : rows) {
      types.push_back(row.type);
      if (typeOf.count(row.super)) superOf[row.type] = typeOf[row.super];
    }
  }

  // How many steps lead from the type up to the other, or -1.
  int StepsUp(int type, int other) const {
    for (std::size_t steps = 0; steps <= types.size(); ++steps) {
      if (type == other) return static_cast<int>(steps);
      const auto super = superOf.find(type);
      if (super == superOf.end()) break;
      type = super->second;
    }
    return -1;
  }

  std::vector<int> types;
  std::map<int, int> superOf;
};

using Found = std::vector<STEPheader*>;

Found Take(STEPlist* head) {
  Found found;
  for (const STEPlist* node = head; node; node = node->next) found.push_back(node->value.object);
  DeleteSTEPlist(&head);
  return found;
}

Found Take(STEPaggr* aggr) {
  Found found = Take(aggr->head);
  delete aggr;
  return found;
}

// A model with up to two instances of each type, in no order, and an aggregate that has them in the reverse order.
struct Instances {
  Instances(APPobject0* head, const Supertypes& types, std::mt19937& random) : supertypes(types), model(head) {
    for (std::size_t i = 0; i < types.types.size() * 2; ++i) {
      auto* object = new STEPheader(&model);
      object->Type(types.types[random() % types.types.size()]);
      source.Prepend(object);
    }
  }
  ~Instances() { DeleteSTEPlist(&source.head); }

  // Whether all that the query asks for has room in what it counts. A ring fills it.
  bool Fits(int type, int depth) {
    int types[32];
    return ExtractTypes(model.schema, type, types, 32, depth) < 32;
  }

  int ExpectSubtypes(int type) {
    int subtypes = 0;
    for (STEPheader* each = model.Inst(); each; each = each->NextHead()) {
      const bool is = supertypes.StepsUp(each->Type(), type) >= 0;
      EXPECT_EQ(steprt::IsSubtype(model.schema, type, each->Type()), is) << each->Type();
      EXPECT_EQ(each->IsKindOf(type), is) << each->Type();
      subtypes += is && each->Type() != type;
    }
    return subtypes;
  }

  void ExpectFound(int type, int depth) {
    Found expected;
    for (STEPheader* each = model.Inst(); each; each = each->NextHead()) {
      const int steps = supertypes.StepsUp(each->Type(), type);
      if (steps == 0 || (depth >= 2 && steps > 0 && steps <= depth)) expected.push_back(each);
    }
    const Found reversed(expected.rbegin(), expected.rend());
    ASSERT_EQ(Take(model.GetSTEPlist(type, depth)), expected);
    ASSERT_EQ(Take(model.GetSTEPaggr(type, depth)), expected);
    ASSERT_EQ(Take(model.GetSTEPaggr(&source, type, depth)), reversed);
    if (depth < 31) return;
    ASSERT_EQ(Take(model.GetSTEPaggrAll(type)), expected);
    ASSERT_EQ(Take(model.GetSTEPaggrAll(&source, type)), reversed);
  }

  const Supertypes& supertypes;
  Model model;
  STEPaggr source;
};

TEST(TypeQueriesOnGeneratedChains, AgreeWithTheSupertypesOnBothPaths) {
  std::mt19937 random(1414);
  int compared = 0;
  int subtypes = 0;
  for (int round = 0; round < 40; ++round) {
    const auto schemas = steprt_test::GenerateChainWithoutTwins(random);
    const Supertypes supertypes(schemas);
    const Chain chain(schemas);
    Instances population(chain.Head(), supertypes, random);
    for (const char* path : {"linear", "indexed"}) {
      for (const int type : supertypes.types) {
        subtypes += population.ExpectSubtypes(type);
        for (const int depth : {1, 2, 3, 31}) {
          if (!population.Fits(type, depth)) continue;
          population.ExpectFound(type, depth);
          if (testing::Test::HasFailure()) FAIL() << "round " << round << ", " << path << ": " << type << ", " << depth;
          ++compared;
        }
      }
      population.model.PrepareHash();
    }
  }
  EXPECT_GT(compared, 3000);
  EXPECT_GT(subtypes, 1000);
}

}  // namespace
