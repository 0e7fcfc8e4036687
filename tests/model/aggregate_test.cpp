// Aggregates, beyond what random edits check in fuzz/edit_checks.cpp: numbers, a lack of memory, and types.
#include "steprt/aggregate.h"

#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "support/proj_schema.h"

namespace {

using namespace steprt_test;

TEST(Aggregate, HoldsRealsAndStaysAsItIsWhenMemoryRunsOut) {
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

// The first occurrence counts, and null is a member like any other.
TEST(Aggregate, FindsMembersByIdentityAndByExactType) {
  ProjModel model;
  STEPheader* const wall = new Entity(kWall, &model);
  STEPheader* const door = new Entity(kDoor, &model);
  STEPheader* const stranger = new Entity(kDoor, &model);
  STEPaggr aggr;
  for (STEPheader* each : {static_cast<STEPheader*>(nullptr), door, wall, door}) aggr.Append(each);
  EXPECT_EQ(aggr.FindFirst(kWall), wall);
  EXPECT_EQ(aggr.FindFirst(kDoor), door);
  EXPECT_EQ(aggr.FindFirst(kProduct), nullptr);
  EXPECT_EQ(aggr.IsMember(door), 1);
  EXPECT_EQ(aggr.Successor(door), wall);
  EXPECT_EQ(aggr.Predecessor(stranger), door) << "the last one of all";
  EXPECT_FALSE(aggr.InsertAfter(stranger, wall));
  DeleteSTEPlist(&aggr.head);
}

}  // namespace
