// Which instances get a record, which get a number, and what is reported about the others.
#include <gtest/gtest.h>

#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

// The records of a model as written, one line each.
std::string Records(STEPmodel& model, int expected) {
  std::string path = TempPath("numbering.stp");
  EXPECT_EQ(model.Write(path.data(), ""), expected);
  const std::string bytes = BytesOf(path);
  const std::size_t start = bytes.find("DATA;\n") + 6;
  return bytes.substr(start, bytes.rfind("ENDSEC;\n\nEND-ISO") - start);
}

Texts Reports() { return TakeReports(TempPath("numbering.stp")); }

TEST(Numbering, AnInstanceWithoutAWriteFunctionMayHaveANumberAndNoRecord) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=NOTE('n');#2=SAMPLE('',0,0,$,$,$,#1,$,(),(),(),());#3=PERSON(3);"));
  const std::string records = Records(model, 2);
  EXPECT_EQ(records, "#1 = SAMPLE('',0,0,.F.,.U.,.RED.,#2,$,(),(),(),());\n#3 = PERSON(3);\n");
  EXPECT_EQ(ReadData(records).reports, Texts{"(3) [PERSON]Unknown reference #2"});
  EXPECT_TRUE(Reports().empty());
}

TEST(Numbering, AnInstanceOutsideTheChainKeepsANumberThatItHad) {
  CurrentModel(nullptr);
  Entity stranger(kWall);
  Entity old(kWall);
  old.number = 41;
  ProjModel model;
  for (Entity* host : {&stranger, &old}) (new Entity(kDoor))->values[0].object = host;
  EXPECT_EQ(Records(model, 2), "#1 = DOOR(#2);\n#3 = DOOR(#41);\n");
}

TEST(Numbering, AnInstanceOfNoKnownTypeIsReportedAndLeftOut) {
  ProjModel model;
  new Entity(999);
  new Entity(kPerson);
  new Entity(kDoor);
  (new STEPheader)->Type(-1);
  new Entity(kPoint);
  new Entity(998);
  EXPECT_EQ(Records(model, 3), "#1 = PERSON(0);\n#2 = DOOR($);\n#3 = POINT(0,0,0);\n");
  EXPECT_EQ(Reports(), (Texts{"(10) [Write]Unknown STEP object", "(12) [DOOR]Unknown STEP object",
                              "(13) [POINT]Unknown STEP object"}));
}

TEST(Numbering, GoesByTheOrderOfFirstNeedWhateverTheNumbersOfAnEarlierFile) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=door(#3);#2=PERSON(2);#3=WALL('',0.,#2,$,(),.F.);#4=PERSON(4);"));
  new Entity(kProduct);
  model.Inst()->number = 77;
  EXPECT_EQ(Records(model, 5),
            "#1 = DOOR(#2);\n#3 = PERSON(2);\n#2 = WALL('',0,#3,(),(),.F.);\n#4 = PERSON(4);\n#5 = PRODUCT();\n");
  EXPECT_EQ(model.FindFirst(kWall)->number, 2) << "the numbers of this one stay";
}

}  // namespace
