// What comes back of a value that goes through a document.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "xml/documents.h"

namespace {

using namespace steprt_test;

// The values of a PROBE with one attribute of this kind, set, written and read back.
template <typename Set>
Outcome ThroughXml(const char* kind, Set set) {
  SetProbe({kind});
  ProjModel model;
  auto* probe = new Entity(kProbe, &model);
  set(probe->values[0]);
  const Outcome outcome = ReadDocument(WrittenDocument(model));
  SetProbe({});
  return outcome;
}

Outcome Read(const std::string& probe) { return {0, {}, {"PROBE(" + probe + ")"}}; }

TEST(XmlRoundTrip, Integers) {
  for (const int value : {0, 1, -1, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(ThroughXml("i", [=](Value& v) { v.integer = value; }), Read(std::to_string(value)));
  }
}

TEST(XmlRoundTrip, RealsKeepSixDigits) {
  const std::pair<double, const char*> rows[] = {{0.0, "0"},           {-0.0, "-0"},         {1.0, "1"},
                                                 {0.1, "0.1"},         {123456.0, "123456"}, {1234567.0, "1234570"},
                                                 {1e300, "1e+300"},    {5e-324, "5e-324"},   {INFINITY, "inf"},
                                                 {1.0 / 3, "0.333333"}};
  for (const auto& [value, text] : rows) {
    EXPECT_EQ(ThroughXml("r", [real = value](Value& v) { v.real = real; }), Read(text)) << text;
  }
}

TEST(XmlRoundTrip, KeywordsOfEveryValue) {
  for (const int value : {0, 1}) {
    EXPECT_EQ(ThroughXml("b", [=](Value& v) { v.integer = value; }), Read(value ? "T" : "F"));
  }
  for (const int value : {-1, 0, 1}) {
    EXPECT_EQ(ThroughXml("l", [=](Value& v) { v.integer = value; }), Read(std::to_string(value)));
  }
  for (const int value : {0, 1, 2}) {
    EXPECT_EQ(ThroughXml("e", [=](Value& v) { v.integer = value; }), Read(std::to_string(value)));
  }
}

TEST(XmlRoundTrip, TextsOfEveryByteThatXmlAllows) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text = "a" + std::string(1, static_cast<char>(byte)) + "b";
    const Outcome outcome = ThroughXml("t", [&](Value& v) { v.text = text; });
    if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') {
      EXPECT_EQ(outcome.result, -1) << byte;
      EXPECT_EQ(outcome.population, Texts{}) << byte;
    } else {
      EXPECT_EQ(outcome, Read(byte == '\r' ? "'a\nb'" : "'" + text + "'")) << byte;
    }
  }
  for (const char* text : {"", " ", "  a  ", "\n", "]]>", "<!-- x -->", "&amp;", "&#65;", "$", "'"}) {
    EXPECT_EQ(ThroughXml("t", [&](Value& v) { v.text = text; }), Read("'" + std::string(text) + "'"));
  }
}

