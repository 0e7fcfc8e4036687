// The drivers, and a model's way through them.
#include <gtest/gtest.h>

#include <stdexcept>

#include "xml/documents.h"
#include "xml/xml_reader.h"
#include "xml/xml_writer.h"

namespace {

using namespace steprt_test;

class XmlTransfer : public testing::Test {
 protected:
  ~XmlTransfer() override {
    SetProbe({});
    TakeReports("");
  }
};

TEST_F(XmlTransfer, ADocumentInMemoryIsNamedInReportsAndNoFileIsTouched) {
  ProjModel model;
  const std::string name = TempPath("named");
  model.Name(name.c_str());
  EXPECT_EQ(model.ReadXml("<PROJ><DOOR rid='#1'><Host>#1</Host></DOOR></PROJ>"), 1);
  EXPECT_EQ(TakeReports(name + ".stp"), Texts{"(1) [DOOR]Reference to unknown object #1"});
  EXPECT_EQ(BytesOf(name), "(none)");
  EXPECT_EQ(BytesOf(name + ".stp"), "(none)");
  EXPECT_EQ(model.Name(), name);
}

TEST_F(XmlTransfer, TheFileOfTheModelsNameIsReadWithItsEndingAdded) {
  const std::string person = "<PROJ><PERSON rid='#1'><Age>41</Age></PERSON></PROJ>";
  ProjModel model;
  model.Name(MakeFile("dot.xml", person).c_str());
  EXPECT_EQ(model.ReadXml(nullptr), 0);
  const std::string bare = MakeFile("bare.stp", person);
  model.Name(bare.substr(0, bare.size() - 4).c_str());
  EXPECT_EQ(model.ReadXml(nullptr), 0);
  EXPECT_EQ(Population(model), (Texts{"PERSON(41)", "PERSON(41)"}));
}

TEST_F(XmlTransfer, AFileThatCannotBeOpenedIsNamed) {
  ProjModel model;
  const std::string missing = TempPath("missing.xml");
  model.Name(missing.c_str());
  EXPECT_EQ(model.ReadXml(nullptr), -1);
  EXPECT_EQ(TakeReports(missing), Texts{"Can't open file " + missing});
  const std::string folder = TempPath(".");
  model.Name(folder.c_str());
  EXPECT_EQ(model.ReadXml(nullptr), -1);
  EXPECT_EQ(TakeReports(folder), Texts{"Can't open file " + folder});
  const std::string longName = "/" + std::string(250, 'n') + ".x";
  model.Name(longName.c_str());
  EXPECT_EQ(model.ReadXml(nullptr), -1);
  EXPECT_EQ(TakeReports(longName), Texts{("Can't open file " + longName).substr(0, 127)});
}

// ---- the fall-back of Read -----------------------------------------------------------------------------------------

struct FallBackRow {
  std::string bytes;
  int result;
  Texts reports;
  Texts population;
};

TEST_F(XmlTransfer, ReadTurnsToXmlWhenTheModelStaysEmpty) {
  const std::string head = "ISO-10303-21;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;DATA;";
  const FallBackRow rows[] = {
      {"<PROJ><PERSON rid='#1'/></PROJ>", 0, {"(1) [Read]Not a STEP file"}, {"PERSON(0)"}},
      {"<PROJ><DOOR rid='#1'><Host>#2</Host></DOOR></PROJ>",
       1,
       {"(1) [Read]Not a STEP file", "(1) [DOOR]Unknown reference #2"},
       {"DOOR(null)"}},
      {"<PROJ><PERSON rid='#1'/>",
       -1,
       {"(1) [Read]Not a STEP file", "no element found (line 1, column 25)"},
       {"PERSON(0)"}},
      {"", -1, {"(1) [Read]Not a STEP file", "no element found (line 1, column 1)"}, {}},
      {head + "ENDSEC;END-ISO-10303-21;", -1, {"not well-formed (invalid token) (line 1, column 13)"}, {}},
      {head + "#1=NOBODY();ENDSEC;END-ISO-10303-21;",
       -1,
       {"(1) [NOBODY]Unknown entity NOBODY", "not well-formed (invalid token) (line 1, column 13)"},
       {}},
      {head + "#1=PERSON($);ENDSEC;END-ISO-10303-21;",
       2,
       {"(1) [PERSON]Missing integer", "(1) [PERSON]Syntax"},
       {"PERSON(0)"}},
  };
  for (const FallBackRow& row : rows) {
    ProjModel model;
    std::string path = MakeFile("fall_back.stp", row.bytes);
    EXPECT_EQ(model.Read(false, path.data()), row.result) << row.bytes;
    EXPECT_EQ(TakeReports(path), row.reports) << row.bytes;
    EXPECT_EQ(Population(model), row.population) << row.bytes;
  }
}

TEST_F(XmlTransfer, TheCheckOfTheSchemaHasNoPartInTheXmlPass) {
  ProjModel model;
  std::string path = MakeFile("check.xml", "<PROJ><PERSON rid='#1'/></PROJ>");
  EXPECT_EQ(model.Read(true, path.data()), 0);
  EXPECT_EQ(Population(model), Texts{"PERSON(0)"});
}

TEST_F(XmlTransfer, AModelThatHoldsInstancesNeverFallsBack) {
  ProjModel model;
  new Entity(kPerson, &model);
  std::string path = MakeFile("held.xml", "<PROJ><PERSON rid='#1'/></PROJ>");
  EXPECT_EQ(model.Read(false, path.data()), 1);
  EXPECT_EQ(TakeReports(path), Texts{"(1) [Read]Not a STEP file"});
  EXPECT_EQ(Population(model), Texts{"PERSON(0)"});
}

TEST_F(XmlTransfer, AMissingFileIsReportedByBothPasses) {
  ProjModel model;
  std::string path = TempPath("missing.stp");
  EXPECT_EQ(model.Read(false, path.data()), -1);
  EXPECT_EQ(TakeReports(path), (Texts{"(1) [Read]File not found", "Can't open file " + path}));
}

TEST_F(XmlTransfer, WithoutASchemaNothingIsReadAndNothingWritten) {
  STEPmodel bare(static_cast<STEPmodel*>(nullptr));
  std::string path = MakeFile("bare.xml", "<PROJ/>");
  EXPECT_EQ(bare.Read(false, path.data()), 1);
  EXPECT_EQ(bare.ReadXml("<PROJ/>"), 1);
  EXPECT_EQ(bare.WriteXml(path.data(), nullptr), -1);
  EXPECT_EQ(BytesOf(path), "<PROJ/>");
}

TEST_F(XmlTransfer, ASchemaWithoutANameBearsTheEmptyOne) {
  APPobject0* schema = ProjSchema();
  struct Restore {
    APPobject0* schema;
    const char* before = schema->name;
    ~Restore() { schema->name = before; }
  } const restore{schema};
  schema->name = nullptr;
  ProjModel model;
  new Entity(kPerson, &model);
  EXPECT_EQ(WrittenDocument(model),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
            "<!-- FILE_DESCRIPTION((' model', 'TOVARIN version 7, 7, 10, 29','QVN','')); -->\n"
            "<!-- FILE_NAME('PATH','DATE'); -->\n"
            "<>\n"
            "\t<PERSON rid=\"#1\"><Age>0</Age></PERSON>\n"
            "</>\n");
  EXPECT_EQ(model.ReadXml("<PROJ><PERSON rid='#1'/></PROJ>"), 0);
  EXPECT_EQ(Population(model), Texts{"PERSON(0)"}) << "no root bears that name";
  std::string path = MakeFile("nameless.stp", "");
  EXPECT_EQ(model.Write(path.data(), nullptr), 1);
  EXPECT_NE(BytesOf(path).find("\nFILE_SCHEMA((''));\n"), std::string::npos);
  ProjModel again;
  EXPECT_EQ(again.Read(true, path.data()), 0);
  EXPECT_EQ(Population(again), Texts{"PERSON(0)"});
  char name[] = "PROJ";
  char empty[] = "";
  EXPECT_FALSE(model.IsSchema(name));
  EXPECT_TRUE(model.IsSchema(empty));
}

// ---- flags, the current model, the budget --------------------------------------------------------------------------

TEST_F(XmlTransfer, DuringAReadTheModelIsLockedAndCurrent) {
  ProjModel model;
  ProjModel other;
  bool isSeen = false;
  SetProbe({"", -1, [&](STEPtransfer*) {
              isSeen = model.Locked() && CurrentModel() == &model && model.ErrShow() == 1;
              auto* entity = new Entity(kPerson);
              entity->Changed();
              return entity;
            }});
  model.SetLocked(true);
  EXPECT_EQ(model.ReadXml("<PROJ><PROBE rid='#1'/></PROJ>"), 0);
  EXPECT_TRUE(isSeen);
  EXPECT_EQ(CurrentModel(), &other);
  EXPECT_FALSE(model.Locked());
  EXPECT_FALSE(model.Changed());
  EXPECT_EQ(Population(model), Texts{"PERSON(0)"});
  EXPECT_TRUE(other.IsEmpty());
}

TEST_F(XmlTransfer, DuringAWriteTheModelIsLockedAndNotCurrent) {
  ProjModel model;
  new Entity(kProbe, &model);
  ProjModel other;
  bool isSeen = false;
  SetProbe({"", -1, {}, [&](STEPtransfer*) { isSeen = model.Locked() && CurrentModel() == &other; }});
  model.SetChanged(true);
  std::string path = TempPath("flags.xml");
  EXPECT_EQ(model.WriteXml(path.data(), nullptr), 1);
  EXPECT_TRUE(isSeen);
  EXPECT_FALSE(model.Locked());
  EXPECT_FALSE(model.Changed());
  EXPECT_STREQ(model.Name(), "");
}

TEST_F(XmlTransfer, TheBudgetIsFilledByEach) {
  ProjModel model(3);
  const auto budget = [&] {
    int count = 0;
    while (model.ErrShow()) ++count;
    return count;
  };
  model.ReadXml("<PROJ/>");
  EXPECT_EQ(budget(), 3);
  std::string path = TempPath("budget.xml");
  model.WriteXml(path.data(), nullptr);
  EXPECT_EQ(budget(), 3);
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

// ---- exceptions of the client --------------------------------------------------------------------------------------

TEST_F(XmlTransfer, WhatAReadFunctionThrowsComesOutAndLeavesTheModelSound) {
  ProjModel model;
  ProjModel other;
  int calls = 0;
  SetProbe({"", -1, [&](STEPtransfer*) -> STEPheader* {
              ++calls;
              throw std::runtime_error("from the client");
            }});
  const std::string document = "<PROJ><PERSON rid='#1'/><PROBE rid='#2'><A>1</A></PROBE><PROBE rid='#3'/></PROJ>";
  const std::string path = MakeFile("throwing.xml", document);
  model.Name(path.c_str());
  for (const char* text : {document.c_str(), static_cast<const char*>(nullptr)}) {
    try {
      model.ReadXml(text);
      ADD_FAILURE() << "nothing came out";
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), "from the client");
    }
    EXPECT_FALSE(model.Locked());
    EXPECT_EQ(CurrentModel(), &other);
  }
  EXPECT_EQ(calls, 2) << "one for each read";
  EXPECT_EQ(Population(model), (Texts{"PERSON(0)", "PERSON(0)"}));
}

