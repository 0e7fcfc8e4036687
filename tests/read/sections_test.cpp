// The sections of a file: keywords, their order, the header's records, the names of schemas, where a read ends.
#include <gtest/gtest.h>

#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

struct Row {
  std::string bytes;
  Texts population;
  Texts reports = {};
  bool check = false;
};

void ExpectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    const Outcome outcome = ReadBytes(row.bytes, row.check);
    EXPECT_EQ(outcome.population, row.population) << row.bytes;
    EXPECT_EQ(outcome.reports, row.reports) << row.bytes;
    EXPECT_EQ(outcome.result, static_cast<int>(row.reports.size())) << row.bytes;
  }
}

const std::string kSound = "HEADER;ENDSEC;DATA;#1=PERSON(1);ENDSEC;";

TEST(Sections, AFileStartsAndEndsWithEitherKeywordInAnyCase) {
  ExpectRows({
      {"ISO-10303-21;" + kSound + "END-ISO-10303-21;", {"PERSON(1)"}},
      {"STEP;" + kSound + "ENDSTEP;", {"PERSON(1)"}},
      {"step\nheader endsec data #1=person(1) endsec endstep", {"PERSON(1)"}},
      {"anything /* 'at' all */ #7=FIRST(); STEP;" + kSound + "ENDSTEP; #2=PERSON(2);", {"PERSON(1)"}},
      {"STEP;ENDSTEP;", {}},
  });
}

TEST(Sections, AFileWithAnotherFirstKeywordIsRefused) {
  ExpectRows({
      {"", {}, {"(1) [Read]Not a STEP file"}},
      {"   ", {}, {"(1) [Read]Not a STEP file"}},
      {"<xml>\n</xml>\n", {}, {"(3) [Read]Not a STEP file"}},
      {"HEADER;ENDSEC;", {}, {"(1) [Read]Not a STEP file"}},
      {"ENDSTEP;STEP;" + kSound, {}, {"(1) [Read]Not a STEP file"}},
  });
}

TEST(Sections, TheEndOfTheFileEndsTheReadWhereverItStands) {
  ExpectRows({
      {"STEP; ", {}, {"(1) [Read]Missing section"}},
      {"STEP;HEADER;", {}, {"(1) [Read]Missing ENDSEC"}},
      {"STEP;HEADER;ENDSEC;\nDATA;\n#1=PERSON(1);", {"PERSON(1)"}, {"(3) [PERSON]Missing ENDSEC"}},
      {"STEP;" + kSound, {"PERSON(1)"}, {"(1) [PERSON]Missing section"}},
      {"STEP;DATA;#1=PERSON(1",
       {"PERSON(0)"},
       {"(1) [PERSON]Unexpected EOF", "(1) [PERSON]Missing integer", "(1) [PERSON]Syntax",
        "(1) [PERSON]Missing ENDSEC"}},
      {"STEP;DATA;#1 ", {}, {"(1) [Read]Missing ENDSEC"}},
      {"STEP;DATA;#1=PERSON ", {}, {"(1) [PERSON]Syntax", "(1) [PERSON]Missing ENDSEC"}},
  });
}

TEST(Sections, AKeywordOutOfPlaceCostsOneReport) {
  ExpectRows({
      {"STEP;STEP;" + kSound + "ENDSTEP;", {"PERSON(1)"}, {"(1) [Read]Missing section"}},
      {"STEP;ENDSEC;" + kSound + "ENDSEC;ENDSTEP;",
       {"PERSON(1)"},
       {"(1) [Read]Missing section", "(1) [PERSON]Missing section"}},
      {"STEP;" + kSound + "DATA;#2=DOOR(#3);ENDSEC;DATA;#3=WALL('',0.,$,$,(),.F.);ENDSEC;ENDSTEP;",
       {"PERSON(1)", "DOOR(@3)", "WALL('',0,null,[],[],F)"}},
      {"STEP;DATA;#1=PERSON(1);HEADER;DATA;#2=PERSON(2);ENDSEC;ENDSTEP;",
       {"PERSON(1)", "PERSON(2)"},
       {"(1) [PERSON]Missing ENDSEC"}},
      {"STEP;DATA;#1=PERSON(1);ENDSTEP;", {"PERSON(1)"}, {"(1) [PERSON]Missing ENDSEC", "(1) [PERSON]Missing section"}},
  });
}

TEST(Sections, ANameInPlaceOfARecordEndsTheSectionAndAnUnknownOneTheRead) {
  ExpectRows({
      {"STEP;DATA;#1=PERSON(1);OTHER;#2=PERSON(2);ENDSEC;ENDSTEP;", {"PERSON(1)"}, {"(1) [PERSON]Missing ENDSEC"}},
      {"STEP;DATA;\n/* a comment */#1=PERSON(1);ENDSEC;ENDSTEP;", {}, {"(2) [Read]Missing ENDSEC"}},
      {"STEP;DATA;#1=PERSON(1);#2=(A()B());#3=PERSON(3);ENDSEC;", {"PERSON(1)"}, {"(1) [PERSON]Missing ENDSEC"}},
      {"STEP;DATA;#1=DOOR(#2);#2=!OWN(1);ENDSEC;",
       {"DOOR(null)"},
       {"(1) [DOOR]Missing ENDSEC", "(1) [DOOR]Reference to unknown object #2"}},
      {"STEP;DATA;#1=DOOR(#3);#2 PERSON(1);#3=DOOR();ENDSEC;",
       {"DOOR(null)"},
       {"(1) [DOOR]Missing ENDSEC", "(1) [DOOR]Unknown reference #3"}},
      {"STEP;DATA;1 .T. ) $ 'x' = , #1=PERSON(1);ENDSEC;ENDSTEP;", {"PERSON(1)"}},
  });
}

