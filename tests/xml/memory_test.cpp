// Transfers that run out of memory at every place where they ask for it.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/failing_new.h"
#include "xml/documents.h"
#include "xml/xml_reader.h"

namespace {

using namespace steprt_test;

// With every attribute kind, forward references, names and texts that outgrow their rooms, more children than are
// walked, and declarations that Expat remembers.
std::string Document() {
  std::string children;
  for (int i = 0; i < 40; ++i) children += "<x" + std::to_string(i) + "/>";
  const std::string text(5'000, 'x');
  return "<?xml version='1.0' encoding='windows-1252'?><!DOCTYPE PROJ [<!ENTITY e 'entity'><!ATTLIST DOOR d CDATA "
         "#IMPLIED>]>"
         "<PROJ xmlns='urn:x'><" +
         std::string(600, 'n') + " rid='#90" + std::string(700, ' ') + "'/><SAMPLE rid='#1'>" + children + "<Text>&e;" +
         text +
         "</Text><Bool>.T.</Bool><Log>.U.</Log><Enum>.RED.</Enum><Sel>'text'</Sel><Ref>#3</Ref>"
         "<Refs>#2 #3</Refs><Reals>1;2;3</Reals><Texts>'a';'b'</Texts></SAMPLE>"
         "<SAMPLE rid='#4'><Bool>.T.</Bool><Log>.U.</Log><Enum>.RED.</Enum><Sel>#9</Sel></SAMPLE>"
         "<WALL rid='#2'><Name>" +
         text + "</Name><External>.T.</External></WALL><DOOR rid='#3'><Host>#2</Host></DOOR><DOOR rid='#9'/></PROJ>";
}

// Whether the service said so itself: the count is then -1, and further reports may have brought it up to 0.
bool HasServiceWord(const Texts& reports) {
  return std::any_of(reports.begin(), reports.end(),
                     [](const std::string& r) { return r.rfind("out of memory", 0) == 0; });
}

// Runs with the nth allocation failing. False when there were fewer.
bool ReadWithFailure(const std::string& document, bool fromFile, long nth, FailingNew::Extent extent, int sound) {
  ProjModel model;
  model.Name(MakeFile("memory.xml", document).c_str());
  int result;
  bool hasFailed;
  {
    const FailingNew failing(nth, extent);
    result = model.ReadXml(fromFile ? nullptr : document.c_str());
    hasFailed = failing.HasFailed();
  }
  const Texts reports = TakeReports(model.Name());
  EXPECT_FALSE(model.Locked());
  EXPECT_TRUE(reports.empty() || result != 0 || HasServiceWord(reports)) << nth;
  if (!hasFailed) {
    EXPECT_EQ(result, 0) << nth;
    EXPECT_EQ(Population(model).size(), static_cast<std::size_t>(sound));
  }
  Population(model);
  return hasFailed;
}

TEST(XmlMemory, AReadSurvivesEveryAllocationThatFails) {
  const std::string document = Document();
  ReadWithFailure(document, true, 1'000'000, FailingNew::kAlone, 5);
  for (const bool fromFile : {false, true}) {
    for (const FailingNew::Extent extent : {FailingNew::kAlone, FailingNew::kAndAllBehind}) {
      const long before = LiveBlocks();
      long nth = 1;
      while (ReadWithFailure(document, fromFile, nth, extent, 5)) ++nth;
      EXPECT_GT(nth, 60);
      EXPECT_EQ(LiveBlocks(), before);
    }
  }
}

TEST(XmlMemory, AWriteSurvivesEveryAllocationThatFails) {
  ProjModel model;
  model.ReadXml(Document().c_str());
  std::string path = TempPath("memory_written.xml");
  model.WriteXml(path.data(), "");
  const std::string whole = BytesOf(path);
  const long before = LiveBlocks();
  long nth = 1;
  for (bool hasFailed = true; hasFailed; ++nth) {
    int result;
    {
      const FailingNew failing(nth);
      result = model.WriteXml(path.data(), "");
      hasFailed = failing.HasFailed();
    }
    const Texts reports = TakeReports(path);
    EXPECT_EQ(result, hasFailed && nth <= 2 ? -1 : 5) << nth;
    EXPECT_TRUE(result != 5 || BytesOf(path) == whole) << nth;
  }
  EXPECT_GT(nth, 2);
  EXPECT_EQ(LiveBlocks(), before);
}

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
  std::string children;
  for (int i = 0; i < 100'000; ++i) children += "<B>0123456789</B>";
  const std::string large = "<PROBE rid='#1'>" + children + "</PROBE>";
  std::string wide;
  for (int i = 0; i < 1'000; ++i) wide += "<B>" + std::string(3'000, 'x') + "</B>";
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
