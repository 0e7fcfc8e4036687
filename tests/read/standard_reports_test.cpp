// What a program is told of each report of a standard read: code, place, record and attribute. And its progress.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "read/transfer/codes.h"
#include "steprt/standard.h"
#include "support/faulty_calls.h"
#include "support/proj_schema.h"
#include "support/repeat.h"
#include "support/table.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

// One report: "code line:column@offset #instance keyword attribute".
void Collect(const STEPdiagnostic* d, void* context) {
  static_cast<Texts*>(context)->push_back((d->severity == STEP_WARNING ? "warning " : "") + std::string(d->code) + " " +
                                          std::to_string(d->line) + ":" + std::to_string(d->column) + "@" +
                                          std::to_string(d->offset) + " #" + std::to_string(d->instance) + " " +
                                          (d->keyword ? d->keyword : "-") + " " + (d->attribute ? d->attribute : "-"));
}

// `size`: the bytes that each read of the file returns; 0: the file is in memory.
Texts Diagnose(const std::string& bytes, int size = 0) {
  Texts all;
  STEPreadOptions options;
  options.diagnose = Collect;
  options.context = &all;
  STEPfileHeader header;
  options.header = &header;
  ProjModel model;
  int result = 0;
  if (size == 0) {
    result = model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
  } else {
    const FaultyCalls calls({.atMost = [=] { return size; }});
    result = model.ReadStandard(MakeFile("diagnosed.stp", bytes).c_str(), &options);
  }
  TakeReports("");
  EXPECT_EQ(result, static_cast<int>(all.size())) << bytes;
  return all;
}

Texts DiagnoseBothWays(const std::string& bytes) {
  const Texts all = Diagnose(bytes);
  for (const int size : {1, 2, 3, 7, 50}) EXPECT_EQ(Diagnose(bytes, size), all) << size << " of " << bytes;
  return all;
}

// The start of each row is on line 2 and the line after it begins a record that is sound.
const std::string kStart = "ISO-10303-21;HEADER;FILE_SCHEMA(('PROJ'));ENDSEC;DATA;\n";

std::string At(int line, int column, const std::string& bytes) {
  std::size_t offset = 0;
  for (int i = 1; i < line; ++i) offset = bytes.find('\n', offset) + 1;
  return std::to_string(line) + ":" + std::to_string(column) + "@" +
         std::to_string(offset + static_cast<std::size_t>(column) - 1);
}

