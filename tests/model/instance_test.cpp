// Instances: what constructors leave, joining a model, ids, types, the schema as an instance sees it.
#include "steprt/instance.h"

#include <gtest/gtest.h>

#include "support/proj_schema.h"

namespace {

using namespace steprt_test;

TEST(Instance, IsNewInTheModelThatItsArgumentNamesOrElseInTheCurrentOne) {
  ProjModel model;
  ProjModel current;
  auto* first = new STEPheader(&model);
  auto* second = new STEPheader(&model);
  auto* object = new STEPheader;
  EXPECT_EQ(model.Inst(), first);
  EXPECT_EQ(first->NextHead(), second);
  EXPECT_EQ(*first->pNextHead(), second);
  EXPECT_EQ(current.Inst(), object);
  EXPECT_EQ(object->Model(), &current);
  EXPECT_EQ(object->NextHead(), nullptr);
  EXPECT_EQ(object->Type(), -1);
  EXPECT_EQ(object->number, 0);
  EXPECT_STREQ(object->Id(), "");
  EXPECT_FALSE(current.Changed());
  current.SetLocked(true);
  object->Changed();
  EXPECT_TRUE(current.Changed()) << "whether it is locked or not";
}

TEST(Instance, HasNoModelUntilOneTakesIt) {
  CurrentModel(nullptr);
  auto* object = new Entity(kWall);
  EXPECT_EQ(object->Model(), nullptr);
  EXPECT_STREQ(object->EntityName(), "");
  EXPECT_TRUE(object->IsKindOf(kWall));
  EXPECT_FALSE(object->IsKindOf(kProduct));
  object->Changed();
  ProjModel model;
  model.Insert(object);
  EXPECT_EQ(object->Model(), &model);
  EXPECT_EQ(model.Inst(), object);
  delete new STEPheader(static_cast<void*>(nullptr));  // in the current model, and off its list again
  EXPECT_EQ(object->NextHead(), nullptr);
}

TEST(Instance, ANullIdChangesNothing) {
  ProjModel model;
  STEPheader* object = new STEPheader;
  object->Id("short");
  object->Id(static_cast<const char*>(nullptr));
  EXPECT_STREQ(object->Id(), "short");
}

TEST(Instance, ACopyIsOnNoListAndLeavesTheSourcesListAlone) {
  ProjModel model;
  auto* first = new STEPheader;
  auto* second = new STEPheader;
  first->Id("first");
  {
    const STEPheader copy(*first);
    STEPheader assigned;
    model.RmInst(&assigned);
    EXPECT_EQ(&(assigned = copy), &assigned);
    EXPECT_EQ(assigned.next, second);
    EXPECT_EQ(assigned.Model(), &model);
    EXPECT_STREQ(assigned.Id(), "first");
  }
  EXPECT_EQ(model.Inst(), first);
  EXPECT_EQ(first->NextHead(), second);
  EXPECT_EQ(second->NextHead(), nullptr);
}

}  // namespace
