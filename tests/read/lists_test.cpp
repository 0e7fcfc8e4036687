// The readers of lists: items, nulls, what breaks a list and where reading goes on.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Lists, KeepTheOrderOfTheFile) {
  ExpectRows({
      {"a", "#1=PERSON(1);#2=PROBE((#3,#1,#3));#3=PERSON(3);", {"PERSON(1)", "PROBE([@3,@1,@3])", "PERSON(3)"}},
      {"A", "#1=PROBE(($,#2,*));#2=PERSON(2);", {"PROBE([null,@2,null])", "PERSON(2)"}},
      {"p", "#1=PROBE((1,$,2.5 -3));", {"PROBE([1,0,2.5,-3])"}},
      {"E", "#1=PROBE((.BLUE.,$,.red.));", {"PROBE([2,0,0])"}},
      {"T", "#1=PROBE(('a','','it''s'));", {"PROBE(['a','','it's'])"}},
      {"apET", "#1=PROBE((),(),(),());", {"PROBE([],[],[],[])"}},
  });
}

TEST(Lists, ANullInPlaceOfAListIsGoodForReferencesAlone) {
  ExpectRows({
      {"aAi", "#1=PROBE($,*,5);", {"PROBE([],[],5)"}},
      {"pi", "#1=PROBE($,5);", {"PROBE([],5)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"Ei", "#1=PROBE($,5);", {"PROBE([],5)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"Ti", "#1=PROBE($,5);", {"PROBE([],5)"}, {"(1) [PROBE]Missing text in list"}},
  });
}

TEST(Lists, AReferenceThatCannotBeSettledIsLeftOutOrKept) {
  ExpectRows({
      {"a",
       "#1=OTHER();#2=PROBE((#1,#2,#3));#3=PERSON(3);",
       {"PROBE([@2])", "PERSON(3)"},
       {"(1) [OTHER]Unknown entity OTHER", "(1) [PROBE]Reference to unknown object #1",
        "(1) [PROBE]Reference to unknown object #2"}},
      {"a",
       "#1=PROBE((#2,#3));#2=OTHER();",
       {"PROBE([null,null])"},
       {"(1) [OTHER]Unknown entity OTHER", "(1) [OTHER]Unknown reference #3",
        "(1) [OTHER]Reference to unknown object #2"}},
      {"a",
       "#1=PERSON(1);#2=PROBE((#1,#3));#3=PERSON(3);",
       {"PERSON(1)", "PROBE([@1,@3])", "PERSON(3)"},
       {"(1) [PROBE]Reference to wrong object type ''", "(1) [PERSON]Reference to wrong object type ''"},
       kWall},
  });
}

TEST(Lists, ATokenThatIsNoItemEndsTheList) {
  ExpectRows({
      {"ai",
       "#1=PERSON(1);#2=PROBE((#1,(#1),#1),7);",
       {"PERSON(1)", "PROBE([@1],7)"},
       {"(1) [PROBE]Missing reference"}},
      {"ai", "#1=PROBE((#2,$,\n#2),7);#2=PERSON(2);", {"PROBE([@2],7)", "PERSON(2)"}, {"(2) [PROBE]Missing reference"}},
      {"pi", "#1=PROBE((1,'a',2),7);", {"PROBE([1],7)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"pi", "#1=PROBE((1,,2),7);", {"PROBE([1],7)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"pi", "#1=PROBE((1,(2,(3)),4),7);", {"PROBE([1],4)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"Ei", "#1=PROBE((.RED.,1),7);", {"PROBE([0],7)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"Ti", "#1=PROBE(('a',$,'b'),7);", {"PROBE(['a'],7)"}, {"(1) [PROBE]Missing text in list"}},
      {"E", "#1=PROBE((.GREEN.,.PINK.,.BLUE.));", {"PROBE([1,0,2])"}, {"(1) [PROBE]Unknown enumeration '.PINK.'"}},
  });
}

TEST(Lists, WhatIsNoListIsSkipped) {
  ExpectRows({
      {"ai", "#1=PROBE(5,7);", {"PROBE([],7)"}, {"(1) [PROBE]Missing reference"}},
      {"pi", "#1=PROBE('a',7);", {"PROBE([],7)"}, {"(1) [PROBE]Missing primitive in list"}},
      {"T", "#1=PROBE();", {"PROBE([])"}, {"(1) [PROBE]Missing text in list", "(1) [PROBE]Syntax"}},
  });
}

// The list does not note the end of the record: the skip goes on to the next `)` or `;`, and the `;` that broke the
// list is given back as well.
TEST(Lists, ASemicolonInsideAListTakesWhatFollowsUpToTheNextBracket) {
  ExpectRows({
      {"pi",
       "#1=PROBE((1;#2=PROBE((2),3);#3=PROBE((3),4);",
       {"PROBE([1],0)", "PROBE([3],4)"},
       {"(1) [PROBE]Missing primitive in list"}},
      {"p",
       "#1=PROBE((1;;#3=PROBE((3));",
       {"PROBE([1])", "PROBE([3])"},
       {"(1) [PROBE]Missing primitive in list", "(1) [PROBE]Syntax"}},
  });
}

TEST(Lists, WithoutAPlaceForTheListItIsReadAndReportedAllTheSame) {
  ExpectRows({
      {"PNXi",
       "#1=PROBE((1,$),(.RED.,.PINK.),('a'),7);",
       {"PROBE(none,none,none,7)"},
       {"(1) [PROBE]Unknown enumeration '.PINK.'"}},
      {"PNXi",
       "#1=PROBE($,(1),('a',2),7);",
       {"PROBE(none,none,none,7)"},
       {"(1) [PROBE]Missing primitive in list", "(1) [PROBE]Missing primitive in list",
        "(1) [PROBE]Missing text in list"}},
  });
}

TEST(Lists, TheFirstItemTakesThePlaceOfNodesThatWereThere) {
  for (const auto& [data, left] : {std::pair{"#1=PROBE(());", 2}, {"#1=PROBE($);", 2}, {"#1=PROBE((5));", 1}}) {
    STEPaggr aggr;
    aggr.Append(1.0);
    aggr.Append(2.0);
    STEPlist* old = aggr.head;
    SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
                STEPaggr* list = &aggr;
                xrSTEPaggrPrim(t, "A", &list);
                return nullptr;
              }});
    ReadData(data);
    EXPECT_EQ(aggr.GetMemberCount(), left) << data;
    if (aggr.head != old) DeleteSTEPlist(&old);
    DeleteSTEPlist(&aggr.head);
  }
  SetProbe({});
}

}  // namespace
