// Single references and selects: many of them, and what a client sees while they are settled. See attributes.rows too.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

// More of them than are settled at one go.
TEST(References, ManyAreSettledInOneOrder) {
  std::string data;
  Outcome expected;
  for (int i = 1; i <= 100; ++i) {
    const std::string number = std::to_string(i), target = std::to_string(i % 3 == 0 ? i + 1000 : i % 100 + 1);
    data += "#" + number + "=PROBE(#" + target + ");";
    expected.population.push_back(i % 3 == 0 ? "PROBE(kept)" : "PROBE(@" + target + ")");
    if (i % 3 == 0) expected.reports.insert(expected.reports.begin(), "(1) [PROBE]Unknown reference #" + target);
  }
  expected.result = static_cast<int>(expected.reports.size());
  SetProbe({"f", -1});
  EXPECT_EQ(ReadData(data), expected);
}

STEPheader* failedSlot;
bool slotWasNullAtTheReport;

TEST(References, TheSlotOfAFailedOneIsNullBeforeTheReport) {
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              Entity old(kPerson);
              failedSlot = &old;
              slotWasNullAtTheReport = false;
              xrSTEPref(t, "A", &failedSlot, -1, true);
              return nullptr;
            }});
  ProjModel model;
  const STEPerrorProc collect = model.schema->errorProc;
  model.schema->errorProc = [](const char*) { slotWasNullAtTheReport = !failedSlot; };
  EXPECT_EQ(ReadBytes(model, InFrame("#1=PROBE(#1);\n#2=PERSON(1);")).result, 1);
  model.schema->errorProc = collect;
  EXPECT_TRUE(slotWasNullAtTheReport);
}

// In a list it is the other way round: there `$` is refused unless it is allowed.
TEST(References, ANullIsTakenEvenIfItIsNotAllowed) {
  for (const std::string data : {"#1=PROBE($);", "#1=PROBE(*);"}) {
    Entity old(kPerson);
    STEPheader* slot = &old;
    const auto read = [&](STEPtransfer* t) { return xrSTEPref(t, "A", &slot, -1, false), nullptr; };
    EXPECT_EQ(ReadWith(read, data), (Outcome{0, {}, {}})) << data;
    EXPECT_EQ(slot, nullptr) << data;
  }
}

TEST(References, TheIdOfAnInstanceShowsInTheReport) {
  const auto read = [](STEPtransfer*) {
    auto* object = new Entity(kPerson);
    return object->Id("the id"), object;
  };
  EXPECT_EQ(ReadWith(read, "#1=PROBE();#2=DOOR(#1);").reports,
            Texts{"(1) [DOOR]Reference to wrong object type 'the id'"});
}

TEST(References, ATypeIsTheInstancesAtTheTimeOfTheTest) {
  const auto changeEarlier = [](STEPtransfer*) -> STEPheader* {
    for (STEPheader* i = CurrentModel()->Inst(); i; i = i->NextHead()) i->Type(kPerson);
    return new Entity(kProbe);
  };
  const std::string wall = "WALL('',0.,$,$,(),.F.);";
  EXPECT_EQ(
      ReadWith(changeEarlier, "#1=" + wall + "#2=DOOR(#1);#3=PROBE();\n#4=DOOR(#1);#5=DOOR(#6);#6=" + wall).reports,
      Texts{"(2) [DOOR]Reference to wrong object type ''"});
  EXPECT_EQ(ReadWith(changeEarlier, "#1=DOOR(#2);#2=" + wall + "#3=PROBE();\n#4=NOTE('');").reports,
            Texts{"(2) [NOTE]Reference to wrong object type ''"});
}

TEST(Selects, AForwardReferenceIsANullObjectUntilTheEnd) {
  STEPselect select;
  select.SetInt(5);
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              rSTEPsel(t, "A", &select);
              EXPECT_EQ(select.Type(), STEPselect::SEL_OBJ);
              EXPECT_EQ(select.GetSTEPobj(), nullptr);
              return nullptr;
            }});
  ProjModel model;
  ReadBytes(model, InFrame("#1=PROBE(#2);#2=PERSON(1);"));
  EXPECT_EQ(select.GetSTEPobj(), model.FindFirst(kPerson));
}

}  // namespace
