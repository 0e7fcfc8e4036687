// Standard files in XML: what WriteStandardXml writes, that ReadStandard reads it without a loss, and what it makes of
// documents that are damaged or in the library's own form.
#include <gtest/gtest.h>

#include "steprt/any_record.h"
#include "steprt/file_header.h"
#include "support/failing_new.h"
#include "support/proj_schema.h"
#include "support/records.h"
#include "support/repeat.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;
using steprt::AnyRecord;

const char* const kStart = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<PROJ iso-10303-21=\"clear-text\">\n";

// The elements after the header.
std::string ElementsOf(const std::string& path) {
  const std::string bytes = BytesOf(path);
  const std::string start = "</header.section>\n";
  const std::size_t from = bytes.find(start) + start.size();
  return bytes.substr(from, bytes.rfind("</") - from);
}

std::string RecordsOf(const std::string& path) {
  const std::string bytes = BytesOf(path);
  const std::size_t from = bytes.find("DATA;\n") + 6;
  return bytes.substr(from, bytes.rfind("ENDSEC;") - from);
}

Outcome ReadStandard(const std::string& bytes, const STEPreadOptions& options = {}) {
  ProjModel model;
  model.Name("memory.xml");
  const int result = model.ReadStandardFromMemory(bytes.data(), bytes.size(), &options);
  const Outcome inMemory = {result, TakeReports("memory.xml"), Population(model)};
  ProjModel other;
  const std::string path = MakeFile("standard-read.xml", bytes);
  const int otherResult = other.ReadStandard(path.c_str(), &options);
  EXPECT_EQ((Outcome{otherResult, TakeReports(path), Population(other)}), inMemory) << bytes;
  return inMemory;
}

TEST(StandardXml, HasTheHeaderAndEachValueInClearTextOrAsAPlainText) {
  ProjModel model;
  new Entity(kProbe);
  SetProbe({"", -1, {}, [](STEPtransfer* t) {
              STEPaggr reals;
              reals.Append(1.0);
              STEPaggr colours;
              colours.head = new STEPlist;
              for (const char* text : {"plain text", "", "$", "12", "it's", "a(b)", ".A.", "#1", "<&>x", "b<&>",
                                       "\xC3\xA4", "a\xC3\xA4", " a", "*"}) {
                wSTEPtext(t, "T", text);
              }
              wSTEPtext(t, "N", nullptr);
              wSTEPint(t, "I", 5);
              wSTEPreal(t, "R", 5);
              wSTEPreal(t, nullptr, 0.1);
              wSTEPbool(t, "B", true);
              xwSTEPaggr(t, "L", nullptr);
              xwSTEPaggrPrim(t, "P", &reals);
              xwSTEPaggrEnum(t, &colours, kColours);
              wSTEPopen(t, "O", "Label");
              wSTEPtext(t, nullptr, "a<b");
              wSTEPclose(t);
              wSTEPtoken(t, "D", "*");
              DeleteSTEPlist(&reals.head);
              DeleteSTEPlist(&colours.head);
            }});
  STEPfileHeader header;
  ASSERT_TRUE(header.author.Add("A & B"));
  header.timeStamp = "t";
  header.preprocessorVersion = "p";
  const std::string path = TempPath("standard.xml");
  EXPECT_EQ(model.WriteStandardXml(path.c_str(), &header), 1);
  EXPECT_EQ(TakeReports(path), Texts());
  EXPECT_EQ(BytesOf(path),
            std::string(kStart) +
                "\t<header.section rid=\"#0\"><FILE_DESCRIPTION>((''),'2;1')</FILE_DESCRIPTION>"
                "<FILE_NAME>('standard.xml','t',('A &amp; B'),(''),'p','','')</FILE_NAME>"
                "<FILE_SCHEMA>(('PROJ'))</FILE_SCHEMA></header.section>\n"
                "\t<PROBE rid=\"#1\"><T>plain text</T><T>''</T><T>'$'</T><T>'12'</T><T>'it''s'</T><T>'a(b)'</T>"
                "<T>'.A.'</T><T>'#1'</T><T>'&lt;&amp;&gt;x'</T><T>b&lt;&amp;&gt;</T><T>'\\X\\E4'</T><T>a\\X\\E4</T>"
                "<T>' a'</T><T>'*'</T><N>$</N><I>5</I><R>5.</R><_>0.1</_><B>.T.</B><L>$</L><P>(1.)</P><_>(.RED.)</_>"
                "<O>LABEL('a&lt;b')</O><D>*</D></PROBE>\n</PROJ>\n");
}

