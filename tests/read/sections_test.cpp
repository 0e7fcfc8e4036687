// The sections of a file: keywords, their order, the header's records, the names of schemas, where a read ends.
#include <gtest/gtest.h>

#include "support/proj_schema.h"
#include "support/table.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

// Bytes, population, reports. In the bytes, ~ stands for a header and a DATA section, ^ for the rest of a file whose
// header has begun.
void ExpectRows(const char* table, bool check = false) {
  for (Texts& row : Table(table, 3)) {
    std::string& bytes = row[0];
    if (const auto at = bytes.find('~'); at != bytes.npos)
      bytes.replace(at, 1, "HEADER;ENDSEC;DATA;#1=PERSON(1);ENDSEC;");
    if (const auto at = bytes.find('^'); at != bytes.npos)
      bytes.replace(at, 1, "ENDSEC;DATA;#1=PERSON(1);ENDSEC;ENDSTEP;");
    const Texts reports = ItemsOf(row[2]);
    EXPECT_EQ(ReadBytes(bytes, check), (Outcome{static_cast<int>(reports.size()), reports, ItemsOf(row[1])})) << bytes;
  }
}

TEST(Sections, AFileStartsAndEndsWithEitherKeywordInAnyCase) {
  ExpectRows(R"(
    ISO-10303-21;~END-ISO-10303-21;                                                  | PERSON(1)
    step\nheader endsec data #1=person(1) endsec endstep                             | PERSON(1)
    anything /* 'at' all */ #7=FIRST(); STEP;~ENDSTEP; #2=PERSON(2);                 | PERSON(1)
    STEP;ENDSTEP;                                                                    |
    // Another first keyword is refused.
    \x20\x20             |  | (1) [Read]Not a STEP file
    <xml>\n</xml>\n      |  | (3) [Read]Not a STEP file
  )");
  EXPECT_EQ(ReadBytes(""), (Outcome{1, {"(1) [Read]Not a STEP file"}, {}}));
}

TEST(Sections, TheReadEndsWithTheFileOrAtANameThatIsNoSection) {
  ExpectRows(R"(
    STEP;\x20                                  |           | (1) [Read]Missing section
    STEP;HEADER;                               |           | (1) [Read]Missing ENDSEC
    STEP;HEADER;ENDSEC;\nDATA;\n#1=PERSON(1);  | PERSON(1) | (3) [PERSON]Missing ENDSEC
    STEP;~                                     | PERSON(1) | (1) [PERSON]Missing section
    STEP;DATA;#1=PERSON(1 | PERSON(0) | (1) [PERSON]Unexpected EOF & (1) [PERSON]Missing integer & (1) [PERSON]Syntax & (1) [PERSON]Missing ENDSEC
    STEP;DATA;#1\x20                           |           | (1) [Read]Missing ENDSEC
    STEP;DATA;#1=PERSON\x20                    |           | (1) [PERSON]Syntax & (1) [PERSON]Missing ENDSEC
    // A keyword out of place costs one report.
    STEP;STEP;~ENDSTEP;          | PERSON(1) | (1) [Read]Missing section
    STEP;ENDSEC;~ENDSEC;ENDSTEP; | PERSON(1) | (1) [Read]Missing section & (1) [PERSON]Missing section
    STEP;~DATA;#2=DOOR(#3);ENDSEC;DATA;#3=WALL('',0.,$,$,(),.F.);ENDSEC;ENDSTEP; | PERSON(1) & DOOR(@3) & WALL('',0,null,[],[],F)
    STEP;DATA;#1=PERSON(1);HEADER;DATA;#2=PERSON(2);ENDSEC;ENDSTEP; | PERSON(1) & PERSON(2) | (1) [PERSON]Missing ENDSEC
    STEP;DATA;#1=PERSON(1);ENDSTEP; | PERSON(1) | (1) [PERSON]Missing ENDSEC & (1) [PERSON]Missing section
    // A name in place of a record ends the section, and an unknown one the read.
    STEP;DATA;#1=PERSON(1);OTHER;#2=PERSON(2);ENDSEC;ENDSTEP;       | PERSON(1)  | (1) [PERSON]Missing ENDSEC
    STEP;DATA;\n/* a comment */#1=PERSON(1);ENDSEC;ENDSTEP;         |            | (2) [Read]Missing ENDSEC
    STEP;DATA;#1=PERSON(1);#2=(A()B());#3=PERSON(3);ENDSEC;         | PERSON(1)  | (1) [PERSON]Missing ENDSEC
    STEP;DATA;#1=DOOR(#2);#2=!OWN(1);ENDSEC; | DOOR(null) | (1) [DOOR]Missing ENDSEC & (1) [DOOR]Reference to unknown object #2
    STEP;DATA;#1=DOOR(#3);#2 PERSON(1);#3=DOOR();ENDSEC; | DOOR(null) | (1) [DOOR]Missing ENDSEC & (1) [DOOR]Unknown reference #3
    STEP;DATA;1 .T. ) $ 'x' = , #1=PERSON(1);ENDSEC;ENDSTEP;        | PERSON(1)
  )");
}