TEST(Header, OfItsRecordsOnlyTheNamesOfSchemasAreKept) {
  ExpectRows({
      {"STEP;HEADER;FILE_DESCRIPTION(('a;\nb),(unknown(1;\n" + kSound + "ENDSTEP;",
       {"PERSON(1)"},
       {"(1) [FILE_DESCRIPTION]Unterminated textstring", "(3) [FILE_DESCRIPTION]Unknown entity HEADER"}},
      {"STEP;HEADER;file_name('x',('y'),$);FILE_DESCRIPTION();" + kSound.substr(7) + "ENDSTEP;", {"PERSON(1)"}},
      {"STEP;HEADER;DATA;#1=PERSON(1);ENDSEC;ENDSTEP;",
       {},
       {"(1) [Read]Unknown entity DATA", "(1) [Read]Unknown entity PERSON"}},
      {"STEP;HEADER;FILE_NAME;FILE_SCHEMA('PROJ');\nFILE_SCHEMA(('A') 1);FILE_SCHEMA(('A');ENDSEC;ENDSTEP;",
       {},
       {"(1) [FILE_NAME]Syntax error in: FILE_NAME", "(2) [FILE_SCHEMA]Syntax error in: FILE_SCHEMA"}},
      {"STEP;HEADER;FILE_SCHEMA('PROJ');FILE_SCHEMA(('A',1));ENDSEC;ENDSTEP;",
       {},
       {"(1) [FILE_SCHEMA]Missing text in list", "(1) [FILE_SCHEMA]Missing text in list"}},
      {"STEP;HEADER;FILE_NAME('x' ",
       {},
       {"(1) [FILE_NAME]Syntax error in: FILE_NAME", "(1) [FILE_NAME]Missing ENDSEC"}},
  });
}

TEST(Header, ACheckedReadTakesDataOfAListedSchemaAlone) {
  const Texts refused = {"(1) [FILE_SCHEMA]Data does not belong to schema 'PROJ'"};
  const std::string data = "ENDSEC;DATA;#1=PERSON(1);ENDSEC;ENDSTEP;";
  const auto file = [&](const char* header) { return std::string("STEP;HEADER;") + header + data; };
  ExpectRows({
      {file("FILE_SCHEMA(('PROJ'));"), {"PERSON(1)"}, {}, true},
      {file("FILE_SCHEMA(('a','proj'));"), {"PERSON(1)"}, {}, true},
      {file("FILE_SCHEMA(('OTHER'));"), {}, refused, true},
      {file("FILE_SCHEMA(('BASE'));"), {}, refused, true},
      {file("FILE_SCHEMA(('PROJ '));"), {}, refused, true},
      {file("FILE_SCHEMA(('PRO'));"), {}, refused, true},
      {file("FILE_SCHEMA(());"), {}, refused, true},
      {file("FILE_SCHEMA(('OTHER'));"), {"PERSON(1)"}, {}, false},
      {file(""), {}, {"(1) [Read]Data does not belong to schema 'PROJ'"}, true},
      // A later record's names take the place of the earlier ones, unless it has none.
      {file("FILE_SCHEMA(('PROJ'));FILE_SCHEMA(('OTHER'));"), {}, refused, true},
      {file("FILE_SCHEMA(('OTHER','X'));FILE_SCHEMA(('PROJ'));"), {"PERSON(1)"}, {}, true},
      {file("FILE_SCHEMA(;FILE_SCHEMA(('PROJ'));"), {"PERSON(1)"}, {}, true},
      {file("FILE_SCHEMA(('PROJ'));FILE_SCHEMA(());"), {"PERSON(1)"}, {}, true},
      {file("FILE_SCHEMA();FILE_SCHEMA(('PROJ'));"), {"PERSON(1)"}, {"(1) [FILE_SCHEMA]Missing text in list"}, true},
      // That of a later header as well, whatever was listed when the data in front of it was read.
      {file("FILE_SCHEMA(('PROJ'));ENDSEC;DATA;#2=PERSON(2);ENDSEC;HEADER;FILE_SCHEMA(('OTHER'));"),
       {"PERSON(2)"},
       refused,
       true},
  });
}

TEST(Sections, AFileThatIsNotThereOrIsAFolderIsNotFound) {
  for (const char* name : {"/nowhere/at/all.stp", "/tmp/."}) {
    std::string path = name;
    EXPECT_EQ(STEPread(path.data(), ProjSchema(), false), 1);
    EXPECT_EQ(TakeReports(path), Texts{"(1) [Read]File not found"});
  }
}

}  // namespace
