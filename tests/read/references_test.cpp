// Single references and selects, to what lies behind, ahead, or nowhere, of right and of wrong types.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(References, BehindAndAheadAreFound) {
  ExpectRows({
      {"f", "#1=PERSON(1);#2=PROBE(#1);", {"PERSON(1)", "PROBE(@1)"}},
      {"f", "#2=PROBE(#1);#1=PERSON(1);", {"PROBE(@2)", "PERSON(1)"}},
      {"ff", "#1=PROBE($,*);", {"PROBE(null,null)"}},
      {"f", "#637558973=PROBE(#1);#1=PROBE(#637558973);", {"PROBE(@2)", "PROBE(@1)"}},
  });
}

TEST(References, ATypeIsTestedAtOnceOrWhenTheReferenceIsSettled) {
  ExpectRows({
      {"f", "#1=DOOR($);#2=PROBE(#1);", {"DOOR(null)", "PROBE(@1)"}, {}, kProduct},
      {"f", "#2=PROBE(#1);#1=DOOR($);", {"PROBE(@2)", "DOOR(null)"}, {}, kWall},
      {"f",
       "#1=PERSON(1);\n#2=PROBE(#1);\n#3=NOTE('');",
       {"PERSON(1)", "PROBE(@1)", "NOTE('')"},
       {"(2) [PROBE]Reference to wrong object type ''"},
       kWall},
      {"f",
       "#1=PROBE(#2);\n#2=PERSON(1);\n#3=NOTE('');",
       {"PROBE(@2)", "PERSON(1)", "NOTE('')"},
       {"(3) [NOTE]Reference to wrong object type ''"},
       kWall},
  });
}

TEST(References, WhatIsNoReferenceIsSkippedBeforeTheReport) {
  ExpectRows({
      {"fi", "#1=PROBE(5,2);", {"PROBE(kept,2)"}, {"(1) [PROBE]Missing reference"}},
      {"fi", "#1=PROBE((1,\n'a'),2);", {"PROBE(kept,2)"}, {"(2) [PROBE]Missing reference"}},
      {"fi", "#1=PROBE();", {"PROBE(kept,0)"}, {"(1) [PROBE]Missing reference"}},
  });
}

TEST(References, UnsettledOnesAreReportedLastOneFirst) {
  ExpectRows({
      {"ff",
       "#1=PROBE(#7,#8);#2=PROBE(#9,#2);",
       {"PROBE(kept,kept)", "PROBE(kept,null)"},
       {"(1) [PROBE]Reference to unknown object #2", "(1) [PROBE]Unknown reference #9",
        "(1) [PROBE]Unknown reference #8", "(1) [PROBE]Unknown reference #7"}},
  });
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
  SetProbe({});
}

TEST(References, TheIdOfAnInstanceShowsInTheReport) {
  SetProbe({"", -1, [](STEPtransfer*) {
              auto* object = new Entity(kPerson);
              object->Id("the id");
              return object;
            }});
  EXPECT_EQ(ReadData("#1=PROBE();#2=DOOR(#1);").reports, Texts{"(1) [DOOR]Reference to wrong object type 'the id'"});
  SetProbe({});
}

TEST(Selects, TakeEveryKindOfValue) {
  ExpectRows({
      {"sssss", "#1=PROBE(-5,2.5,'it''s',$,*);", {"PROBE(int -5,real 2.5,text 'it's',object null,object null)"}},
      {"s", "#1=PERSON(1);#2=PROBE(#1);", {"PERSON(1)", "PROBE(object @1)"}},
      {"s", "#2=PROBE(#1);#1=PERSON(1);", {"PROBE(object @2)", "PERSON(1)"}, {}, kWall},
      {"s", "#1=PROBE(#1);", {"PROBE(object null)"}},
      {"s", "#1=PROBE(#2);", {"PROBE(object null)"}, {"(1) [PROBE]Unknown reference #2"}},
      {"s",
       "#1=PROBE(#2);#2=OTHER();",
       {"PROBE(object null)"},
       {"(1) [OTHER]Unknown entity OTHER", "(1) [OTHER]Reference to unknown object #2"}},
  });
}

TEST(Selects, RefuseEnumerationsTypedValuesAndLists) {
  ExpectRows({
      {"si", "#1=PROBE(.T.,1);", {"PROBE(none,1)"}, {"(1) [PROBE]Missing reference"}},
      {"ss",
       "#1=PROBE(LABEL('x'));",
       {"PROBE(none,none)"},
       {
           "(1) [PROBE]Missing reference",
           "(1) [PROBE]Missing reference",
       }},
      {"si", "#1=PROBE((1,2),3);", {"PROBE(none,3)"}, {"(1) [PROBE]Missing reference"}},
  });
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
  SetProbe({});
}

}  // namespace