void ThrowReport(const char* text) { throw std::runtime_error(text); }

TEST_F(XmlTransfer, WhatAnErrorProcedureThrowsComesOutToo) {
  APPobject0* schema = ProjSchema();
  struct Restore {
    APPobject0* schema;
    STEPerrorProc before = schema->errorProc;
    ~Restore() { schema->errorProc = before; }
  } const restore{schema};
  schema->errorProc = ThrowReport;
  ProjModel model;
  for (const char* document : {"<PROJ><PERSON/></PROJ>", "<PROJ", "<PROJ><DOOR rid='#1'><Host>#2</Host></DOOR></PROJ>",
                               "<PROJ><DOOR rid='#1'/><DOOR rid='#1'/></PROJ>"}) {
    EXPECT_THROW(model.ReadXml(document), std::runtime_error) << document;
    EXPECT_FALSE(model.Locked());
  }
}

TEST_F(XmlTransfer, WhatAWriteFunctionThrowsComesOut) {
  ProjModel model;
  new Entity(kProbe, &model);
  SetProbe({"", -1, {}, [](STEPtransfer*) { throw std::runtime_error("from the client"); }});
  std::string path = TempPath("throwing_write.xml");
  EXPECT_THROW(model.WriteXml(path.data(), nullptr), std::runtime_error);
  EXPECT_FALSE(model.Locked());
}

}  // namespace