// A row is a record, and for each report its code, line and column, and what it is about. PROBE has one attribute of
// each kind, A to H; a reference must be to a WALL.
TEST(StandardReports, TellThePlaceOfTheTokenAtFault) {
  SetProbe({"tribleft", kWall});
  for (const Texts& row : Table(R"(
    #1=PROBE('a',1.,5,.T.,.T.,.RED.,#9,'h');       | dangling-reference 2:33 #1 PROBE G
    #1=PROBE('a',1.,5,.T.,.T.,.RED.,\n/*#*/ #8 ,'');#2=PERSON(1);#8=PERSON(2); | wrong-reference 3:7 #1 PROBE G
    #1=PROBE('a',1.,5,.T.,.T.,.RED., 5 ,'');       | missing-reference 2:34 #1 PROBE G
    #1=PROBE('a',1.,5,.T.,.T.,.RED.,(#1,(2)),'');  | missing-reference 2:33 #1 PROBE G
    #1=PROBE(5,1.,5,.T.,.T.,.RED.,$,'');           | missing-text 2:10 #1 PROBE A
    #1=PROBE(/*x*/5,*7,"0A"B,.T.,.T.,.RED.,$,'');   | missing-text 2:15 #1 PROBE A & missing-real 2:17 #1 PROBE B & missing-integer 2:17 #1 PROBE C & missing-logical 2:18 #1 PROBE E & missing-enumerator 2:20 #1 PROBE F & missing-reference 2:24 #1 PROBE G & missing-text 2:26 #1 PROBE H & syntax 2:29 #1 PROBE -
    #1=PROBE('a','it''s',2,.T.,.T.,.RED.,$,'');    | missing-real 2:14 #1 PROBE B & missing-integer 2:14 #1 PROBE C & missing-boolean 2:14 #1 PROBE D & missing-logical 2:22 #1 PROBE E & unknown-enumerator 2:24 #1 PROBE F & missing-reference 2:28 #1 PROBE G & missing-text 2:32 #1 PROBE H & syntax 2:37 #1 PROBE -
    #1=PROBE('a',1.,5,.X.,.T.,.RED.,$,'');         | unknown-boolean 2:19 #1 PROBE D
    #1=PROBE('a',1.,5,.T.,.T.,\n   .PINK. /* x */ ,$,''); | unknown-enumerator 3:4 #1 PROBE F
    #1=PROBE('a',1.,99999999999,.T.,.T.,.RED.,$,''); | integer-out-of-range 2:17 #1 PROBE C
    #1=PROBE('a\nb',1.,#,.T.,.T.,.RED.,$,'');      | bad-name 3:7 #1 PROBE C & missing-integer 3:7 #1 PROBE C & missing-boolean 3:7 #1 PROBE D & unknown-enumerator 3:13 #1 PROBE F & missing-reference 3:17 #1 PROBE G & syntax 3:24 #1 PROBE -
    #1=PROBE((1,\n2),1.,5,.T.,.T.,.RED.,$,'');     | missing-text 2:10 #1 PROBE A
    #1=PROBE('a',1.,5,.T.,.T.,.RED.,$,'' 7);       | syntax 2:38 #1 PROBE -
    ; #1 = NONE(#7,'x;');                         | warning unknown-entity 2:8 #1 NONE -
    #1=!MINE/*x*/(1);                              | warning unknown-entity 2:4 #1 !MINE -
    #1=PRODUCT(1);                                 | syntax 2:4 #1 PRODUCT -
    #1=PERSON(1);#1=PERSON(2);                     | doubled-name 2:14 #1 - -
    #18446744073709551615=PERSON('x');             | missing-integer 2:30 #18446744073709551615 PERSON Age & syntax 2:30 #18446744073709551615 PERSON -
    #18446744073709551616=PERSON(1);               | large-name 2:1 #0 - -
    #1=(PERSON(1)NONE('x')PERSON($));              | warning unknown-entity 2:14 #1 NONE - & missing-integer 2:30 #1 PERSON Age & syntax 2:30 #1 PERSON -
    #1 PERSON(1);                                  | syntax 2:4 #1 - -
    word (1);                                      | syntax 2:1 #0 - -
    5,'x';                                         | syntax 2:1 #0 - -
    #1=PERSON(1)),'x';                             | syntax 2:13 #0 - -
    #1=PERSON(1)#2=PERSON(2);;                     |
    #1=PROBE('a',1.,5,.T.,.T.,.RED.,#1,'');#2=WALL('w',1.,$,(#1,$,#2,#9),(),.T.); | wrong-reference 2:58 #2 WALL Doors & dangling-reference 2:66 #2 WALL Doors & wrong-reference 2:63 #2 WALL Doors & wrong-reference 2:33 #1 PROBE G
    #1=NOTE('a\nb\nc/*                             | open-text 2:9 #1 NOTE Text & unexpected-end 2:9 #1 NOTE Text & missing-text 2:9 #1 NOTE Text & syntax 2:9 #1 NOTE - & missing-endsec 2:9 #0 - -
    #1=PERSON(1); /* a\nb                          | open-comment 2:15 #0 - - & missing-endsec 4:39 #0 - -
  )",
                                2)) {
    const std::string bytes = kStart + row[0] + "\n#77=PERSON(1);ENDSEC;END-ISO-10303-21;";
    Texts wanted;
    for (const std::string& item : ItemsOf(row[1])) {  // the offset is that of line and column
      static const std::regex place(R"((.* |)(\d+):(\d+) (.*))");
      std::smatch m;
      ASSERT_TRUE(std::regex_match(item, m, place)) << item;
      wanted.push_back(m[1].str() + At(std::stoi(m[2]), std::stoi(m[3]), bytes) + " " + m[4].str());
    }
    EXPECT_EQ(DiagnoseBothWays(bytes), wanted) << row[0];
  }
}

TEST(StandardReports, TellTheRestOfTheFile) {
  EXPECT_EQ(DiagnoseBothWays("\xEF\xBB\xBFSTEPS;HEADER;FILE_NAME(5);ENDSEC;\nDATA;#1=PERSON(1);\nANCHOR;"),
            (Texts{"not-a-step-file 1:1@3 #0 - -", "missing-text 1:24@26 #0 FILE_NAME -",
                   "missing-text 1:25@27 #0 FILE_NAME -", "syntax 3:1@56 #0 - -", "missing-endsec 3:8@63 #0 - -"}));
  EXPECT_EQ(Diagnose(""), Texts{"not-a-step-file 1:1@0 #0 - -"});
  EXPECT_EQ(Diagnose(kStart + "ENDSEC;\nANCHOR;<a>=#1;ENDSEC;\nENDSEC;"),
            (Texts{"warning section-not-read 3:1@63 #0 - -", "missing-section 4:1@85 #0 - -"}));
}

