// ISO 10303-21 as it is published: what a standard read takes beyond the library's own form, and what it reports.
#include "steprt/standard.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/failing_new.h"
#include "support/faulty_calls.h"
#include "support/golden_files.h"
#include "support/items.h"
#include "support/proj_schema.h"
#include "support/repeat.h"
#include "support/table.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

Outcome ReadStandard(const std::string& bytes, const STEPreadOptions& options = {}) {
  ProjModel model;
  model.Name("memory.stp");
  const int result = model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
  return {result, TakeReports("memory.stp"), Population(model)};
}

// The same bytes as a file that arrives in pieces: every token crosses the border of a block once.
Outcome ReadInPieces(const std::string& bytes, int size, const STEPreadOptions& options = {}) {
  ProjModel model;
  const std::string path = MakeFile("pieces.stp", bytes);
  const FaultyCalls calls({.atMost = [=] { return size; }});
  const int result = model.ReadStandard(path.c_str(), &options);
  return {result, TakeReports(path), Population(model)};
}

Outcome ReadBothWays(const std::string& bytes, const STEPreadOptions& options = {}) {
  const Outcome outcome = ReadStandard(bytes, options);
  for (const int size : {1, 2, 7}) EXPECT_EQ(ReadInPieces(bytes, size, options), outcome) << size << " of " << bytes;
  return outcome;
}

// The values of a record, each as an item, and the reports.
Texts ItemsOfRecord(const std::string& values, const STEPreadOptions& options = {}) {
  std::string all;
  const auto read = [&](STEPtransfer* t) -> STEPheader* {
    all.clear();
    while (rSTEPkind(t, nullptr) != STEP_END) all += (all.empty() ? "" : ",") + ReadItem(t, nullptr);
    return new Entity(kProbe);
  };
  SetProbe({"", -1, read});
  Texts texts = ReadBothWays(InFrame("#1=PROBE(" + values + ");"), options).reports;
  texts.insert(texts.begin(), all);
  return texts;
}

Texts Row(const std::string& items, const std::string& reports) {
  Texts texts = ItemsOf(reports);
  texts.insert(texts.begin(), items);
  return texts;
}

TEST(Standard, TakesCommentsLongTextsAndWideNumbers) {
  for (const Texts& row : Table(R"(
    /*x*/0.,/*y*/5,(/**/2.5,/*\n*/-0.,/*x*/#7)        | 0.,5,(2.5,-0.,#7)  |
    /**/1/* a, 'b' ) ; */,/*\n\n*/2/***/               | 1,2                |
    'a'/*x*/,/* / * ** */'b/*c*/''d'                   | 'a','b/*c*/'d'     |
    .A./*x*/,$/*x*/,*/*x*/,#7/*x*/,1.5/*x*/,"0A"/*x*/  | .A.,$,*,#7,1.5,"0A" |
    KEY/*x*/(/*y*/1/*z*/)                              | KEY(1)             |
    (1/*x*/,/*y*/(2))                                  | (1,(2))            |
    'one\r\ntwo\nthree'                                | 'onetwothree'      |
    !MINE('x'),_K(1)                                   | !MINE('x'),_K(1)   |
    2147483647,-2147483648,+5,007                      | 2147483647,-2147483648,+5,007 |
    2147483648                                         | 2147483648         | (1) [PROBE]Integer out of range
    -99999999999999999999                              | -99999999999999999999 | (1) [PROBE]Integer out of range
    1/2                                                | 1/2                |
    "0A  1\r\n2B",3,"\n0\n"                            | "0A12B",3,"0"      |
    "0A\n2B,1                                          | "0A2B",1           | (1) [PROBE]Unterminated binary
    "0A,1                                              | "0A",1             | (1) [PROBE]Unterminated binary
    "                                                  | ""                 | (1) [PROBE]Unterminated binary
    #PI,#,#0,#12X,1                                    | #PI,#,#0,#12X,1    | (1) [PROBE]Invalid instance name & (1) [PROBE]Invalid instance name & (1) [PROBE]Invalid instance name
    #18446744073709551616                              | #18446744073709551616 | (1) [PROBE]Instance name out of range
  )",
                                3)) {
    EXPECT_EQ(ItemsOfRecord(row[0]), Row(row[1], row[2])) << row[0];
  }
}