TEST(Header, OfItsRecordsOnlyTheNamesOfSchemasAreKept) {
  ExpectRows(R"(
    STEP;HEADER;FILE_DESCRIPTION(('a;\nb),(unknown(1;\n~ENDSTEP; | PERSON(1) | (1) [FILE_DESCRIPTION]Unterminated textstring & (3) [FILE_DESCRIPTION]Unknown entity HEADER
    STEP;HEADER;file_name('x',('y'),$);FILE_DESCRIPTION();^ | PERSON(1)
    STEP;HEADER;DATA;#1=PERSON(1);ENDSEC;ENDSTEP; | | (1) [Read]Unknown entity DATA & (1) [Read]Unknown entity PERSON
    STEP;HEADER;FILE_NAME;FILE_SCHEMA('PROJ');\nFILE_SCHEMA(('A') 1);FILE_SCHEMA(('A');ENDSEC;ENDSTEP; | | (1) [FILE_NAME]Syntax error in: FILE_NAME & (2) [FILE_SCHEMA]Syntax error in: FILE_SCHEMA
    STEP;HEADER;FILE_SCHEMA('PROJ');FILE_SCHEMA(('A',1));ENDSEC;ENDSTEP; | | (1) [FILE_SCHEMA]Missing text in list & (1) [FILE_SCHEMA]Missing text in list
    STEP;HEADER;FILE_NAME('x'\x20 | | (1) [FILE_NAME]Syntax error in: FILE_NAME & (1) [FILE_NAME]Missing ENDSEC
  )");
}

TEST(Header, ACheckedReadTakesDataOfAListedSchemaAlone) {
  ExpectRows(R"(
    STEP;HEADER;FILE_SCHEMA(('PROJ'));^     | PERSON(1)
    STEP;HEADER;FILE_SCHEMA(('a','proj'));^ | PERSON(1)
    STEP;HEADER;FILE_SCHEMA(('OTHER'));^    | | (1) [FILE_SCHEMA]Data does not belong to schema 'PROJ'
    STEP;HEADER;FILE_SCHEMA(('PROJ '));^    | | (1) [FILE_SCHEMA]Data does not belong to schema 'PROJ'
    STEP;HEADER;FILE_SCHEMA(());^           | | (1) [FILE_SCHEMA]Data does not belong to schema 'PROJ'
    STEP;HEADER;^                           | | (1) [Read]Data does not belong to schema 'PROJ'
    // A later record's names take the place of the earlier ones, unless it has none.
    STEP;HEADER;FILE_SCHEMA(('OTHER','X'));FILE_SCHEMA(('PROJ'));^ | PERSON(1)
    STEP;HEADER;FILE_SCHEMA(;FILE_SCHEMA(('PROJ'));^               | PERSON(1)
    STEP;HEADER;FILE_SCHEMA(('PROJ'));FILE_SCHEMA(());^            | PERSON(1)
    STEP;HEADER;FILE_SCHEMA();FILE_SCHEMA(('PROJ'));^              | PERSON(1) | (1) [FILE_SCHEMA]Missing text in list
    // That of a later header as well, whatever was listed when the data in front of it was read.
    STEP;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;DATA;#2=PERSON(2);ENDSEC;HEADER;FILE_SCHEMA(('OTHER'));^ | PERSON(2) | (1) [FILE_SCHEMA]Data does not belong to schema 'PROJ'
  )",
             true);
  ExpectRows("STEP;HEADER;FILE_SCHEMA(('OTHER'));^ | PERSON(1)");
}

TEST(Sections, AFileThatIsNotThereOrIsAFolderIsNotFound) {
  for (std::string path : {"/nowhere/at/all.stp", "/tmp/."}) {
    EXPECT_EQ(STEPread(path.data(), ProjSchema(), false), 1);
    EXPECT_EQ(TakeReports(path), Texts{"(1) [Read]File not found"});
  }
}

}  // namespace
