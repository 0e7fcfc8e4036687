// What comes back of a value that goes through a document.
#include <gtest/gtest.h>

#include <filesystem>

#include "xml/documents.h"

namespace {

using namespace steprt_test;

// A PROBE with this text, written and read back.
Outcome ThroughXml(const std::string& text) {
  SetProbe({"t"});
  ProjModel model;
  (new Entity(kProbe, &model))->values[0].text = text;
  return ReadDocument(WrittenDocument(model));
}

Outcome Read(const std::string& probe) { return {0, {}, {"PROBE(" + probe + ")"}}; }

TEST(XmlRoundTrip, TextsOfEveryByteThatXmlAllows) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text = "a" + std::string(1, static_cast<char>(byte)) + "b";
    const Outcome outcome = ThroughXml(text);
    if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') {
      EXPECT_EQ(outcome.result, -1) << byte;
      EXPECT_EQ(outcome.population, Texts{}) << byte;
    } else {
      EXPECT_EQ(outcome, Read(byte == '\r' ? "'a\nb'" : "'" + text + "'")) << byte;
    }
  }
  for (const char* text : {"", " ", "  a  ", "\n", "]]>", "<!-- x -->", "&amp;", "&#65;", "$", "'"}) {
    EXPECT_EQ(ThroughXml(text), Read("'" + std::string(text) + "'"));
  }
}

// The documents of the golden cases, written from what their in.stp reads as. Each from_xml.txt differs from its
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
