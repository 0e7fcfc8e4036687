// The documents that are written, byte for byte.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/faulty_calls.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

const char kHead[] =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
    "<!-- FILE_DESCRIPTION(('PROJ model', 'TOVARIN version 7, 7, 10, 29','QVN','')); -->\n"
    "<!-- FILE_NAME('PATH','DATE'); -->\n"
    "<PROJ>\n";

TEST(XmlWrite, AnEmptyModelIsTheFrameAndAFileThatCannotBeMadeIsReported) {
  ProjModel model;
  EXPECT_EQ(WrittenDocument(model), std::string(kHead) + "</PROJ>\n");
  std::string path = TempPath("written.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 0);
  path = TempPath("missing/folder.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), -1);
  EXPECT_EQ(TakeReports(path), Texts{"(1) [Write]Can't create file"});
}

TEST(XmlWrite, AWholeDocument) {
  ProjModel model;
  ReadBytes(model,
            InFrame("#9=SAMPLE('A & <B>',-7,2.5,.T.,.U.,.GREEN.,#4,#4,(#5),(1,2.5,0.00001),(.RED.),('x','y''z'));"
                    "#4=WALL('',1000000.,$,(#5,$),(),.F.);#5=DOOR(#4);#6=POINT(1,2,3);#7=PERSON(41);"));
  EXPECT_EQ(WrittenDocument(model, "a 'remark'"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
            "<!-- FILE_DESCRIPTION(('PROJ model', 'TOVARIN version 7, 7, 10, 29','QVN','a 'remark'')); -->\n"
            "<!-- FILE_NAME('PATH','DATE'); -->\n<PROJ>\n"
            "\t<SAMPLE rid=\"#1\"><Text>A &amp; &lt;B&gt;</Text><Int>-7</Int><Real>2.5</Real><Bool>.T.</Bool>"
            "<Log>.U.</Log><Enum>.GREEN.</Enum><Sel>#2</Sel><Ref>#2</Ref><Refs>#3</Refs><Reals>1;2.5;1e-05</Reals>"
            "<Texts>'x';'y'z'</Texts></SAMPLE>\n"
            "\t<WALL rid=\"#2\"><Name></Name><Height>1e+06</Height><Owner>$</Owner><Doors>#3 $</Doors>"
            "<Layers></Layers><External>.F.</External></WALL>\n"
            "\t<DOOR rid=\"#3\"><Host>#2</Host></DOOR>\n"
            "\t<POINT rid=\"#4\"><X>1</X><Y>2</Y><Z>3</Z></POINT>\n"
            "\t<PERSON rid=\"#5\"><Age>41</Age></PERSON>\n"
            "</PROJ>\n");
}

TEST(XmlWrite, InstancesWithoutARowOrAWriteFunctionAreLeftOut) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=PERSON(1);#2=NOTE('a');#3=PERSON(2);#4=PERSON(3);"));
  model.Inst()->next->next->type = 99;
  std::string path = TempPath("left.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 2);
  EXPECT_EQ(TakeReports(path), Texts{"(6) [PERSON]Unknown STEP object"});
  model.Inst()->type = 98;
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 1);
  EXPECT_EQ(TakeReports(path), (Texts{"(5) [Write]Unknown STEP object", "(5) [Write]Unknown STEP object"}));
  EXPECT_EQ(model.Inst()->next->number, 0);
}

TEST(XmlWrite, TheNameOfTheFileIsSafeInsideAComment) {
  const std::pair<const char*, const char*> rows[] = {{"a--b.xml", "a_-b.xml"},
                                                      {"a---b.xml", "a__-b.xml"},
                                                      {"a-b.xml-", "a-b.xml-"},
                                                      {"x.--", "x._-"},
                                                      {"it's & <x>.xml", "it's & <x>.xml"}};
  ProjModel model;
  for (const auto& [name, shown] : rows) {
    std::string path = TempPath(name);
    EXPECT_EQ(model.WriteXml(path.data(), nullptr), 0);
    EXPECT_NE(BytesOf(path).find("<!-- FILE_NAME('" + TempPath(shown) + "','"), std::string::npos) << name;
    model.Name(path.c_str());
    EXPECT_EQ(model.ReadXml(nullptr), 0) << name;
  }
}

TEST(XmlWrite, AnEndingThatIsAddedIsNotShown) {
  ProjModel model;
  std::string bare = TempPath("bare");
  EXPECT_EQ(model.WriteXml(bare.data(), nullptr), 0);
  EXPECT_NE(BytesOf(bare + ".stp").find("<!-- FILE_NAME('" + bare + "','"), std::string::npos);
  const std::string longName = TempPath(std::string(250, 'n'));
  model.Name(longName.c_str());
  EXPECT_EQ(model.WriteXml(nullptr, nullptr), 0) << "with its ending the name is longer than a buffer";
  EXPECT_NE(BytesOf(model.Name() + std::string(".stp")).find(model.Name()), std::string::npos);
}

TEST(XmlWrite, OnlyXmlMayBeWrittenToTheFileMeanwhile) {
  ProjModel model;
  new Entity(kProbe, &model);
  std::string path = TempPath("shared.xml");
  int document = -2;
  int clearText = -2;
  SetProbe({"", -1, {}, [&](STEPtransfer*) {
              document = ProjModel().WriteXml(path.data(), nullptr);
              clearText = ProjModel().Write(path.data(), nullptr);
            }});
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 1);
  EXPECT_EQ(document, 0);
  EXPECT_EQ(clearText, -1);
  EXPECT_EQ(TakeReports(path), Texts{"(1) [Write]Can't create file"});
}

TEST(XmlWrite, AFailingStreamIsFoundAndTheRootIsClosedAllTheSame) {
  ProjModel model;
  ReadBytes(model, InFrame("#1=PERSON(1);#2=PERSON(2);#3=PERSON(3);"));
  std::string path = TempPath("failing.xml");
  const struct {
    long failing;
    const char* report;
    const char* end;  // of the document, from its root on
  } rows[] = {
      {1, "(5) [PERSON]error writing file", "</PROJ>\n"},
      {2, "(7) [PERSON]error writing file", "<PROJ>\n\t<PERSON rid=\"#1\"><Age>1</Age></PERSON>\n</PROJ>\n"},
  };
  for (const auto& row : rows) {
    const FaultyCalls faulty({row.failing, false, 28});
    EXPECT_EQ(model.WriteXml(path.data(), nullptr), -1) << row.failing;
    EXPECT_TRUE(faulty.HasFailed());
    EXPECT_EQ(TakeReports(path), Texts{row.report});
    const std::string bytes = BytesOf(path);
    EXPECT_EQ(bytes.substr(std::min(bytes.find("<PROJ>"), bytes.find("</PROJ>"))), row.end);
  }
}

}  // namespace
