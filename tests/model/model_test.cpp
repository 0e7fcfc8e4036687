// Models: their lists under all operations, ids, names, copies, the current model, a model without a schema.
#include "steprt/model.h"

#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;
using Objects = std::vector<STEPheader*>;

// The list from the first on; that `tail` is the link that ends it is tested along the way.
Objects ListOf(STEPmodel& model) {
  Objects list;
  STEPheader** link = &model.first;
  for (; *link; link = &(*link)->next) list.push_back(*link);
  EXPECT_EQ(model.tail, link);
  EXPECT_EQ(model.IsEmpty(), list.empty() ? 1 : 0);
  return list;
}

TEST(Model, DeleteDestroysTheInstancesAndStartsTheIdsAnew) {
  CurrentModel(nullptr);
  auto* lonely = new Entity(kWall);
  ProjModel model;
  model.AddInst(lonely);
  EXPECT_EQ(lonely->Model(), nullptr);
  EXPECT_EQ(ListOf(model), Objects{lonely});
  model.Delete();
  const long before = LiveBlocks();
  STEPheader* door = new Entity(kDoor);
  STEPheader* wall = new Entity(kWall);
  for (int i = 0; i < 100; ++i) new Entity(kSample);
  EXPECT_EQ(model.FindFirst(kWall), wall);
  EXPECT_EQ(model.FindFirst(kDoor), door);
  EXPECT_EQ(model.FindFirst(kProduct), nullptr) << "the exact type alone";
  model.Name("name");
  model.SetChanged(true);
  model.GetEntId();
  for (int round = 0; round < 2; ++round) {
    model.Delete();
    EXPECT_EQ(ListOf(model), Objects{});
    EXPECT_EQ(LiveBlocks(), before);
    EXPECT_STREQ(model.Name(), "name");
    EXPECT_TRUE(model.Changed());
    EXPECT_EQ(model.GetEntId(), 1);
  }
}

TEST(Model, AnIdIsLongerThanAnyOtherWhereTheLastOneIsFarBelowNought) {
  ProjModel model;
  const std::string prefix(63, 'p');
  model.lastId = -2147483640;
  EXPECT_EQ(AutoId(0, (prefix + "q").c_str()), prefix + "-2147483639");
  CurrentModel(nullptr);
  EXPECT_STREQ(AutoId(0, "x"), "x0");
}

TEST(Model, ANameIsCutAtTwoHundredAndSixtyCharacters) {
  ProjModel model;
  model.Name(std::string(261, 'n').c_str());
  EXPECT_EQ(model.Name(), std::string(260, 'n'));
  model.Name(model.Name() + 250);
  EXPECT_EQ(model.Name(), std::string(10, 'n'));
  model.Name(static_cast<char*>(nullptr));
  EXPECT_EQ(model.Name(), std::string(10, 'n'));
}

TEST(Model, OnlyTheConstructorWithALimitMakesAModelCurrent) {
  ProjModel model(3);
  EXPECT_EQ(CurrentModel(), &model);
  STEPmodel second(&model);
  EXPECT_EQ(CurrentModel(), &model);
  EXPECT_TRUE(second.shared);
  EXPECT_EQ(second.schema, model.schema);
  EXPECT_EQ(second.errorLimit, 10);
  EXPECT_EQ(model.errorLimit, 3);
  EXPECT_EQ(second.tail, &second.first);
  CurrentModel(&second);
  EXPECT_EQ(CurrentModel(), &second);
  CurrentModel(nullptr);
  EXPECT_EQ(CurrentModel(), nullptr);
}

TEST(Model, ACopyIsASnapshotWhoseEndLeavesTheSourceAlone) {
  ProjModel model(4);
  model.Name("source");
  model.GetEntId();
  STEPheader* object = new Entity(kWall);
  {
    STEPmodel copy(model);
    ProjModel assigned;
    EXPECT_EQ(&(static_cast<STEPmodel&>(assigned) = copy), &assigned);
    EXPECT_STREQ(assigned.Name(), "source");
    EXPECT_EQ(assigned.Inst(), object);
    EXPECT_EQ(assigned.tail, model.tail);
    EXPECT_EQ(assigned.errorLimit, 4);
    EXPECT_EQ(assigned.lastId, 1);
  }
  EXPECT_EQ(ListOf(model), Objects{object});
}

TEST(Model, WithoutASchemaNothingIsFoundAndNothingHappens) {
  STEPmodel model(static_cast<STEPmodel*>(nullptr));
  auto* object = new Entity(kWall, &model);
  EXPECT_STREQ(object->EntityName(), "");
  EXPECT_FALSE(object->IsKindOf(kProduct));
  EXPECT_STREQ(model.EntityName(kWall), "Unknown");
  STEPlib lib(static_cast<HINSTANCE>(nullptr));
  model.SetLib(&lib);
  EXPECT_EQ(model.GetLib("PROJ"), nullptr);
  model.PrepareHash();
  std::string path = MakeFile("bare.xml", "<PROJ/>");
  for (const char* schema : {path.c_str(), "", static_cast<const char*>(nullptr)}) {
    EXPECT_FALSE(model.IsSchema(const_cast<char*>(schema)));
  }
  EXPECT_EQ(model.Read(true, path.data()), 1);
  EXPECT_EQ(model.ReadXml("<PROJ/>"), 1);
  EXPECT_EQ(model.Write(path.data(), nullptr), -1);
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), -1);
  EXPECT_EQ(STEPread(nullptr, ProjSchema(), false), 1);
  EXPECT_EQ(STEPwrite(nullptr, "", nullptr, ProjSchema()), -1);
  EXPECT_EQ(BytesOf(path), "<PROJ/>");
}

}  // namespace
