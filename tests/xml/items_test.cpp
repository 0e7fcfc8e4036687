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
