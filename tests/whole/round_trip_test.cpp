// A model that was read, edited and written comes back as it was left.
#include <gtest/gtest.h>

#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

TEST(RoundTrip, AnEditedModelComesBackAsItWasLeft) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=WALL('old',1.,#2,(#3,#4),(1),.F.);#2=PERSON(1);#3=DOOR(#1);#4=DOOR(#1);"));
  auto* wall = static_cast<Entity*>(model.FindFirst(kWall));
  STEPheader* first = wall->values[3].list->head->value.object;
  EXPECT_TRUE(wall->values[3].list->Delete(first));
  delete first;
  auto* door = new Entity(kDoor, &model);
  door->values[0].object = wall;
  wall->values[3].list->Prepend(door);
  wall->values[0].text = "new";
  wall->Changed();
  model.Insert(model.FindFirst(kPerson));
  std::string path = TempPath("edited.stp");
  EXPECT_EQ(model.Write(path.data(), ""), 4);
  const std::string bytes = BytesOf(path);
  EXPECT_EQ(bytes.substr(bytes.find("DATA;")),
            "DATA;\n#1 = WALL('new',1,#2,(#3,#4),(1),.F.);\n#4 = DOOR(#1);\n#3 = DOOR(#1);\n#2 = PERSON(1);\n"
            "ENDSEC;\n\nEND-ISO-10303-21;\n");
  EXPECT_EQ(ReadBytes(bytes).population, Population(model));
}

}  // namespace
