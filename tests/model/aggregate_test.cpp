// Aggregates: every operation on the first, an inner and the last node, on strangers, doubles and null members.
#include "steprt/aggregate.h"

#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "support/proj_schema.h"

namespace {

using namespace steprt_test;
using Places = std::vector<int>;

// Instances a to e, by their places; 0 stands for null. 5 is in no list.
class Aggregate : public testing::Test {
 protected:
  Aggregate() {
    for (Entity*& each : entities_) each = new Entity(&each - entities_ < 3 ? kWall : kDoor, &model_);
  }
  ~Aggregate() override { DeleteSTEPlist(&aggr_.head); }

  STEPheader* At(int place) { return place == 0 ? nullptr : entities_[place - 1]; }

  int PlaceOf(const STEPheader* object) {
    int place = 0;
    while (At(place) != object) ++place;
    return place;
  }

  void Fill(const Places& places) {
    DeleteSTEPlist(&aggr_.head);
    for (const int place : places) aggr_.Append(At(place));
  }

  Places List() {
    Places places;
    for (const STEPlist* node = aggr_.head; node; node = node->next) places.push_back(PlaceOf(node->value.object));
    return places;
  }

  ProjModel model_;
  Entity* entities_[5];
  STEPaggr aggr_;
};

TEST_F(Aggregate, AnswersAboutMembers) {
  const struct {
    Places list;
    int object;
    int index;
    int successor;
    int predecessor;
  } rows[] = {
      {{}, 1, -1, 0, 0},       {{1}, 1, 0, 0, 0},          {{1, 2, 3}, 1, 0, 2, 0},  {{1, 2, 3}, 2, 1, 3, 1},
      {{1, 2, 3}, 3, 2, 0, 2}, {{1, 2, 3}, 5, -1, 0, 3},   {{1, 2, 3}, 0, -1, 0, 3}, {{}, 0, -1, 0, 0},
      {{1, 0, 3}, 0, 1, 3, 1}, {{1, 2, 1, 3}, 1, 0, 2, 0}, {{1, 0}, 5, -1, 0, 0},    {{3, 1, 2, 1}, 1, 1, 2, 3},
  };
  for (const auto& row : rows) {
    Fill(row.list);
    const auto what = testing::PrintToString(row.list) + ", " + std::to_string(row.object);
    EXPECT_EQ(aggr_.IsMember(At(row.object)), row.index) << what;
    EXPECT_EQ(PlaceOf(aggr_.Successor(At(row.object))), row.successor) << what;
    EXPECT_EQ(PlaceOf(aggr_.Predecessor(At(row.object))), row.predecessor) << what;
    EXPECT_EQ(aggr_.GetMemberCount(), static_cast<int>(row.list.size())) << what;
  }
}

TEST_F(Aggregate, InsertsBeforeAndBehindTheFirstOccurrence) {
  const struct {
    Places list;
    int member;
    Places before;
    Places after;
  } rows[] = {
      {{}, 1, {}, {}},
      {{1}, 5, {1}, {1}},
      {{1, 2}, 1, {4, 1, 2}, {1, 4, 2}},
      {{1, 2}, 2, {1, 4, 2}, {1, 2, 4}},
      {{2, 1, 3, 1}, 1, {2, 4, 1, 3, 1}, {2, 1, 4, 3, 1}},
      {{1, 0}, 0, {1, 4, 0}, {1, 0, 4}},
  };
  for (const auto& row : rows) {
    Fill(row.list);
    EXPECT_EQ(aggr_.InsertBefore(At(row.member), At(4)), row.before != row.list);
    EXPECT_EQ(List(), row.before);
    Fill(row.list);
    EXPECT_EQ(aggr_.InsertAfter(At(row.member), At(4)), row.after != row.list);
    EXPECT_EQ(List(), row.after);
  }
}

TEST_F(Aggregate, DeletesByMemberAndByIndexWithoutHarmToTheInstance) {
  const struct {
    Places list;
    int object;
    int index;
    Places left;
  } rows[] = {
      {{}, 1, 0, {}},
      {{1}, 1, 0, {}},
      {{1, 2, 3}, 1, 0, {2, 3}},
      {{1, 2, 3}, 3, 2, {1, 2}},
      {{1, 2, 3}, 2, 1, {1, 3}},
      {{1, 2}, 5, 2, {1, 2}},
      {{1, 2}, 0, -1, {1, 2}},
      {{1, 2, 1}, 1, 0, {2, 1}},
      {{1, 0, 2}, 0, 1, {1, 2}},
  };
  for (const auto& row : rows) {
    Fill(row.list);
    EXPECT_EQ(aggr_.Delete(At(row.object)), row.left != row.list);
    EXPECT_EQ(List(), row.left);
    Fill(row.list);
    EXPECT_EQ(aggr_.Delete(row.index), row.left != row.list);
    EXPECT_EQ(List(), row.left);
  }
  EXPECT_EQ(Population(model_).size(), 5u);
}

TEST_F(Aggregate, PrependsAndAppendsInstancesAndReals) {
  aggr_.Append(At(1));
  aggr_.Prepend(At(2));
  aggr_.Append(At(1));
  EXPECT_EQ(List(), (Places{2, 1, 1}));
  STEPaggr reals;
  reals.Prepend(2.5);
  reals.Append(1e300);
  reals.Prepend(-0.5);
  std::vector<double> values;
  for (const STEPlist* node = reals.head; node; node = node->next) values.push_back(node->value.real);
  EXPECT_EQ(values, (std::vector<double>{-0.5, 2.5, 1e300}));
  DeleteSTEPlist(&reals.head);
  EXPECT_EQ(reals.head, nullptr);
  DeleteSTEPlist(&reals.head);
  DeleteSTEPlist(nullptr);
}

TEST_F(Aggregate, FindFirstTakesTheExactTypeAndPassesOverNull) {
  Fill({0, 4, 0, 2, 3});
  EXPECT_EQ(PlaceOf(aggr_.FindFirst(kWall)), 2);
  EXPECT_EQ(PlaceOf(aggr_.FindFirst(kDoor)), 4);
  EXPECT_EQ(PlaceOf(aggr_.FindFirst(kProduct)), 0);
}

TEST_F(Aggregate, WithoutMemoryForANodeTheListStaysAsItWas) {
  Fill({1, 2});
  const FailingNew failing(1, FailingNew::kAndAllBehind);
  aggr_.Append(At(3));
  aggr_.Prepend(At(3));
  aggr_.Append(1.0);
  aggr_.Prepend(1.0);
  EXPECT_FALSE(aggr_.InsertBefore(At(1), At(3)));
  EXPECT_FALSE(aggr_.InsertAfter(At(2), At(3)));
  EXPECT_EQ(List(), (Places{1, 2}));
}

}  // namespace
