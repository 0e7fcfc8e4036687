// Generated classes at work: what they read, hold, write and report.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <steprt/library.h>

#include <fstream>
#include <type_traits>

#include "awkward.h"
#include "test_benches.h"
#include "workshop.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr bool kReadsXml = STEPRT_TEST_READS_XML;

std::vector<std::string> reports;

void Collect(const char* text) {
  const std::string report = text;
  reports.push_back(report.substr(report.find(".stp") + 5));
}

// A file of its own for each test.
std::string Path(const std::string& extension = ".stp") {
  return testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + extension;
}

// Reads the records as a file of that schema.
template <class Model>
int Read(Model& model, APPobject0* descriptor, const std::string& records) {
  reports.clear();
  descriptor->errorProc = Collect;
  std::ofstream(Path()) << "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'1');\nFILE_NAME('','',(''),(''),'','','');\n"
                        << "FILE_SCHEMA(('" << descriptor->name << "'));\nENDSEC;\nDATA;\n"
                        << records << "ENDSEC;\nEND-ISO-10303-21;\n";
  return model.Read(Path());
}

template <class T>
T& Only(steprt::Model& model) {
  T* found = nullptr;
  for (T& instance : model.All<T>()) {
    EXPECT_EQ(found, nullptr);
    found = &instance;
  }
  return *found;
}

template <class T>
std::string Printed(steprt::Model& model) {
  std::string all;
  for (T& instance : model.All<T>()) all += steprt::Print(instance) + ' ';
  return all;
}

std::string DataLines(const std::string& path) {
  std::ifstream in(path);
  std::string all;
  for (std::string line; std::getline(in, line);) {
    if (line.front() == '#') all += line + '\n';
  }
  return all;
}

// One record of each class that can have instances, with a value of every kind that its attributes can hold.
constexpr char kAwkwardRecords[] =
    "#1 = CLASS('+',$,.U.,.T.,1.5);\n"
    "#2 = VALUE($,*,.F.,.T.,3);\n"
    "#3 = MODEL('-',7,.T.,.F.,2,#2);\n"
    "#4 = AB($,(),());\n"
    "#5 = BOTH_FRIEND(\"1\",(),$);\n"
    "#6 = LATE(\"2\",(),(),'late',(),($,$,$,$),(),CONSTANTS(.DEFAULT.),.EOF_.,(),#5,());\n"
    "#7 = BOTH('b',(#6),\"0A\",((1.5,2.5),(),(3.5)),((4.5)),(1.5,$,$,2.),((LENGTH(1.5),.NULL.),(#3)),"
    "ROW((1.5)),.EOF.,(.TRUE.,.PLAIN.,.EPERM.,.SEEK_SET.),#6,(#4,#5,#6));\n"
    "#8 = A_B('name',(#7,#6));\n"
    "#9 = APPOBJECT0();\n"
    "#10 = NAMED('Name',$);\n"
    "#11 = CASED('name',(),'Name',$);\n";

TEST(GeneratedClasses, ReadAndWriteEveryKindOfAttribute) {
  awkward::Model model;
  EXPECT_EQ(Read(model, awkward::Descriptor(), kAwkwardRecords), 0);
  EXPECT_THAT(reports, IsEmpty());
  const std::string written = Path("Written.stp");
  EXPECT_EQ(model.Write(written), 11);
  EXPECT_EQ(DataLines(written), kAwkwardRecords);

  auto& both = Only<awkward::Both>(model);
  EXPECT_STREQ(both.AB::name.Get(), "b");
  EXPECT_STREQ(both.name_.Get(), "\"0A\"");
  EXPECT_EQ(both.grid.Size(), 3);
  EXPECT_EQ(both.choice.Get(), awkward::Constants::eof);
  EXPECT_EQ(both.far_.Get(), &Only<awkward::Late>(model));
  EXPECT_TRUE(Only<awkward::Value>(model).id_.IsDerived());
  EXPECT_EQ(Only<awkward::Model_>(model).Value_.Get(), &Only<awkward::Value>(model));
}

