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
  } rows[] = {{{}, 1, -1, 0, 0},          {{1}, 1, 0, 0, 0},       {{1, 2, 3}, 1, 0, 2, 0},
              {{1, 2, 3}, 2, 1, 3, 1},    {{1, 2, 3}, 3, 2, 0, 2}, {{1, 2, 3}, 5, -1, 0, 3},
              {{1, 2, 3}, 0, -1, 0, 3},   {{}, 0, -1, 0, 0},       {{1, 0, 3}, 0, 1, 3, 1},
              {{1, 2, 1, 3}, 1, 0, 2, 0}, {{1, 0}, 5, -1, 0, 0},   {{3, 1, 2, 1}, 1, 1, 2, 3}};
  for (const auto& row : rows) {
    Fill(row.list);
    const auto what = testing::PrintToString(row.list) + ", " + std::to_string(row.object);
    EXPECT_EQ(aggr_.IsMember(At(row.object)), row.index) << what;
    EXPECT_EQ(PlaceOf(aggr_.Successor(At(row.object))), row.successor) << what;
    EXPECT_EQ(PlaceOf(aggr_.Predecessor(At(row.object))), row.predecessor) << what;
    EXPECT_EQ(aggr_.GetMemberCount(), static_cast<int>(row.list.size())) << what;
  }
}

// The first occurrence counts. A row is a list, a member with its index, and the list with d before it, d behind it,
// and without it.
TEST_F(Aggregate, InsertsBeforeAndBehindAndDeletesByMemberAndByIndex) {
  const struct {
    Places list;
    int member;
    int index;
    Places before;
    Places after;
    Places without;
  } rows[] = {{{}, 1, 0, {}, {}, {}},
              {{1}, 5, 1, {1}, {1}, {1}},
              {{1}, 5, -1, {1}, {1}, {1}},
              {{1}, 1, 0, {4, 1}, {1, 4}, {}},
              {{1, 2}, 1, 0, {4, 1, 2}, {1, 4, 2}, {2}},
              {{1, 2}, 2, 1, {1, 4, 2}, {1, 2, 4}, {1}},
              {{1, 2, 3}, 2, 1, {1, 4, 2, 3}, {1, 2, 4, 3}, {1, 3}},
              {{2, 1, 3, 1}, 1, 1, {2, 4, 1, 3, 1}, {2, 1, 4, 3, 1}, {2, 3, 1}},
              {{1, 0, 2}, 0, 1, {1, 4, 0, 2}, {1, 0, 4, 2}, {1, 2}}};
  for (const auto& row : rows) {
    const auto expect = [&](auto change, const Places& changed) {
      Fill(row.list);
      EXPECT_EQ(change(), changed != row.list);
      EXPECT_EQ(List(), changed);
    };
    expect([&] { return aggr_.InsertBefore(At(row.member), At(4)); }, row.before);
    expect([&] { return aggr_.InsertAfter(At(row.member), At(4)); }, row.after);
    expect([&] { return aggr_.Delete(At(row.member)); }, row.without);
    expect([&] { return aggr_.Delete(row.index); }, row.without);
  }
  EXPECT_EQ(Population(model_).size(), 5u) << "no instance is harmed";
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
  {
    const FailingNew noMemory(1, FailingNew::kAndAllBehind);
    reals.Append(1.0);
    reals.Prepend(1.0);
  }
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

}  // namespace