TEST(Standard, TakesTokensOfAnyLength) {
  const std::string text = Repeat(1000, "text ");
  const std::string binary = '"' + Repeat(1000, "0A1F") + '"';
  const std::string all =
      "'" + text + "''" + text + "'," + binary + ",." + std::string(700, 'E') + ".," + std::string(300, 'K') + "(1)";
  EXPECT_EQ(ItemsOfRecord(all), Texts{"'" + text + "'" + text + "'," + binary + ",." + std::string(700, 'E') + ".," +
                                      std::string(300, 'K') + "(1)"});
  for (const std::size_t length : {255U, 256U, 257U, 258U}) {  // about the size of the transfer's own buffer
    const std::string value = "'" + std::string(length, 'x') + "'";
    EXPECT_EQ(ItemsOfRecord(value + ",1"), Texts{value + ",1"}) << length;
  }
  STEPreadOptions options;
  options.tokenLimit = 300;
  EXPECT_EQ(ItemsOfRecord("'" + std::string(300, 'x') + "'", options), Texts{"'" + std::string(300, 'x') + "'"});
  EXPECT_EQ(ItemsOfRecord("'" + std::string(301, 'x') + "',5", options),
            (Texts{"'" + std::string(300, 'x') + "',5", "(1) [PROBE]Too long element, truncated"}));
}

// Sections, and records that cannot be read: each costs one report, and the read goes on.
TEST(Standard, ReadsOnToTheEndOfTheFile) {
  const std::string start = "ISO-10303-21;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;\n";
  const std::string data = "DATA;#1=PERSON(1);ENDSEC;";
  const std::string end = "\nEND-ISO-10303-21;";
  struct Case {
    std::string bytes;
    Texts reports;
    int persons;
  };
  for (const Case& each : std::vector<Case>{
           {"\xEF\xBB\xBF" + start + data + end, {}, 1},
           {"/* c */ISO-10303-21/**/;/* HEADER; */HEADER;/*x*/FILE_SCHEMA/*y*/(/*z*/('PROJ'));ENDSEC;" + data + end,
            {},
            1},
           {start + "DATA ( 'one' , ( 'PROJ' ) ) ;#1=PERSON(1);ENDSEC;DATA('two',('PROJ'));#2=PERSON(2);ENDSEC;" + end,
            {},
            2},
           {start + data + " END-ISO-10303-21 ;" + data, {"(2) [PERSON]Entity #1 already used"}, 2},
           {start + "ANCHOR;<a>=#1;ENDSEC;REFERENCE;#5=<b#c>;ENDSEC;" + data + end + "SIGNATURE;MIIB/0A==;ENDSEC;",
            {"(2) [FILE_SCHEMA]Section ANCHOR is not read", "(2) [FILE_SCHEMA]Section REFERENCE is not read",
             "(3) [PERSON]Section SIGNATURE is not read"},
            1},
           {start + "DATA;#1=PERSON(1);\n#2=PERSON(#1);#3=(PERSON(1);#4=();#5=(1);ENDSEC;" + end,
            {"(3) [PERSON]Missing integer", "(3) [PERSON]Syntax", "(3) [PERSON]Syntax", "(3) [PERSON]Syntax"},
            2},
           {start + "DATA;#1=!MINE('a;b',(1));#2 PERSON(1);#3=5;word (1);#4=PERSON(4);ENDSEC;" + end,
            {"(2) [!MINE]Unknown entity !MINE", "(2) [!MINE]Syntax", "(2) [!MINE]Syntax", "(2) [!MINE]Syntax"},
            1},
           {start + "DATA;#1=PERSON(1);" + end + data,
            {"(3) [PERSON]Missing ENDSEC", "(3) [PERSON]Entity #1 already used"},
            2},
           {start +
                "ANCHOR;<o'clock>=#99999999999{a:'ENDSEC;'};<\nx>=$;/*ENDSEC;*/ENDSECT;ENDSEC=1;\"ENDSEC;\"\nendsec "
                ";" +
                data + "SIGNATURE;MIIB/+*'ENDSEC;ENDSEC/**/;" + data,
            {"(2) [FILE_SCHEMA]Section ANCHOR is not read", "(4) [PERSON]Section SIGNATURE is not read",
             "(4) [PERSON]Missing ENDSEC"},
            1},
           {start + "REFERENCE;<",
            {"(2) [FILE_SCHEMA]Section REFERENCE is not read", "(2) [FILE_SCHEMA]Missing ENDSEC"},
            0},
           {start +
                "DATA;#1=&SCOPE #2=PERSON(2);#3=&SCOPE\n#4=PERSON(4);ENDSCOPE PERSON(3);ENDSCOPE/#2,\n#4/"
                "PERSON(1);#5=PERSON(5);ENDSEC;" +
                end,
            {},
            5},
           {start + "DATA;#1=&SCOPE #2=PERSON(2);ENDSEC;" + end, {"(2) [PERSON]Syntax"}, 1},
           {start +
                "DATA;#1=&SCOPE ENDSCOPE;#2=PERSON(2);ENDSCOPE PERSON(1);#3=&SCOPE ENDSCOPE /#3;#4=PERSON(4);ENDSEC;" +
                end,
            {"(2) [FILE_SCHEMA]Syntax", "(2) [PERSON]Syntax", "(2) [PERSON]Syntax"},
            2},
           {start + "DATA(;#1=PERSON(1);ENDSEC;" + end, {}, 1},
           {start + "ENDSEC;" + data + end, {"(2) [FILE_SCHEMA]Missing section"}, 1},
           {start + "DATA;#1=PERSON(1);/* to the end",
            {"(2) [PERSON]Unterminated comment", "(2) [PERSON]Missing ENDSEC"},
            1},
           {start + "DATA;#1=NOTE('to the end",
            {"(2) [NOTE]Unterminated textstring", "(2) [NOTE]Unexpected EOF", "(2) [NOTE]Missing text",
             "(2) [NOTE]Syntax", "(2) [NOTE]Missing ENDSEC"},
            0},
           {"DATA;#1=PERSON(1);ENDSEC;", {"(1) [Read]Not a STEP file"}, 1},
           {"", {"(1) [Read]Not a STEP file"}, 0},
       }) {
    const Outcome outcome = ReadBothWays(each.bytes);
    EXPECT_EQ(outcome.reports, each.reports) << each.bytes;
    EXPECT_EQ(outcome.result, static_cast<int>(each.reports.size())) << each.bytes;
    const auto persons = std::count_if(outcome.population.begin(), outcome.population.end(),
                                       [](const std::string& text) { return text.rfind("PERSON", 0) == 0; });
    EXPECT_EQ(persons, each.persons) << each.bytes;
  }
}