// The place is right however far the line began before it, and however many faults the line has.
TEST(StandardReports, TellTheColumnsOfALongLine) {
  const std::string record = "#1=PERSON($);";
  const Texts all = Diagnose(kStart + Repeat(20000, record));
  ASSERT_EQ(all.size(), 20000U * 3);  // name, attribute and bracket; no ENDSEC, but one name less
  EXPECT_EQ(all[2], "doubled-name 2:14@" + std::to_string(kStart.size() + 13) + " #1 - -");
  EXPECT_EQ(all[59997], "missing-integer 2:259998@" + std::to_string(kStart.size() + 259997) + " #1 PERSON Age");
}

TEST(StandardReports, HaveACodeForEachMessage) {
  std::ifstream file(STEPRT_TEST_FOLDER "/../src/read/transfer/messages.h");
  const std::regex constant(R"re(.*char k(\w+)\[\] = "(.*)";.*)re");
  const std::string none =
      "ReportCaption MemoryName CannotCreateFile ErrorWritingFile UnknownObject NoFiniteReal NotInFile";
  Texts codes;
  std::smatch m;
  for (std::string line; std::getline(file, line);) {
    if (!std::regex_match(line, m, constant) || none.find(m[1]) != std::string::npos) continue;
    const std::string code = steprt::CodeOf(m[2].str().c_str()).code;
    EXPECT_NE(code, "refused-value") << line;
    EXPECT_EQ(std::count(codes.begin(), codes.end(), code), 0) << code;
    codes.push_back(code);
  }
  EXPECT_EQ(codes.size(), 39U);
  EXPECT_STREQ(steprt::CodeOf("Missing value").code, "refused-value");
}

struct Progress {
  std::uint64_t done = 0;
  std::uint64_t total = 0;
  int calls = 0;
  int allowed = 0;
};

bool Tell(std::uint64_t done, std::uint64_t total, void* context) {
  auto& progress = *static_cast<Progress*>(context);
  EXPECT_LE(progress.done, done);
  progress.done = done;
  progress.total = total;
  return ++progress.calls < progress.allowed;
}

TEST(StandardReports, TellTheProgressUntilTheReadIsCancelled) {
  std::string records;
  for (int i = 1; i <= 20000; ++i) records += "#" + std::to_string(i) + "=DOOR(#" + std::to_string(i + 1) + ");";
  const std::string bytes = kStart + records + "ENDSEC;END-ISO-10303-21;";
  for (const int allowed : {1000, 3, 1}) {
    for (const bool isInMemory : {true, false}) {
      Progress progress;
      progress.allowed = allowed;
      STEPreadOptions options;
      options.progress = Tell;
      options.context = &progress;
      ProjModel model;
      model.Name("progress.stp");
      const std::string path = MakeFile("progress.stp", bytes);
      const int result = isInMemory ? model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options)
                                    : model.ReadStandard(path.c_str(), &options);
      Texts reports = TakeReports(isInMemory ? "progress.stp" : path);
      EXPECT_EQ(progress.total, bytes.size());
      int count = 0;
      for (STEPheader* door = model.Inst(); door; door = door->NextHead()) ++count;
      EXPECT_EQ(result, 1);
      if (allowed == 1000) {  // the last reference names nothing
        EXPECT_EQ(progress.done, bytes.size());
        EXPECT_EQ(reports.size(), 1U);
        EXPECT_EQ(count, 20000);
        continue;
      }
      EXPECT_EQ(progress.calls, allowed);
      ASSERT_EQ(reports.size(), 1U);
      EXPECT_EQ(reports[0].substr(reports[0].find(']') + 1), "Cancelled");
      EXPECT_EQ(count > 0, allowed == 3);
      EXPECT_LT(count, 20000);
    }
  }
}

// A file in memory may have no name; what is shown for it is a word.
TEST(StandardReports, NameAFileWithoutAName) {
  STEPreadStandard("", "x", 1, ProjSchema(), nullptr);
  EXPECT_EQ(TakeReports("memory"), Texts{"(1) [Read]Not a STEP file"});
  STEPreadStandard("a", "x", 1, ProjSchema(), nullptr);
  EXPECT_EQ(TakeReports("a.stp"), Texts{"(1) [Read]Not a STEP file"});
}

}  // namespace
