// Items and described records in the XML form: written and read again.
#include "support/items.h"

#include <gtest/gtest.h>

#include "read/attribute_rows.h"
#include "support/records.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

constexpr char kA[] = "A";

TEST(Items, AreClearTextInTheirElement) {
  for (const Texts& row : Table(kItems, 1)) {
    ProjModel model;
    new Entity(kProbe, &model);
    std::string read;
    SetProbe({"", -1,
              [&](STEPtransfer* t) -> STEPheader* {
                read = ReadItem(t, kA) + "," + std::to_string(rSTEPint(t, "B"));
                return new Entity(kProbe);
              },
              [&](STEPtransfer* t) {
                std::string text = row[0];
                WriteItem(t, kA, text);
                wSTEPint(t, "B", 2);
              }});
    const std::string document = WrittenDocument(model);
    EXPECT_EQ(ReadDocument(document).reports, Texts{}) << document;
    EXPECT_EQ(read, row[0] + ",2") << document;
  }
}

// The kinds are numbered as in items.h. A text that is no bracketed value stays for the readers of texts.
TEST(Items, HaveAKindThatTheirElementShows) {
  for (const Texts& row : Table(R"(
    $        | 1
    *        | 2
    #1       | 3
    5        | 4
    2.5      | 5
    wall     | 6
    $5       | 6
    .T.      | 7
    "1A"     | 8
    A (1)    | 9
    (1)      | 10
    (        | 10
  )",
                                2)) {
    std::string read;
    SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
                rSTEPclose(t);
                rSTEPskip(t, kA);
                const STEPitem kind = rSTEPkind(t, kA);
                EXPECT_EQ(rSTEPopen(t, kA) != nullptr, kind == STEP_TYPED || kind == STEP_LIST);
                rSTEPclose(t);
                EXPECT_EQ(rSTEPnull(t, kA), kind == STEP_OMITTED || kind == STEP_DERIVED ? kind : STEP_END);
                EXPECT_EQ(rSTEPnull(t, "B"), STEP_OMITTED);
                EXPECT_FALSE(rSTEPrefuse(t, kA, "no message"));
                read = std::to_string(kind) + rSTEPtoken(t, kA);
                return nullptr;
              }});
    EXPECT_EQ(ReadDocument(ProbeDocument("<A>" + row[0] + "</A>")).reports, Texts{});
    EXPECT_EQ(read, row[1] + row[0]);
  }
}

// The XML form does not tell an omitted list of numbers or references from an empty one.
TEST(Records, ComeBackFromXmlAsTheyWere) {
  for (const Texts& row : Table(kRecords, 1)) {
    steprt::Model model(&recordSchema);
    const std::string data = kPointAndLine + ("#3 = " + row[0] + ";\n");
    ReadRecords(model, data);
    const std::string path = TempPath("described.xml");
    model.WriteXml(path);
    steprt::Model again(&recordSchema);
    again.Name(path.c_str());
    EXPECT_EQ(again.ReadXml(nullptr), 0) << BytesOf(path);
    EXPECT_EQ(WrittenData(again), data) << BytesOf(path);
  }
}

}  // namespace
