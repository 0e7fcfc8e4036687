// Records and parts of entities without a class, and what the read function of any row is told of its record.
#include "steprt/any_record.h"

#include <gtest/gtest.h>

#include "support/reports.h"
#include "support/table.h"
#include "support/temp_files.h"

namespace {

using steprt::AnyRecord;
using namespace steprt_test;

struct Known : steprt::Entity<Known, 1> {
  static constexpr const char* kKeyword = "KNOWN";
  steprt::Ref<Known> Other;
  void Describe(steprt::Description& d) override { d("Other", Other); }
};

struct Empty : steprt::AbstractEntity<Empty, 2> {
  static constexpr const char* kKeyword = "EMPTY";
  virtual int Nothing() = 0;
};

auto schema = steprt::Schema<Known, Empty>("ANY", CollectReport);

std::string Text(const STEPheader* object) {
  const auto* any = dynamic_cast<const AnyRecord*>(object);
  if (!any) return "KNOWN";
  std::string values;
  any->Values.Print(values);
  return std::to_string(any->Name) + "=" + any->Keyword.Get() + values;
}

Texts Population(steprt::Model& model) {
  Texts all;
  for (STEPheader* object = model.Inst(); object; object = object->NextHead()) {
    if (object->Type() != STEPcomplex::kType) {
      all.push_back(Text(object));
      continue;
    }
    std::string parts;
    for (STEPheader* part = static_cast<STEPcomplex*>(object)->Parts(); part; part = part->NextHead()) {
      parts += (parts.empty() ? "" : " ") + Text(part);
    }
    all.push_back(parts);
  }
  return all;
}

std::uint64_t NameOf(STEPheader* object, void* context) {
  auto* complex = dynamic_cast<STEPcomplex*>(object);
  const auto* any = dynamic_cast<AnyRecord*>(complex ? complex->Parts() : object);
  return any ? any->Name : 1000 + static_cast<std::uint64_t>((*static_cast<int*>(context))++);
}

void ExpectSameAfterAWrite(steprt::Model& model, const STEPreadOptions& options, const Texts& wanted) {
  int known = 0;
  STEPwriteOptions writing;
  writing.unknown = AnyRecord::Row();
  writing.nameOf = NameOf;
  writing.context = &known;
  const std::string path = TempPath("any_written.stp");
  EXPECT_GE(model.WriteStandard(path.c_str(), nullptr, &writing), 0);
  EXPECT_EQ(TakeReports(path), Texts());
  steprt::Model again(&schema);
  EXPECT_EQ(again.ReadStandard(path, &options), 0) << BytesOf(path);
  EXPECT_EQ(TakeReports(path), Texts());
  EXPECT_EQ(Population(again), wanted) << BytesOf(path);
}

TEST(AnyRecord, KeepsWhatHasNoClass) {
  STEPreadOptions options;
  options.unknown = AnyRecord::Row();
  const std::string longName(300, 'K');
  for (const Texts& row : Table(R"(
    #1=OTHER();                                  | 1=OTHER()                     |
    #1=OTHER(1,2.5,'it''s',$,*,.T.,"0A",(1,()),K('x',(*))); | 1=OTHER(1,2.5,'it's',$,*,.T.,"0A",(1,()),K('x',(*))) |
    #5000000000=!MINE('a;b');#2=OTHER(#5000000000,#2); | 5000000000=!MINE('a;b') & 2=OTHER(#0,#0) |
    #1=(OTHER(1)KNOWN($)EMPTY('e')!MINE());      | 1=OTHER(1) KNOWN 1=EMPTY('e') 1=!MINE() |
    #1=KNOWN(#2);#2=OTHER();                     | KNOWN & 2=OTHER()             |
    #2=OTHER();#1=KNOWN(#2);                     | 2=OTHER() & KNOWN             |

    #1=EMPTY('e');#2=OTHER();                    | 2=OTHER()                     | (1) [EMPTY]Syntax
    #1=OTHER(#7);                                | 1=OTHER($)                    | (1) [OTHER]Unknown reference #7
    #1=OTHER(1;#2=OTHER((1;#3=OTHER 1);#4=OTHER(1))(2); | 1=OTHER(1) & 2=OTHER((1)) & 4=OTHER(1) | (1) [OTHER]Syntax & (1) [OTHER]Syntax
    #1=OTHER(1 2,,3,X);                          | 1=OTHER(1,2,3,$)              | (1) [OTHER]Missing value
  )",
                                3)) {
    steprt::Model model(&schema);
    model.Name("any.stp");
    const std::string bytes = "ISO-10303-21;HEADER;ENDSEC;DATA;" + row[0] + "ENDSEC;END-ISO-10303-21;";
    model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
    EXPECT_EQ(TakeReports("any.stp"), ItemsOf(row[2])) << row[0];
    EXPECT_EQ(Population(model), ItemsOf(row[1])) << row[0];
    ExpectSameAfterAWrite(model, options, ItemsOf(row[1]));
  }
  steprt::Model model(&schema);
  const std::string bytes = "ISO-10303-21;HEADER;ENDSEC;DATA;#1=" + longName + "();ENDSEC;";
  EXPECT_EQ(model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options), 0);
  EXPECT_EQ(Population(model), Texts{"1=" + longName + "()"});
  EXPECT_EQ(TakeReports(""), Texts());
}

TEST(AnyRecord, IsComparedWithItsKeyword) {
  steprt::Model model(&schema);
  AnyRecord* records[2];
  for (AnyRecord*& record : records) {
    record = new AnyRecord;
    record->Keyword = "WALL";
    record->Values.Add().SetInteger(5);
  }
  EXPECT_TRUE(steprt::Equal(*records[0], *records[1]));
  EXPECT_EQ(steprt::Print(*records[0]), "('WALL',(5))");
  records[1]->Keyword = "DOOR";
  EXPECT_FALSE(steprt::Equal(*records[0], *records[1]));
}

// Other reads tell the keyword, and no name.
TEST(AnyRecord, IsToldItsKeywordByEveryRead) {
  static std::string told;
  static constexpr APPentity kRows[] = {{"NAMED",
                                         [](STEPtransfer* t) -> STEPheader* {
                                           told += rSTEPkeyword(t) + ("/" + std::to_string(rSTEPinstance(t)));
                                           return nullptr;
                                         },
                                         nullptr, 1, nullptr}};
  static APPtable table("TOLD", kRows, CollectReport);
  struct ToldModel : STEPmodel {
    ToldModel() { AppObj(&table); }
  } model;
  const std::string path = MakeFile("told.stp", "ISO-10303-21;HEADER;ENDSEC;DATA;#7=named();ENDSEC;END-ISO-10303-21;");
  STEPread(const_cast<char*>(path.c_str()), &table, false);
  told += " ";
  model.ReadStandard(path.c_str());
  EXPECT_EQ(told, "named/0 NAMED/7");
}

}  // namespace
