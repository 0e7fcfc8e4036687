// Every allocation of a read, of a write and of an edit fails once, alone and with all behind it: no crash, no leak, a
// sound model, files as they were or whole, and no other report than that memory is exhausted or of what followed from
// that.
#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

const char kData[] =
    "#1=WALL('a',1.5,#3,(#2,$),(1,2.5),.T.);\n#2=DOOR(#1);#3=PERSON(7);#5=OTHER();#3=PERSON(8);\n"
    "#6=SAMPLE('t',1,2.,.T.,.U.,.RED.,'s',#7,(#1,#2,#8),(1,2,3),(.RED.,.BLUE.),('a','b'));#7=DOOR(#6);#8=DOOR($);\n"
    "#900000=NOTE('n');#1000000000=SAMPLE($,1,2.,$,$,$,#900000,$,$,(),(),());";

void ExpectSound(STEPmodel& model) {
  STEPheader** link = &model.first;
  for (; *link; link = &(*link)->next) EXPECT_EQ((*link)->Model(), &model);
  EXPECT_EQ(model.tail, link);
  EXPECT_FALSE(model.Locked());
  Population(model);
}

// Runs the scenario with one allocation failing, the first, the second and so on, until it runs without a failure.
template <typename Scenario>
void Sweep(FailingNew::Extent extent, Scenario scenario) {
  bool hasFailed = true;
  for (long nth = 1; hasFailed; ++nth) {
    SCOPED_TRACE("allocation " + std::to_string(nth) + (extent ? " and all behind it" : ""));
    const long blocks = LiveBlocks();
    {
      ProjModel model;
      const FailingNew failing(nth, extent);
      scenario(model, failing);
      hasFailed = failing.HasFailed();
      ExpectSound(model);
    }
    ASSERT_EQ(LiveBlocks(), blocks);
    ASSERT_LT(nth, 1000);
  }
}

constexpr FailingNew::Extent kExtents[] = {FailingNew::kAlone, FailingNew::kAndAllBehind};

TEST(OutOfMemory, InAReadIsReportedAndTheRestIsRead) {
  std::string path = MakeFile("memory.stp", InFrame(kData));
  const Outcome sound = ReadData(kData);
  ASSERT_EQ(sound.population.size(), 9u);
  for (const auto extent : kExtents) {
    Sweep(extent, [&](ProjModel& model, const FailingNew& failing) {
      CurrentModel(&model);
      const int result = STEPread(path.data(), ProjSchema(), false);
      Texts reports = TakeReports(path);
      EXPECT_TRUE(result == static_cast<int>(reports.size()) || (result == 1 && reports.empty() && model.IsEmpty()));
      EXPECT_TRUE(failing.HasFailed() || reports == sound.reports);
      for (const std::string& each : sound.reports) std::erase(reports, each);
      // Others may follow from the loss: a list that cannot be made leaves its items to the next reader.
      const std::string first = reports.empty() ? "" : reports[0].substr(reports[0].find(']'));
      EXPECT_TRUE(first == "" || first == "]Out of memory" || first == "]File not found") << first;
    });
    Sweep(extent, [&](ProjModel& model, const FailingNew&) {
      model.Read(true, path.data());
      TakeReports(path);
    });
  }
}

// But for the text of a select or a list, whose loss nobody reports.
TEST(OutOfMemory, NothingIsLostInSilence) {
  std::string path = MakeFile("loss.stp", InFrame("#1=DOOR(#2);#2=WALL('a',1.5,#3,(#1,#4,$),(1,2.5),.T.);"
                                                  "#3=PERSON(7);#4=DOOR($);"));
  const Texts sound = ReadBytes(BytesOf(path)).population;
  ASSERT_EQ(sound.size(), 4u);
  Sweep(FailingNew::kAlone, [&](ProjModel& model, const FailingNew&) {
    CurrentModel(&model);
    const int errors = STEPread(path.data(), ProjSchema(), false);
    EXPECT_TRUE(errors > 0 || Population(model) == sound);
    TakeReports(path);
  });
}

TEST(OutOfMemory, AReferenceThatCannotWaitForItsInstanceIsNotInTheList) {
  std::string path = MakeFile("wait.stp", InFrame("#1=PROBE((#2,#3));#2=PERSON(2);#3=PERSON(3);"));
  SetProbe({"a"});
  Sweep(FailingNew::kAlone, [&](ProjModel& model, const FailingNew&) {
    CurrentModel(&model);
    STEPread(path.data(), ProjSchema(), false);
    TakeReports(path);
    for (const std::string& each : Population(model)) EXPECT_EQ(each.find("null"), std::string::npos) << each;
  });
  SetProbe({});
}

TEST(OutOfMemory, InAWriteLeavesAnEarlierFileAsItWasOrWritesItWhole) {
  std::string path = TempPath("written.stp");
  ProjModel source;
  ReadBytes(source, InFrame(kData));
  ASSERT_EQ(source.Write(path.data(), ""), 8);
  const std::string whole = BytesOf(path);
  for (const auto extent : kExtents) {
    Sweep(extent, [&](ProjModel&, const FailingNew& failing) {
      MakeFile("written.stp", "before");
      std::string other = TempPath("not-there.stp");
      const int result = source.Write(path.data(), "");
      const Texts reports = TakeReports(path);
      if (result == -1) {
        EXPECT_TRUE(failing.HasFailed());
        EXPECT_EQ(BytesOf(path), "before");
        EXPECT_TRUE(reports.empty() || reports == Texts{"(1) [Write]Can't create file"});
      } else {
        EXPECT_EQ(result, 8);
        EXPECT_EQ(BytesOf(path), whole);
      }
      if (extent == FailingNew::kAndAllBehind && failing.HasFailed()) {
        EXPECT_EQ(source.Write(other.data(), ""), -1);
        TakeReports(other);
        EXPECT_EQ(BytesOf(other), "(none)") << "without memory no file is made";
      }
    });
  }
}

TEST(OutOfMemory, ANameThatCannotBeCompletedIsNotOpenedCut) {
  const std::string folder = TempPath("");
  std::string name = folder + std::string(490 - folder.size(), '/') + std::string(60, 'n');
  const FailingNew failing(1, FailingNew::kAndAllBehind);
  EXPECT_EQ(STEPwrite(name.data(), "", nullptr, ProjSchema()), -1);
  EXPECT_EQ(STEPread(name.data(), ProjSchema(), false), 1);
  TakeReports("");
  EXPECT_EQ(BytesOf(name.substr(0, 511)), "(none)");  // what fits without memory
}

TEST(OutOfMemory, InEdits) {
  for (const auto extent : kExtents) {
    Sweep(extent, [&](ProjModel& model, const FailingNew&) {
      auto* wall = new Entity(kWall, &model);
      auto* door = new Entity(kDoor, &model);
      model.PrepareHash();
      STEPaggr aggr;
      aggr.Append(wall);
      aggr.Prepend(door);
      aggr.InsertAfter(wall, door);
      aggr.InsertBefore(wall, door);
      aggr.Delete(wall);
      EXPECT_LE(aggr.GetMemberCount(), 3);
      for (const STEPlist* node = aggr.head; node; node = node->next) EXPECT_EQ(node->value.object, door);
      DeleteSTEPlist(&aggr.head);
      STEPselect select;
      select.SetCharPtr(new char[2]{'a', 0});
      const STEPselect copy(select);
      STEPaggr* found = model.GetSTEPaggrAll(kProduct);
      EXPECT_TRUE(!found || found->GetMemberCount() <= 2);
      if (found) DeleteSTEPlist(&found->head);
      delete found;
    });
  }
}

}  // namespace
