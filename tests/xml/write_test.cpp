// The documents that are written, byte for byte.
#include <gtest/gtest.h>

#include "xml/documents.h"

namespace {

using namespace steprt_test;

TEST(XmlWrite, AnEmptyModelIsTheFrame) {
  ProjModel model;
  EXPECT_EQ(WrittenDocument(model, "a 'remark'"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
            "<!-- FILE_DESCRIPTION(('PROJ model', 'TOVARIN version 7, 7, 10, 29','QVN','a 'remark'')); -->\n"
            "<!-- FILE_NAME('<path>','<date>'); -->\n"
            "<PROJ>\n</PROJ>\n");
  EXPECT_EQ(model.WriteXml(TempPath("written.xml").data(), nullptr), 0);
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

TEST(XmlWrite, AnEndingThatIsAddedIsNotShownAndTheNameIsSafeInsideAComment) {
  ProjModel model;
  std::string bare = TempPath("a--b");
  EXPECT_EQ(model.WriteXml(bare.data(), nullptr), 0);
  EXPECT_NE(BytesOf(bare + ".stp").find("<!-- FILE_NAME('" + TempPath("a_-b") + "','"), std::string::npos);
  const std::string longName = TempPath(std::string(250, 'n'));
  model.Name(longName.c_str());
  EXPECT_EQ(model.WriteXml(nullptr, nullptr), 0) << "with its ending the name is longer than a buffer";
  EXPECT_NE(BytesOf(model.Name() + std::string(".stp")).find(model.Name()), std::string::npos);
}

}  // namespace