TEST(GeneratedClasses, ReadBackFromXml) {
  awkward::Model model;
  EXPECT_EQ(Read(model, awkward::Descriptor(), kAwkwardRecords), 0);
  EXPECT_EQ(model.WriteXml(Path(".xml")), 11);
  awkward::Model again;
  EXPECT_EQ(again.Read(Path(".xml")), 0);
  EXPECT_EQ(again.IsEmpty() == 0, kReadsXml);
  if (!kReadsXml) return;
  const std::string written = Path("Written.stp");
  EXPECT_EQ(again.Write(written), 11);
  EXPECT_EQ(DataLines(written), kAwkwardRecords);
}

// An enumeration that nothing extends has no enumerator to take instead.
TEST(GeneratedClasses, OmitEnumeratorsThatTheirSchemaDoesNotHave) {
  awkward::Model model;
  EXPECT_EQ(
      Read(model, awkward::Descriptor(), "#1=NAMED('a',.NEW.);\n#2=BOTH($,$,$,$,$,$,$,$,.NEW.,(.NEW.,.EOF.),$,$);\n"),
      3);
  EXPECT_EQ(Printed<awkward::Named>(model), "NAMED('a',$) ");
  EXPECT_EQ(Printed<awkward::Both>(model), "BOTH($,$,$,$,$,$,$,$,$,($,.EOF.),$,$) ");
  const std::string written = Path("Written.stp");
  EXPECT_EQ(model.Write(written), 2);
  EXPECT_EQ(DataLines(written), "#1 = NAMED('a',$);\n#2 = BOTH($,$,$,$,$,$,$,$,$,($,.EOF.),$,$);\n");
}

// What an entity derives is * from the start.
TEST(GeneratedClasses, DeriveWhatTheirEntityDerives) {
  workshop::Model model;
  auto* drill = new workshop::HiredDrill;
  drill->serial = 3;
  new workshop::BandSaw;
  EXPECT_EQ(Printed<workshop::Machine>(model), "HIRED_DRILL(*,3,$,$,$,$,$) BAND_SAW($,*,$,$,$) ");
  static_assert(std::is_base_of_v<workshop::Drill, workshop::HiredDrill>);
  static_assert(!std::is_base_of_v<workshop::Hired, workshop::HiredDrill>);
}

// A class has one base; references also take what is a subtype by another supertype, and nothing else.
TEST(GeneratedClasses, CheckReferencesOfSeveralSupertypes) {
  awkward::Model model;
  EXPECT_EQ(Read(model, awkward::Descriptor(),
                 "#1=A_B('1',(#2,#3,#4,#5));\n"  // AB and MODEL are none
                 "#2=AB($,$,$);\n"
                 "#3=LATE($,$,$,$,$,$,$,$,$,$,#2,(#1,#2,#4));\n"  // AB is no BOTH_FRIEND, A_B no AB
                 "#4=BOTH($,$,$,$,$,$,$,$,$,$,#3,());\n"
                 "#5=MODEL($,$,$,$,$,#1);\n"),  // A_B is no VALUE
            4);
  EXPECT_THAT(
      reports,
      ElementsAre("(10) [LATE]Reference to wrong object type ''", "(12) [MODEL]Reference to wrong object type ''",
                  "[A_B]Reference to wrong object type 'of_a_b'", "[LATE]Reference to wrong object type 'friend'"));
  EXPECT_EQ(Only<awkward::Model_>(model).Value_.Get(), nullptr);
}

