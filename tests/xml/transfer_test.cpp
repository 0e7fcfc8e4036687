// The drivers, and a model's way through them.
#include <gtest/gtest.h>

#include "xml/documents.h"

namespace {

using namespace steprt_test;

class XmlTransfer : public testing::Test {
 protected:
  ~XmlTransfer() override {
    *ProjSchema() = before_;
    TakeReports("");
  }

 private:
  const APPobject0 before_ = *ProjSchema();
};

const char kPersonDocument[] = "<PROJ><PERSON rid='#1'/></PROJ>";

TEST_F(XmlTransfer, ADocumentInMemoryIsNamedInReportsAndAFileByTheModelsNameWithItsEndingAdded) {
  ProjModel model;
  const std::string name = TempPath("named");
  model.Name(name.c_str());
  EXPECT_EQ(model.ReadXml("<PROJ><DOOR rid='#1'><Host>#1</Host></DOOR></PROJ>"), 1);
  EXPECT_EQ(TakeReports(name + ".stp"), Texts{"(1) [DOOR]Reference to unknown object #1"});
  EXPECT_EQ(BytesOf(name + ".stp"), "(none)");
  MakeFile("named.stp", kPersonDocument);
  EXPECT_EQ(model.ReadXml(nullptr), 0);
  EXPECT_EQ(Population(model), (Texts{"DOOR(null)", "PERSON(0)"}));
  EXPECT_EQ(model.Name(), name);
  const std::string missing = "/" + std::string(250, 'n') + ".x";
  model.Name(missing.c_str());
  EXPECT_EQ(model.ReadXml(nullptr), -1);
  EXPECT_EQ(TakeReports(missing), Texts{("Can't open file " + missing).substr(0, 127)});
}

// Nothing is checked in the XML pass. A model that holds instances never falls back.
TEST_F(XmlTransfer, ReadTurnsToXmlWhenTheModelStaysEmpty) {
  const std::string notStep = "(1) [Read]Not a STEP file";
  const std::pair<std::string, Outcome> rows[] = {
      {"<PROJ><DOOR rid='#1'><Host>#2</Host></DOOR></PROJ>",
       {1, {notStep, "(1) [DOOR]Unknown reference #2"}, {"DOOR(null)"}}},
      {"<PROJ><PERSON rid='#1'/>", {-1, {notStep, "no element found (line 1, column 25)"}, {"PERSON(0)"}}},
      {InFrame("#1=NOBODY();"),
       {-1, {"(1) [NOBODY]Unknown entity NOBODY", "not well-formed (invalid token) (line 1, column 13)"}, {}}},
      {InFrame(""), {-1, {"not well-formed (invalid token) (line 1, column 13)"}, {}}},
      {InFrame("#1=PERSON($);"), {2, {"(1) [PERSON]Missing integer", "(1) [PERSON]Syntax"}, {"PERSON(0)"}}}};
  for (const auto& [bytes, wanted] : rows) {
    ProjModel model;
    std::string path = MakeFile("fall_back.stp", bytes);
    const int result = model.Read(false, path.data());
    EXPECT_EQ((Outcome{result, TakeReports(path), Population(model)}), wanted) << bytes;
  }
  ProjModel model;
  std::string path = MakeFile("check.xml", kPersonDocument);
  for (const int result : {0, 1}) {
    EXPECT_EQ(model.Read(result == 0, path.data()), result);
    EXPECT_EQ(TakeReports(path), Texts{notStep});
    EXPECT_EQ(Population(model), Texts{"PERSON(0)"});
  }
}

TEST_F(XmlTransfer, AnInstanceHasItsNumberAndOfADoubledNumberTheLastEntityCounts) {
  SetProbe({"", -1, [](STEPtransfer*) -> STEPheader* { return nullptr; }});
  ProjModel model;
  model.Name("doubled.xml");
  EXPECT_EQ(model.ReadXml("<PROJ><PERSON rid='#7'/><PERSON rid='#1'/><PROBE rid='#1'/>"
                          "<DOOR rid='#2'><Host>#1</Host></DOOR></PROJ>"),
            2);
  EXPECT_EQ(TakeReports("doubled.xml"),
            (Texts{"(1) [PROBE]Entity #1 already used", "(1) [DOOR]Reference to unknown object #1"}));
  EXPECT_EQ(Population(model), (Texts{"PERSON(0)", "PERSON(0)", "DOOR(null)"}));
  EXPECT_EQ(model.Inst()->number, 7);
}

TEST_F(XmlTransfer, ASchemaWithoutANameHasTheEmptyOne) {
  ProjSchema()->name = nullptr;
  ProjModel model;
  new Entity(kPerson, &model);
  const std::string document = WrittenDocument(model);
  EXPECT_NE(document.find("((' model', "), std::string::npos);
  EXPECT_NE(document.find("-->\n<>\n\t<PERSON rid=\"#1\"><Age>0</Age></PERSON>\n</>\n"), std::string::npos);
  EXPECT_EQ(model.ReadXml(kPersonDocument), 0);
  EXPECT_EQ(Population(model), Texts{"PERSON(0)"}) << "no root bears that name";
  std::string path = MakeFile("nameless.stp", "");
  EXPECT_EQ(model.Write(path.data(), nullptr), 1);
  EXPECT_NE(BytesOf(path).find("\nFILE_SCHEMA((''));\n"), std::string::npos);
  ProjModel again;
  EXPECT_EQ(again.Read(true, path.data()), 0);
  EXPECT_EQ(Population(again), Texts{"PERSON(0)"});
  EXPECT_FALSE(model.IsSchema(std::string("PROJ").data()));
  EXPECT_TRUE(model.IsSchema(std::string().data()));
}

TEST_F(XmlTransfer, AReadInsideAReadKeepsThemApart) {
  ProjModel inner;
  ProjModel outer;
  SetProbe({"", -1, [&](STEPtransfer* t) {
              EXPECT_EQ(inner.ReadXml("<PROJ><DOOR rid='#1'><Host>#2</Host></DOOR></PROJ>"), 1);
              auto* entity = new Entity(kPerson);
              entity->values[0].integer = rSTEPint(t, "A");
              return entity;
            }});
  EXPECT_EQ(outer.ReadXml("<PROJ><PERSON rid='#2'/><PROBE rid='#1'><A>7</A></PROBE></PROJ>"), 0);
  EXPECT_EQ(Population(outer), (Texts{"PERSON(0)", "PERSON(7)"}));
  EXPECT_EQ(Population(inner), Texts{"DOOR(null)"});
}

}  // namespace
