// What a read of a document takes, and what of it stays.
#include <gtest/gtest.h>

#include <vector>

#include "support/failing_new.h"
#include "support/repeat.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

// 10 MB of document more, and for each of its 19 000 entities more a number in the table.
TEST(XmlMemory, NothingOfADocumentStaysWholeInMemory) {
  SetProbe({"", -1, [](STEPtransfer*) -> STEPheader* { return nullptr; }});
  const auto peakOf = [](int count) {
    std::string entities;
    for (int i = 0; i < count; ++i) {
      entities += "<PROBE rid='#" + std::to_string(i) + "'><A>" + std::string(500, 'x') + "</A></PROBE>";
    }
    const std::string path = MakeFile("whole.xml", InRoot(entities));
    entities = {};
    ProjModel model;
    model.Name(path.c_str());
    ResetPeak();
    const std::size_t before = LiveBytes();
    EXPECT_EQ(model.ReadXml(nullptr), 0);
    return PeakBytes() - before;
  };
  const std::size_t few = peakOf(1'000);
  EXPECT_LT(peakOf(20'000), few + 19'000 * 40);
  SetProbe({});
}

// The large one's elements take more than 10 MB while it is read.
TEST(XmlMemory, AnEntityOfManyElementsLeavesNoMoreThanTheNextOnesNeed) {
  const std::string large = "<PROBE rid='#1'>" + Repeat(100'000, "<B>0123456789</B>") + "</PROBE>";
  const std::string wide = Repeat(1'000, "<B>" + std::string(3'000, 'x') + "</B>");
  const std::string document = InRoot(large + "<PROBE rid='#2'>" + wide + "</PROBE><PROBE rid='#3'><B>1</B></PROBE>");
  std::vector<std::size_t> taken;
  const std::size_t before = LiveBytes();
  SetProbe({"", -1, [&](STEPtransfer*) -> STEPheader* {
              taken.push_back(LiveBytes() - before);
              return nullptr;
            }});
  ProjModel model;
  taken.reserve(3);
  EXPECT_EQ(model.ReadXml(document.c_str()), 0);
  SetProbe({});
  ASSERT_EQ(taken.size(), 3u);
  EXPECT_GT(taken[0], 10'000'000u);
  EXPECT_GT(taken[1], 3'000'000u);
  EXPECT_LT(taken[2], 1'000'000u);
}

}  // namespace