TEST(XmlRoundTrip, LongTexts) {
  for (const std::size_t length : {255u, 256u, 257u, 4095u, 4096u, 4097u, 300'000u}) {
    std::string text(length, 'x');
    text.back() = '<';
    EXPECT_EQ(ThroughXml("t", [&](Value& v) { v.text = text; }), Read("'" + text + "'"));
  }
}

TEST(XmlRoundTrip, ANullTextBecomesADollar) {
  SetProbe({"t", -1, {}, [](STEPtransfer* t) { wSTEPtext(t, "A", nullptr); }});
  ProjModel model;
  new Entity(kProbe, &model);
  const std::string document = WrittenDocument(model);
  SetProbe({"t"});
  EXPECT_EQ(ReadDocument(document), Read("'$'"));
  SetProbe({});
}

TEST(XmlRoundTrip, SelectsComeBackByTheirShape) {
  EXPECT_EQ(ThroughXml("s", [](Value& v) { v.select.SetInt(-5); }), Read("int -5"));
  EXPECT_EQ(ThroughXml("s", [](Value& v) { v.select.SetReal(2.5); }), Read("real 2.5"));
  EXPECT_EQ(ThroughXml("s", [](Value& v) { v.select.SetReal(2.0); }), Read("int 2"));
  EXPECT_EQ(ThroughXml("s", [](Value& v) { v.select.SetSTEPobj(nullptr); }), Read("object null"));
  EXPECT_EQ(ThroughXml("s", [](Value&) {}), Read("object null"));
  const std::pair<const char*, const char*> texts[] = {
      {"12 a", "text '12 a'"}, {"'q'", "text ''q''"}, {"<&>", "text '<&>'"}, {"abc", "none"},
      {"-abc", "none"},        {".T.", "none"},       {"", "none"},          {"  ", "none"},
      {"12", "int 12"},        {"1e3", "real 1000"},  {"$x", "object null"}, {"#1", "object null"}};
  for (const auto& [text, value] : texts) {
    EXPECT_EQ(ThroughXml("s",
                         [given = text](Value& v) {
                           auto* copy = new char[std::string(given).size() + 1];
                           v.select.SetCharPtr(Copy(copy, given, 100));
                         }),
              Read(value))
        << text;
  }
}

TEST(XmlRoundTrip, ListsOfTextsGoOutOfStepAtAnApostrophe) {
  const std::pair<const char*, const char*> rows[] = {{"('a','b c','')", "['a','b c','']"},
                                                      {"('<&>','\xe9')", "['<&>','\xe9']"},
                                                      {"('it''s','b')", "['it',';','']"},
                                                      {"()", "[]"}};
  for (const auto& [list, read] : rows) {
    SetProbe({"T"});
    ProjModel model;
    ReadBytes(model, InFrame(std::string("#1=PROBE(") + list + ");"));
    EXPECT_EQ(ReadDocument(WrittenDocument(model)), Read(read)) << list;
  }
  SetProbe({});
}

TEST(XmlRoundTrip, OneReadAndOneWriteFunctionServeBothForms) {
  const std::string records =
      "#1=SAMPLE('A',1,2.5,.T.,.U.,.BLUE.,#4,#3,(#2,#3),(1,2.5),(),('x','y'));#2=WALL('W',3.,#5,(#3,$),(1,2),.F.);"
      "#3=DOOR(#2);#4=POINT(1,2,3);#5=PERSON(41);";
  ProjModel model;
  const Outcome clearText = ReadBytes(model, InFrame(records));
  ASSERT_EQ(clearText.result, 0);
  const Outcome xml = ReadDocument(WrittenDocument(model));
  EXPECT_EQ(xml, clearText);
  std::string path = TempPath("again.stp");
  ProjModel fromXml;
  fromXml.Name(TempPath("written.xml").c_str());
  ASSERT_EQ(fromXml.ReadXml(nullptr), 0);
  EXPECT_EQ(fromXml.Write(path.data(), ""), 5);
  EXPECT_EQ(ReadBytes(BytesOf(path)), clearText);
}

TEST(XmlRoundTrip, ANullItemNeedsAReaderThatAllowsIt) {
  ProjModel model;
  SetProbe({"A"});
  ReadBytes(model, InFrame("#1=PROBE(($,#1,$));"));
  const std::string document = WrittenDocument(model);
  SetProbe({"a"});
  EXPECT_EQ(ReadDocument(document).reports, Texts(2, "(1) [PROBE]Missing reference"));
  SetProbe({"A"});
  EXPECT_EQ(ReadDocument(document).population, Texts{"PROBE([null,null])"});
  SetProbe({});
}

// The documents of the golden cases, written from what their in.stp gives. Each from_xml.txt differs from its
// population.txt in what a document does not hold: digits of reals, texts of selects that look like names, lists of
// enumerators, apostrophes in lists of texts, absent lists and selects, and instances without a write function.
TEST(XmlRoundTrip, GoldenDocumentsGiveTheirPopulations) {
  const std::pair<const char*, Texts> rows[] = {
      {"sound", {}},
      {"faulty",
       {"(1) [WALL]Reference to wrong object type ''", "(1) [WALL]Reference to wrong object type ''",
        "(1) [PERSON]Reference to wrong object type ''"}},
  };
  for (const auto& [name, reports] : rows) {
    const std::filesystem::path folder = std::filesystem::path(STEPRT_TEST_GOLDEN) / name;
    ProjModel model;
    model.Name((folder / "out.xml").c_str());
    EXPECT_EQ(model.ReadXml(nullptr), static_cast<int>(reports.size())) << name;
    EXPECT_EQ(TakeReports(model.Name()), reports) << name;
    std::string population;
    for (const std::string& instance : Population(model)) population += instance + "\n";
    EXPECT_EQ(population, BytesOf((folder / "from_xml.txt").string())) << name;
  }
}

}  // namespace
