// What is read of a standard file and written again is the same for a reader that shares no code with the library:
// through generated classes, through records of no class, and through XML.
#include <gtest/gtest.h>
#include <steprt/any_record.h>

#include <fstream>

#include "awkward.h"
#include "express/load.h"
#include "population.h"
#include "tools/schemas/sample.h"
#include "workshop.h"

namespace {

using steprt_test::FilePopulation;
using steprt_test::PopulationOfFile;

std::vector<std::string> reports;
void Collect(const char* text) { reports.emplace_back(text); }

// An entity that no file has, since a schema needs one.
struct NoEntity : steprt::Entity<NoEntity, 0> {
  static constexpr const char* kKeyword = "-";
  void Describe(steprt::Description& /*d*/) override {}
};

// A schema without the entities of any file.
struct AnyModel : steprt::Model {
  static APPobject0* Descriptor() {
    static auto schema = steprt::Schema<NoEntity>("ANY", Collect);
    return &schema;
  }
  AnyModel() : steprt::Model(Descriptor()) {}
};

struct WorkshopModel : workshop::Model {
  WorkshopModel() { workshop::Descriptor()->errorProc = Collect; }
};
struct AwkwardModel : awkward::Model {
  AwkwardModel() { awkward::Descriptor()->errorProc = Collect; }
};

std::string Path(const std::string& name) {
  return testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + name;
}

std::string MakeFile(const std::string& bytes) {
  std::ofstream(Path("In.stp"), std::ios::binary) << bytes;
  return Path("In.stp");
}

// One line for each record that is another one.
void ExpectSame(const FilePopulation& written, const FilePopulation& original, const char* what) {
  EXPECT_EQ(written.faults, std::vector<std::string>()) << what;
  ASSERT_EQ(written.records.size(), original.records.size()) << what;
  for (std::size_t i = 0; i < original.records.size(); ++i) {
    EXPECT_TRUE(written.records[i] == original.records[i])
        << what << ", record " << i + 1 << "\n  " << Print(written.records[i]) << "\n  " << Print(original.records[i]);
  }
}

// Reads the file and writes it in clear text, also by way of XML.
template <class Model>
void ExpectComesBack(const std::string& path, const FilePopulation& original, const char* what) {
  STEPreadOptions reading;
  reading.unknown = steprt::AnyRecord::Row();
  STEPwriteOptions writing;
  writing.unknown = steprt::AnyRecord::Row();
  const int count = static_cast<int>(original.records.size());
  reports.clear();
  Model model;
  EXPECT_EQ(model.ReadStandard(path, &reading), 0);
  EXPECT_EQ(model.WriteStandard(Path("Out.stp"), nullptr, &writing), count);
  ExpectSame(PopulationOfFile(Path("Out.stp")), original, what);
  EXPECT_EQ(model.WriteStandardXml(Path("Out.xml"), nullptr, &writing), count);
  if (STEPRT_TEST_READS_XML) {
    Model again;
    EXPECT_EQ(again.ReadStandard(Path("Out.xml"), &reading), 0);
    EXPECT_EQ(again.WriteStandard(Path("Xml.stp"), nullptr, &writing), count);
    ExpectSame(PopulationOfFile(Path("Xml.stp")), original, what);
  }
  EXPECT_EQ(reports, std::vector<std::string>()) << what;
}

template <class Model>
void ExpectComesBackBothWays(const std::string& bytes) {
  const std::string path = MakeFile(bytes);
  const FilePopulation original = PopulationOfFile(path);
  ASSERT_FALSE(original.records.empty());
  ExpectComesBack<Model>(path, original, "through classes");
  ExpectComesBack<AnyModel>(path, original, "through records of no class");
}

// Two records of each entity, with each attribute in one of them.
std::string Sample(const std::string& file, const std::string& schema) {
  std::ifstream in(file);
  const std::string text((std::istreambuf_iterator<char>(in)), {});
  express::Diagnostics diagnostics;
  std::vector<std::unique_ptr<express::Source>> sources;
  sources.push_back(std::make_unique<express::Source>(file, text));
  const auto model = express::Load(std::move(sources), diagnostics);
  std::vector<const express::Entity*> entities;
  for (const auto& each : model->schemas) {
    for (const auto& declaration : each->declarations) {
      if (const express::Entity* entity = express::AsEntity(declaration.get())) entities.push_back(entity);
    }
  }
  return steprt_tools::SampleFile(schema, entities);
}

std::string InFrame(const std::string& records) {
  return "\xEF\xBB\xBFISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
         "FILE_SCHEMA(('X { 1 0 1 }'));\nENDSEC;\nDATA;\n" +
         records + "ENDSEC;\nEND-ISO-10303-21;\n";
}

TEST(StandardFiles, OfASampleOfEachEntityComeBack) {
  ExpectComesBackBothWays<WorkshopModel>(Sample(STEPRT_TEST_SCHEMAS "/every_construct.exp", "WORKSHOP"));
  ExpectComesBackBothWays<AwkwardModel>(Sample(STEPRT_TEST_GOLDEN "/awkward.exp", "AWKWARD"));
}

// Each form of a token, complex instances with parts of abstract and of unknown entities, and references in all places.
TEST(StandardFiles, OfEachConstructComeBack) {
  ExpectComesBackBothWays<AwkwardModel>(InFrame(
      "/* a comment; with 'quotes' */ #18446744073709551615 /* in a record */ = CLASS('it''s a text\n of two lines "
      "\\X2\\00E4\\X0\\ \\S\\d \\X\\E4 \\PA\\\\S\\d \xC3\xA4 ~',-7,.U.,.T.,-1.5E-10);\n"
      "#2=VALUE($,*,.F.,.T.,3.);#3=MODEL('" +
      std::string(100'000, 'x') +
      "',2147483647,.T.,.F.,-2147483648.,#2);\n"
      "#4=BOTH('',(),\"0\",((1.,-0.,1.7976931348623157E308,4.9406564584124654E-324,0.1,123456789.123456789),()),$,"
      "(1.E5,$,$,2.),((LENGTH(1.5),RENAMED(.NULL.)),(#3)),ROW((1.5,2.)),.EOF.,(.TRUE.,.PLAIN.),#7,(#5,#4));\n"
      "#5=(AB($,(),())A_B('n',(#4,#5))BOTH(($,1.,$,$),(),#2,.EOF.,(),#6,(#5)));\n"
      "#6=(A_B('x',())AB(\"1F\",$,((2.)))BOTH_FRIEND()UNKNOWN(#18446744073709551615,*,$,(),(('a'),K(L(1)))));\n"
      "#7=BOTH_FRIEND($,(),());#8=UNKNOWN('\\X4\\0001F600\\X0\\',.ANY.,\"3A\",1,1.);#9=!MINE(#8);\n"
      "#10=(!MINE('p')OTHER());\n"));
  ExpectComesBackBothWays<WorkshopModel>(
      InFrame("#1=(DRILL()HIRED(.GLOSSY.)INSURED()MACHINE(*,7,'b',(#3)));\n#2=(BENCH((#1),#1)SUPPLIER('m'));\n"
              "#3=PART('p',#4,-0.5,#2);#4=COLOUR(1,2,3);#5=(HOLDER(#1,())MACHINE_HOLDER());\n"));
}

}  // namespace