// Parts of a complex instance hold the attributes that their entity declares, not those of further supertypes.
TEST(GeneratedClasses, ReadComplexInstances) {
  awkward::Descriptor()->errorProc = Collect;
  reports.clear();
  std::ofstream(Path()) << "ISO-10303-21;HEADER;ENDSEC;DATA;\n"
                           "#1=(AB($,(),())A_B('n',(#2))BOTH(($),(),$,.EOF.,(),#2,(#1)));\n"
                           "#2=(A_B('x',())AB($,$,$)BOTH_FRIEND());\n"
                           "#3=A_B('y',(#2,#4));#4=VALUE($,*,.F.,.T.,3);\nENDSEC;END-ISO-10303-21;\n";
  awkward::Model model;
  EXPECT_EQ(model.ReadStandard(Path()), 1);
  EXPECT_THAT(reports, ElementsAre("[A_B]Reference to wrong object type 'of_a_b'"));
  auto& both = Only<awkward::Both>(model);
  EXPECT_EQ(both.choice.Get(), awkward::Constants::eof);
  EXPECT_EQ(both.far_.Get(), &Only<awkward::BothFriend>(model));
  EXPECT_EQ(Printed<awkward::AB>(model),
            "A_B('n',(#0)) BOTH($,$,$,$,$,($),(),$,.EOF.,(),#0,(#0)) A_B('x',()) A_B('y',(#0,#0)) ");
}

TEST(GeneratedClasses, SelectsTellWhatTheyAllow) {
  awkward::Model model;
  auto* both = new awkward::Both;
  awkward::Outer& any = both->any;
  EXPECT_TRUE(any.IsAllowed());  // omitted
  struct Row {
    const char* keyword;
    bool allowed;
  };
  for (const Row& row : {Row{"LENGTH", true}, Row{"RENAMED", true}, Row{"ROW", true}, Row{"CONSTANTS", true},
                         Row{"INNER", false}, Row{"AREA", false}}) {
    any.SetTyped(row.keyword).SetReal(1);
    EXPECT_EQ(any.IsAllowed(), row.allowed) << row.keyword;
  }
  any.SetEnumerator(".EOF.");
  EXPECT_TRUE(any.IsAllowed());
  any.SetObject(new awkward::Model_);
  EXPECT_TRUE(any.IsAllowed());
  any.SetObject(new awkward::Class);
  EXPECT_FALSE(any.IsAllowed());
  any.SetReal(1);  // not without the keyword of its type
  EXPECT_FALSE(any.IsAllowed());
  workshop::Model machines;
  workshop::Named named;
  named.SetObject(new workshop::BandSaw);
  EXPECT_TRUE(named.IsAllowed());
  named.SetEnumerator(".READY.");
  EXPECT_FALSE(named.IsAllowed());
}

TEST(GeneratedClasses, AreFoundWithTheirSubtypes) {
  awkward::Model model;
  new awkward::Late;
  new awkward::AB;
  new awkward::Both;
  new awkward::AB_;
  EXPECT_EQ(Printed<awkward::AB_>(model), "LATE($,$,$,$,$,$,$,$,$,$,$,$) AB($,$,$) ");
  EXPECT_EQ(Printed<awkward::AB>(model), "A_B($,$) BOTH($,$,$,$,$,$,$,$,$,$,$,$) ");
  EXPECT_EQ(Printed<awkward::Value>(model), "");
}

TEST(GeneratedClasses, OfAPartOfASchemaReadTheirRecords) {
  test::benches::Model model;
  EXPECT_EQ(Read(model, test::benches::Descriptor(), "#1=BENCH((),$);\n#2=SAW(1,2,$,(),3);\n"), 1);
  EXPECT_THAT(reports, ElementsAre("(9) [SAW]Unknown entity SAW"));
  EXPECT_EQ(Printed<test::benches::Bench>(model), "BENCH((),$) ");
}

TEST(GeneratedModule, IsAttachedToAModel) {
  workshop::Model model;
  HINSTANCE module = model.AttachDll(STEPRT_TEST_MODULE, "Attach");
  ASSERT_NE(module, nullptr);
  EXPECT_EQ(CurrentModel(), &model);
  EXPECT_EQ(Read(model, workshop::Descriptor(), "#1=COLOUR(1,2,3);\n#2=AB($,$,$);\n"), 0);
  EXPECT_STREQ(model.EntityName(1000), "CLASS");
  model.Delete();  // the module has the code of its instances
  workshop::Descriptor()->next = nullptr;
  auto* lib = new STEPlib(module);
  lib->UnloadDLL(1);
  EXPECT_EQ(dlopen(STEPRT_TEST_MODULE, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

}  // namespace