// A model through XML and back is what it was, byte for byte in clear text.
void ExpectNoLoss(steprt::Model& model, steprt::Model& copy, const STEPwriteOptions* writing = nullptr,
                  const STEPreadOptions* reading = nullptr) {
  const std::string text = TempPath("loss.stp");
  const std::string document = TempPath("loss.xml");
  const int count = model.WriteStandard(text, nullptr, writing);
  const std::string records = RecordsOf(text);
  EXPECT_EQ(model.WriteStandardXml(document, nullptr, writing), count);
  EXPECT_EQ(copy.ReadStandard(document, reading), 0);
  EXPECT_EQ(TakeReports(document), Texts());
  EXPECT_EQ(copy.WriteStandard(text, nullptr, writing), count);
  EXPECT_EQ(RecordsOf(text), records);
}

TEST(StandardXml, LosesNothingOfDescribedRecords) {
  std::string data = kPointAndLine;
  int number = 2;
  for (const Texts& row : Table(kRecords, 1)) data += "#" + std::to_string(++number) + " = " + row[0] + ";\n";
  steprt::Model model(&recordSchema);
  ASSERT_EQ(ReadRecords(model, data), Texts());
  for (const char* text : {"$", "*", "12", "a(b)", "'", " ", "\\X2\\20AC\\X0\\", "a\nb"}) {
    (new HasText)->A = text;
    (new HasValue)->A.SetText(text);
    (new HasTexts)->A.Add() = text;
  }
  (new HasText)->A = std::string(300'000, 'x');
  (new HasValue)->A.SetText(std::string(300'000, '\''));
  (new HasBinary)->A = '"' + std::string(1'000, '0') + '"';
  auto* reals = new HasReals;
  for (int i = 0; i < 50'000; ++i) reals->A.Add(i / 3.0);
  (new HasValue)->A.SetReal(4);
  steprt::Model copy(&recordSchema);
  ExpectNoLoss(model, copy);
}

// Records and parts of entities without a row, with keywords of any length and user-defined ones.
TEST(StandardXml, LosesNothingOfUnknownRecords) {
  const std::string keyword(1'000, 'K');
  const std::string bytes =
      "ISO-10303-21;HEADER;FILE_SCHEMA(('FIGURES'));ENDSEC;DATA;#18446744073709551615=A('x',$,*,(),'',(1,(2.5)),L(.T.))"
      ";"
      "#2=(A(#18446744073709551615)POINT((1.))" +
      keyword + "('B')!MINE(#2));#3=" + keyword + "(#2,\"0F\");#4=!MINE(-5);#5=_X();ENDSEC;END-ISO-10303-21;";
  STEPreadOptions reading;
  reading.unknown = AnyRecord::Row();
  STEPwriteOptions writing;
  writing.unknown = AnyRecord::Row();
  steprt::Model model(&recordSchema);
  model.Name("memory.stp");
  EXPECT_EQ(model.ReadStandardFromMemory(bytes.data(), bytes.size(), &reading), 0);
  EXPECT_EQ(TakeReports("memory.stp"), Texts());
  steprt::Model copy(&recordSchema);
  ExpectNoLoss(model, copy, &writing, &reading);
  EXPECT_NE(ElementsOf(TempPath("loss.xml"))
                .find("<complex.instance rid=\"#2\"><A><_>#1</_></A><POINT><Coordinates>(1.)"
                      "</Coordinates></POINT><KKK"),
            std::string::npos);
  EXPECT_NE(ElementsOf(TempPath("loss.xml")).find("\t<user-defined.MINE rid=\"#4\"><_>-5</_></user-defined.MINE>\n"),
            std::string::npos);
}

// The reader takes such words for keywords. In a document they must not become a complex instance or a header.
TEST(StandardXml, KeepsItsOwnNamesApartFromKeywordsWithADot) {
  const std::string bytes =
      "ISO-10303-21;HEADER;ENDSEC;DATA;#1=COMPLEX.INSTANCE(1);#2=USER-DEFINED.A(2);#3=HEADER.SECTION(3);ENDSEC;";
  STEPreadOptions reading;
  reading.unknown = AnyRecord::Row();
  STEPwriteOptions writing;
  writing.unknown = AnyRecord::Row();
  steprt::Model model(&recordSchema);
  model.ReadStandardFromMemory(bytes.data(), bytes.size(), &reading);
  const std::string path = TempPath("dots.xml");
  EXPECT_EQ(model.WriteStandardXml(path, nullptr, &writing), 3);
  EXPECT_EQ(ElementsOf(path),
            "\t<COMPLEX_INSTANCE rid=\"#1\"><_>1</_></COMPLEX_INSTANCE>\n"
            "\t<USER_DEFINED_A rid=\"#2\"><_>2</_></USER_DEFINED_A>\n"
            "\t<HEADER_SECTION rid=\"#3\"><_>3</_></HEADER_SECTION>\n");
  TakeReports(path);
}

TEST(StandardXml, FillsTheHeader) {
  STEPfileHeader header;
  ASSERT_TRUE(header.description.Add("it's") && header.description.Add("<x>") && header.schemas.Add("PROJ { 1 0 }"));
  header.name = "n\\X\\E4";
  header.authorization = "z";
  ProjModel model;
  const std::string path = TempPath("standard-header.xml");
  EXPECT_EQ(model.WriteStandardXml(path.c_str(), &header), 0);
  STEPfileHeader read;
  STEPreadOptions options;
  options.header = &read;
  options.check = true;
  EXPECT_EQ(model.ReadStandard(path.c_str(), &options), 0);
  EXPECT_EQ(TakeReports(path), Texts());
  ASSERT_EQ(read.description.Count(), 2);
  EXPECT_STREQ(read.description.At(0), "it's");
  EXPECT_STREQ(read.description.At(1), "<x>");
  EXPECT_STREQ(read.name, "n\\X\\E4");
  EXPECT_STREQ(read.authorization, "z");
  EXPECT_STREQ(read.implementationLevel, "2;1");
  EXPECT_STREQ(read.schemas.At(0), "PROJ { 1 0 }");
}

TEST(StandardXml, ReadsOnAfterEachFault) {
  const std::string end = "<PERSON rid=\"#9\"><Age>5</Age></PERSON></PROJ>";
  struct Case {
    std::string body;
    Texts reports;
    Texts population;
  };
  const Texts person = {"PERSON(5)"};
  for (const Case& each : std::vector<Case>{
           {"", {}, person},
           {"<PERSON><Age>1</Age></PERSON>", {"(1) [Read]Missing entity 'Rid'"}, person},
           {"<PERSON rid='x'/>", {"(1) [Read]Missing entity 'Rid'"}, person},
           {"<PERSON rid='#1' more='1'><Age>1</Age></PERSON>", {}, {"PERSON(1)", "PERSON(5)"}},
           {"<PERSON rid='#1'/>", {"(1) [PERSON]Missing integer"}, {"PERSON(0)", "PERSON(5)"}},
           {"<PERSON rid='#1'><Age>99999999999</Age></PERSON>",
            {"(1) [PERSON]Integer out of range"},
            {"PERSON(2147483647)", "PERSON(5)"}},
           {"<OTHER rid='#1'><A>1</A></OTHER>", {"(1) [OTHER]Unknown entity OTHER"}, person},
           {"<complex.instance rid='#1'><PERSON><Age>1</Age></PERSON><OTHER><A>1</A></OTHER></complex.instance>",
            {"(1) [OTHER]Unknown entity OTHER"},
            {"{PERSON(1) ?OTHER}", "PERSON(5)"}},
           {"<complex.instance rid='#1'/><complex.instance rid='#2'>x</complex.instance>",
            {},
            {"{}", "{}", "PERSON(5)"}},
           {"<header.section rid='#0'><FILE_NAME>x</FILE_NAME><OTHER>(1)</OTHER></header.section>",
            {"(1) [Read]Syntax"},
            person},
           {"<PERSON rid='#1'><Age>1</Age></PERSON><PERSON rid='#1'><Age>2</Age></PERSON>",
            {"(1) [PERSON]Entity #1 already used"},
            {"PERSON(1)", "PERSON(2)", "PERSON(5)"}},
       }) {
    const Outcome outcome = ReadStandard(kStart + each.body + end);
    EXPECT_EQ(outcome.reports, each.reports) << each.body;
    EXPECT_EQ(outcome.result, static_cast<int>(each.reports.size())) << each.body;
    EXPECT_EQ(outcome.population, each.population) << each.body;
  }
}

TEST(StandardXml, ReportsADocumentThatIsNotWellFormed) {
  const Outcome outcome = ReadStandard(std::string("\xEF\xBB\xBF \n<PROJ iso-10303-21='clear-text'>") +
                                       "<PERSON rid='#9'><Age>5</Age></PERSON></X>");
  EXPECT_EQ(outcome.result, 1);
  EXPECT_EQ(outcome.population, Texts{"PERSON(5)"});
}

TEST(StandardXml, ReadsTheLibrarysOwnForm) {
  ProjModel model;
  (new Entity(kPerson))->values[0].integer = 7;
  const std::string path = TempPath("own.xml");
  std::string name = path;
  EXPECT_EQ(model.WriteXml(name.data(), ""), 1);
  const Outcome outcome = ReadStandard(BytesOf(path));
  EXPECT_EQ(outcome, (Outcome{0, {}, {"PERSON(7)"}}));
}

TEST(StandardXml, ChecksTheSchemaByItsRoot) {
  STEPreadOptions options;
  const std::string bytes = "<Other iso-10303-21='clear-text'><PERSON rid='#1'><Age>1</Age></PERSON></Other>";
  EXPECT_EQ(ReadStandard(bytes, options), (Outcome{0, {}, {"PERSON(1)"}}));
  options.check = true;
  EXPECT_EQ(ReadStandard(bytes, options).reports, Texts{"(1) [Read]Data does not belong to schema 'PROJ'"});
}

// The reader of the library's own form takes the records that it knows, and nothing else is reported.
TEST(StandardXml, IsPassedOverWithoutAReportByTheReaderOfTheOwnForm) {
  ProjModel model;
  (new Entity(kPerson))->values[0].integer = 7;
  auto* complex = new STEPcomplex;
  CurrentModel(nullptr);
  complex->Add(new Entity(kPerson));
  CurrentModel(&model);
  const std::string path = TempPath("silent.xml");
  EXPECT_EQ(model.WriteStandardXml(path.c_str()), 2);
  ProjModel other;
  other.Name(path.c_str());
  EXPECT_EQ(other.ReadXml(nullptr), 0);
  EXPECT_EQ(TakeReports(path), Texts());
  EXPECT_EQ(Population(other), Texts{"PERSON(7)"});
}

TEST(StandardXml, ReportsWhenMemoryRunsOut) {
  const std::string bytes = kStart + std::string(
                                         "<complex.instance rid='#1'><PERSON><Age>1</Age></PERSON>"
                                         "</complex.instance><OTHER rid='#2'><A>1</A></OTHER></PROJ>");
  for (long n = 1;; ++n) {
    ProjModel model;
    model.Name("memory.xml");
    int result;
    bool hasFailed;
    {
      const FailingNew failing(n);
      result = model.ReadStandardFromMemory(bytes.data(), bytes.size());
      hasFailed = failing.HasFailed();
    }
    const Texts reports = TakeReports("memory.xml");
    if (!hasFailed) {
      EXPECT_EQ(reports, Texts{"(1) [OTHER]Unknown entity OTHER"});
      break;
    }
    EXPECT_GE(result, 1) << n;
  }
}

}  // namespace
