// Instances by type, out of a model and out of an aggregate. On generated chains, by the walk and by the index, against
// supertypes that are followed by hand; and the limits of a query.
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

constexpr int kRowless = 77777;

STEPheader* Make(STEPmodel* model, int type) {
  auto* object = new STEPheader(model);
  object->Type(type);
  return object;
}

// A model with up to two instances of each type, in no order, and one of a type without a row. An aggregate has them in
// the reverse order, with nulls, doubles and instances of another model among them.
struct Instances {
  Instances(APPobject0* head, const Supertypes& types, std::mt19937& random) : supertypes(types), model(head) {
    const auto any = [&] { return types.types[random() % types.types.size()]; };
    for (std::size_t i = 0; i < types.types.size() * 2; ++i) {
      STEPheader* object = Make(&model, any());
      source.Prepend(object);
      const auto more = random() % 8;
      if (more < 3) source.Prepend(more == 0 ? nullptr : more == 1 ? object : Make(&elsewhere, any()));
    }
    source.Prepend(Make(&model, kRowless));
  }
  ~Instances() { DeleteSTEPlist(&source.head); }

  // Whether all that the query asks for has room in what it counts. A ring fills it.
  bool Fits(int type, int depth) {
    int found[32];
    return ExtractTypes(model.schema, type, found, 32, depth) < 32;
  }

  int ExpectSubtypes(int type) {
    int subtypes = 0;
    for (STEPheader* each = model.Inst(); each; each = each->NextHead()) {
      const bool is = type < 0 || supertypes.StepsUp(each->Type(), type) >= 0;
      EXPECT_EQ(steprt::IsSubtype(model.schema, type, each->Type()), is) << each->Type();
      EXPECT_EQ(each->IsKindOf(type), is) << each->Type();
      subtypes += is && type >= 0 && each->Type() != type;
    }
    return subtypes;
  }

  // Below a depth of 2 the type counts alone and needs no row.
  bool IsWanted(const STEPheader* object, int type, int depth) const {
    if (depth < 2) return object->type == type;
    const int steps = supertypes.StepsUp(object->type, type);
    return object->type != kRowless && steps >= 0 && steps <= depth;
  }

  void ExpectFound(int type, int depth) {
    Found ofModel;
    for (STEPheader* each = model.Inst(); each; each = each->NextHead()) {
      if (IsWanted(each, type, depth)) ofModel.push_back(each);
    }
    Found ofSource;
    for (const STEPlist* node = source.head; node; node = node->next) {
      STEPheader* object = node->value.object;
      if (object && IsWanted(object, type, depth)) ofSource.push_back(object);
    }
    ASSERT_EQ(Take(model.GetSTEPlist(type, depth)), ofModel);
    ASSERT_EQ(Take(model.GetSTEPaggr(type, depth)), ofModel);
    ASSERT_EQ(Take(model.GetSTEPaggr(&source, type, depth)), ofSource);
    if (depth < 31) return;
    ASSERT_EQ(Take(model.GetSTEPaggrAll(type)), ofModel);
    ASSERT_EQ(Take(model.GetSTEPaggrAll(&source, type)), ofSource);
  }

  const Supertypes& supertypes;
  Model model;
  Model elsewhere{nullptr};
  STEPaggr source;
};

TEST(TypeQueries, OnGeneratedChainsAgreeWithTheSupertypesOnBothPaths) {
  std::mt19937 random(1414);
  int compared = 0;
  int subtypes = 0;
  for (int round = 0; round < 40; ++round) {
    const auto schemas = GenerateChainWithoutTwins(random);
    const Supertypes supertypes(schemas);
    std::vector<int> types = supertypes.types;
    types.insert(types.end(), {kRowless, -1});
    const Chain chain(schemas);
    Instances population(chain.Head(), supertypes, random);
    for (const char* path : {"linear", "indexed"}) {
      for (const int type : types) {
        subtypes += population.ExpectSubtypes(type);
        for (const int depth : {-4, 1, 2, 3, 31}) {
          if (!population.Fits(type, depth)) continue;
          population.ExpectFound(type, depth);
          if (testing::Test::HasFailure()) FAIL() << "round " << round << ", " << path << ": " << type << ", " << depth;
          ++compared;
        }
      }
      population.model.PrepareHash();
    }
  }
  EXPECT_GT(compared, 4000);
  EXPECT_GT(subtypes, 1000);
}

TEST(TypeQueries, WithoutASourceOrASchemaFindNothing) {
  const Chain chain({{"S", {{"TOP", 1}}}});
  Model model(chain.Head());
  Make(&model, 1);
  STEPaggr none;
  EXPECT_EQ(Take(model.GetSTEPaggr(&none, 1, 5)), Found{});
  EXPECT_EQ(Take(model.GetSTEPaggr(nullptr, 1, 5)), Found{});
  EXPECT_EQ(Take(model.GetSTEPaggrAll(nullptr, 1)), Found{});
  Model bare(nullptr);
  const Found alone = {Make(&bare, 1)};
  EXPECT_EQ(Take(bare.GetSTEPlist(1, 1)), alone);
  EXPECT_EQ(Take(bare.GetSTEPlist(1, 2)), Found{});
}

// Type 0 and 40 others, one instance of each. Side by side 31 types count, in row order or from the last row on; one
// below the other, 31 types are used up before 31 levels are.
TEST(TypeQueries, Count31TypesAndDropTheOthersSilently) {
  for (const bool isDeep : {false, true}) {
    Schema many{"S", {{"E0", 0}}};
    for (int i = 1; i <= 40; ++i) {
      many.rows.push_back({"E" + std::to_string(i), i, "E" + std::to_string(isDeep ? i - 1 : 0)});
    }
    const Chain chain({many});
    Model model(chain.Head());
    Found all;
    for (int i = 0; i <= 40; ++i) all.push_back(Make(&model, i));
    const Found first(all.begin(), all.begin() + 31);
    Found last(all.begin() + 11, all.end());
    last.insert(last.begin(), all[0]);
    EXPECT_EQ(Take(model.GetSTEPaggrAll(0)), first) << isDeep;
    EXPECT_EQ(Take(model.GetSTEPlist(0, isDeep ? 1000 : 2)), first) << isDeep;
    model.PrepareHash();
    EXPECT_EQ(Take(model.GetSTEPaggrAll(0)), isDeep ? first : last) << isDeep;
  }
}

}  // namespace