// A value that is passed over ends at its own bracket, not at the first one.
TEST(Standard, PassesOverNestedValuesWhole) {
  SetProbe({"ti"});
  EXPECT_EQ(ReadBothWays(InFrame("#1=PROBE((1,(2,(3)),4),5);")),
            (Outcome{1, {"(1) [PROBE]Missing text"}, {"PROBE('',5)"}}));
}

TEST(Standard, TakesInstanceNamesOf64Bits) {
  SetProbe({"fff"});
  const std::string big = "18446744073709551615";
  EXPECT_EQ(ReadBothWays(InFrame("#2147483648=PERSON(1);#1=PROBE(#2147483648,#" + big + ",#0000000000000000000002);#" +
                                 big + "=PERSON(2);#2=PERSON(3);")),
            (Outcome{0, {}, {"PERSON(1)", "PROBE(@1,@3,@4)", "PERSON(2)", "PERSON(3)"}}));
  EXPECT_EQ(
      ReadBothWays(InFrame("#1=PROBE(#99999999999,#2,#3);#88888888888=PERSON(1);#88888888888=PERSON(2);")).reports,
      (Texts{"(1) [PERSON]Entity #88888888888 already used", "(1) [PROBE]Unknown reference #3",
             "(1) [PROBE]Unknown reference #2", "(1) [PROBE]Unknown reference #99999999999"}));
  EXPECT_EQ(ReadBothWays(InFrame("#1=PROBE(#PI,#0,#18446744073709551616);#PI=PERSON(1);#=PERSON(1);#0=PERSON(1);\n"
                                 "#18446744073709551616=PERSON(1);#2=PERSON(2);")),
            (Outcome{7,
                     {"(1) [PROBE]Invalid instance name", "(1) [PROBE]Instance name out of range",
                      "(1) [PROBE]Invalid instance name", "(1) [PROBE]Invalid instance name",
                      "(1) [PROBE]Invalid instance name", "(2) [PROBE]Instance name out of range",
                      "(1) [PROBE]Unknown reference #0"},
                     {"PROBE(kept,kept,kept)", "PERSON(2)"}}));
  std::string records;
  for (int i = 0; i < 1000; ++i) records += "#" + std::to_string(5'000'000'000 + i * 77) + "=PERSON(1);";
  EXPECT_EQ(ReadStandard(InFrame(records)).population.size(), 1000U);
}

TEST(Standard, ChecksTheSchemaWithoutItsObjectIdentifier) {
  STEPreadOptions options;
  options.check = true;
  struct Case {
    const char* names;
    bool fits;
  };
  for (const Case& each :
       {Case{"'PROJ'", true}, Case{"'proj { 1 0 10303 99 }'", true}, Case{"'PROJ{1}'", true},
        Case{"'OTHER','PROJ\t{'", true}, Case{"'PROJECT'", false}, Case{"'PRO'", false}, Case{"", false}}) {
    const std::string bytes = "ISO-10303-21;HEADER;FILE_SCHEMA((" + std::string(each.names) +
                              "));ENDSEC;DATA;#1=PERSON(1);ENDSEC;END-ISO-10303-21;";
    EXPECT_EQ(ReadBothWays(bytes, options).result, each.fits ? 0 : 1) << each.names;
    EXPECT_EQ(ReadStandard(bytes).result, 0) << each.names;
  }
}

// What the library's own form takes without a report, a standard read takes alike.
TEST(Standard, ReadsSoundFilesOfTheOwnFormAlike) {
  int sound = 0;
  for (const GoldenFile& file : GoldenFiles(Form::kClearText)) {
    const Outcome own = ReadBytes(file.bytes);
    if (own.result != 0) continue;
    ++sound;
    const Outcome outcome = ReadStandard(file.bytes);
    EXPECT_EQ(outcome.reports, Texts{}) << file.path;
    EXPECT_EQ(outcome.population, own.population) << file.path;
  }
  EXPECT_GT(sound, 1);
}

TEST(Standard, AnswersWhenMemoryRunsOut) {
  const std::string bytes = InFrame("#99999999999=NOTE('" + std::string(5000, 'x') + "');#5=NOTE('y');");
  const Outcome sound = ReadStandard(bytes);
  EXPECT_EQ(sound.result, 0);
  for (long nth = 1;; ++nth) {
    ASSERT_LT(nth, 100);
    ProjModel model;
    model.Name("memory.stp");
    Outcome outcome = {0, {}, {}};
    bool hasFailed = false;
    {
      const FailingNew fail(nth);
      outcome.result = model.ReadStandardFromMemory(bytes.data(), bytes.size());
      hasFailed = fail.HasFailed();
    }
    outcome.reports = TakeReports("memory.stp");
    outcome.population = Population(model);
    EXPECT_TRUE(outcome == sound || outcome.result > 0) << nth;  // what only makes it faster may be missing
    if (!hasFailed) break;
  }
}

TEST(Standard, AnswersWithoutAFileOrASchema) {
  ProjModel model;
  const std::string missing = TempPath("missing.stp");
  EXPECT_EQ(model.ReadStandard(missing.c_str()), 1);
  EXPECT_EQ(TakeReports(missing), Texts{"(1) [Read]File not found"});
  EXPECT_FALSE(model.Locked());
  EXPECT_EQ(model.ReadStandardFromMemory(nullptr, 0), 1);
  EXPECT_EQ(TakeReports(missing), Texts{"(1) [Read]Not a STEP file"});
  STEPmodel bare;
  EXPECT_EQ(bare.ReadStandard("any.stp"), 1);
  EXPECT_EQ(STEPreadStandard(nullptr, "", 0, ProjSchema(), nullptr), 1);
  EXPECT_EQ(STEPreadStandard("any.stp", "", 0, nullptr, nullptr), 1);
}

}  // namespace
