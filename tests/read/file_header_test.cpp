// The header of a standard file: its fields, what is reported of them, and the records that have none.
#include "steprt/file_header.h"

#include <gtest/gtest.h>

#include "steprt/standard.h"
#include "support/failing_new.h"
#include "support/proj_schema.h"
#include "support/table.h"

namespace {

using namespace steprt_test;

std::string Joined(const STEPtexts& texts) {
  std::string all;
  for (int i = 0; i < texts.Count(); ++i) all += (i ? "," : "") + std::string(texts.At(i));
  return all;
}

// Every field, between slashes.
std::string Fields(const STEPfileHeader& header) {
  std::string all = Joined(header.description);
  for (const std::string& field :
       {std::string(header.implementationLevel), std::string(header.name), std::string(header.timeStamp),
        Joined(header.author), Joined(header.organization), std::string(header.preprocessorVersion),
        std::string(header.originatingSystem), std::string(header.authorization), Joined(header.schemas)}) {
    all += "/" + field;
  }
  return all;
}

int ReadHeader(const std::string& records, STEPfileHeader* header) {
  ProjModel model;
  model.Name("memory.stp");
  STEPreadOptions options;
  options.header = header;
  const std::string bytes = "ISO-10303-21;HEADER;" + records + "ENDSEC;DATA;#1=PERSON(1);ENDSEC;END-ISO-10303-21;";
  const int result = model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
  EXPECT_EQ(Population(model), Texts{"PERSON(1)"}) << records;
  return result;
}

// One header for all rows: nothing of the read before may stay.
TEST(FileHeader, HasTheFieldsOfTheFile) {
  STEPfileHeader header;
  for (const Texts& row : Table(R"(
    FILE_DESCRIPTION(('a','b'),'2;1'); | a,b/2;1//////// |
    FILE_NAME('n','t',('x','y'),('o'),'p','s','z'); | //n/t/x,y/o/p/s/z/ |
    FILE_SCHEMA(('PROJ { 1 0 10303 }','TWO')); | /////////PROJ { 1 0 10303 },TWO |
    FILE_NAME('it''s \X\E9','t',(),(''),'','',''); | //it's \X\E9/t////// |
    FILE_POPULATION('a','b',$);SECTION_LANGUAGE($,'en');SECTION_CONTEXT($,('c'));SCHEMA_POPULATION((('a')));FILE_SCHEMA(('A')); | /////////A |
    FILE_NAME('one','',(),(),'','','');FILE_NAME('two','',(),(),'','',''); | //two/////// |
    FILE_SCHEMA(('A'));FILE_SCHEMA(()); | /////////A |

    FILE_DESCRIPTION('a','2;1'); | /2;1//////// | [FILE_DESCRIPTION]Missing text in list
    FILE_DESCRIPTION(('a',5,('b'),'c'),('d')); | a,c///////// | [FILE_DESCRIPTION]Missing text in list & [FILE_DESCRIPTION]Missing text in list & [FILE_DESCRIPTION]Missing text
    FILE_NAME('n',$,('x'),*,5,#7,('q',('z'))); | //n//x///// | [FILE_NAME]Missing text & [FILE_NAME]Missing text in list & [FILE_NAME]Missing text & [FILE_NAME]Missing text & [FILE_NAME]Missing text
    FILE_NAME('n','t'); | //n/t////// | [FILE_NAME]Missing text in list
    FILE_NAME(); | ///////// | [FILE_NAME]Missing text
    FILE_NAME('n','t',('x'); | //n/t/x///// | [FILE_NAME]Missing text in list
    FILE_NAME('n','t',(),(),'p','s','z','more'); | //n/t///p/s/z/ | [FILE_NAME]Syntax error in: FILE_NAME
    FILE_SCHEMA(('A',$,'B'),'C'); | /////////A,B | [FILE_SCHEMA]Missing text in list & [FILE_SCHEMA]Syntax error in: FILE_SCHEMA
    FILE_SCHEMA('A'); | ///////// | [FILE_SCHEMA]Missing text in list
    FILE_OTHER('A');FILE_SCHEMA(('A')); | /////////A | [Read]Unknown entity FILE_OTHER
    !MINE('A','B');FILE_SCHEMA(('A')); | /////////A | [Read]Unknown entity !MINE
  )",
                                3)) {
    const int result = ReadHeader(row[0], &header);
    Texts reports = TakeReports("memory.stp");
    for (std::string& report : reports) report.erase(0, 4);  // (1)
    EXPECT_EQ(Fields(header), row[1]) << row[0];
    EXPECT_EQ(reports, ItemsOf(row[2])) << row[0];
    EXPECT_EQ(result, static_cast<int>(reports.size())) << row[0];
  }
}

// Only who asks for the fields hears of those that are missing.
TEST(FileHeader, IsPassedOverWhereNobodyAsksForIt) {
  EXPECT_EQ(ReadHeader("FILE_DESCRIPTION($);FILE_NAME('n',5);SCHEMA_POPULATION(1);", nullptr), 0);
  EXPECT_EQ(TakeReports("memory.stp"), Texts());
}

TEST(FileHeader, AnswersWhenMemoryRunsOut) {
  const std::string records =
      "FILE_DESCRIPTION(('a','b'),'2;1');FILE_NAME('n','t',('x'),('o'),'p','s','z');FILE_SCHEMA(('A','B'));";
  for (long nth = 1;; ++nth) {
    ASSERT_LT(nth, 100);
    STEPfileHeader header;
    ProjModel model;
    STEPreadOptions options;
    options.header = &header;
    const std::string bytes = "ISO-10303-21;HEADER;" + records + "ENDSEC;";
    int result = 0;
    bool hasFailed = false;
    {
      const FailingNew fail(nth);
      result = model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
      hasFailed = fail.HasFailed();
    }
    TakeReports("");
    EXPECT_TRUE(result > 0 || Fields(header) == "a,b/2;1/n/t/x/o/p/s/z/A,B") << nth;
    if (!hasFailed) break;
  }
}

TEST(FileHeader, ListsGrowAndAreEmptied) {
  STEPtexts texts;
  EXPECT_STREQ(texts.At(0), "");
  for (int i = 0; i < 100; ++i) ASSERT_TRUE(texts.Add(std::to_string(i).c_str()));
  ASSERT_TRUE(texts.Add(nullptr));
  EXPECT_EQ(texts.Count(), 101);
  EXPECT_STREQ(texts.At(99), "99");
  for (const int i : {-1, 100, 101}) EXPECT_STREQ(texts.At(i), "") << i;
  texts.Clear();
  EXPECT_EQ(texts.Count(), 0);
  STEPtexts other;
  ASSERT_TRUE(other.Add("x"));
  texts.Swap(other);
  EXPECT_EQ(Joined(texts) + "|" + Joined(other), "x|");
  {
    const FailingNew fail(1);
    EXPECT_FALSE(texts.Add("y"));
  }
  EXPECT_EQ(Joined(texts), "x");
}

}  // namespace
