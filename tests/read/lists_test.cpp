// The readers of lists: items, nulls, what breaks a list and where reading goes on.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Lists, TakeTheirItemsAndEndAtATokenThatIsNone) {
  ExpectRows(R"(
    a    | #1=PERSON(1);#2=PROBE((#3,#1,#3));#3=PERSON(3); | PERSON(1) & PROBE([@3,@1,@3]) & PERSON(3)
    A    | #1=PROBE(($,#2,*));#2=PERSON(2);                | PROBE([null,@2,null]) & PERSON(2)
    p    | #1=PROBE((1,$,2.5 -3));                         | PROBE([1,0,2.5,-3])
    E    | #1=PROBE((.BLUE.,$,.red.,.PINK.));              | PROBE([2,0,0,0]) | Unknown enumeration '.PINK.'
    T    | #1=PROBE(('a','','it''s'));                     | PROBE(['a','','it's'])
    // A null in place of a list is good for references alone.
    aAi  | #1=PROBE($,*,5);                                | PROBE([],[],5)
    pi   | #1=PROBE($,5);                                  | PROBE([],5)      | Missing primitive in list
    ai   | #1=PERSON(1);#2=PROBE((#1,(#1),#1),7);          | PERSON(1) & PROBE([@1],7) | Missing reference
    pi   | #1=PROBE((1,,2),7);                             | PROBE([1],7)     | Missing primitive in list
    pi   | #1=PROBE((1,(2,(3)),4),7);                      | PROBE([1],4)     | Missing primitive in list
    Ti   | #1=PROBE(('a',$,'b'),7);                        | PROBE(['a'],7)   | Missing text in list
    // The list does not note the end of the record: the skip goes on to the next `)` or `;`, and the `;` that broke the
    // list is given back as well.
    pi   | #1=PROBE((1;#2=PROBE((2),3);#3=PROBE((3),4);    | PROBE([1],0) & PROBE([3],4) | Missing primitive in list
    p    | #1=PROBE((1;;#3=PROBE((3));                     | PROBE([1]) & PROBE([3])     | Missing primitive in list & Syntax
    // Without a place for the list it is read and reported all the same.
    PNXi | #1=PROBE($,(.RED.,.PINK.),('a',2),7); | PROBE(none,none,none,7) | Missing primitive in list & Unknown enumeration '.PINK.' & Missing text in list
  )");
  const auto read = [](STEPtransfer* t) { return xrSTEPaggr(t, "A", nullptr, -1, true), nullptr; };
  EXPECT_EQ(ReadWith(read, "#1=PROBE(($,#1,5));"), (Outcome{1, {"(1) [PROBE]Missing reference"}, {}}));
}

TEST(Lists, TheFirstItemTakesThePlaceOfNodesThatWereThere) {
  for (const auto& [data, left] : {std::pair{"#1=PROBE(());", 2}, {"#1=PROBE($);", 2}, {"#1=PROBE((5));", 1}}) {
    STEPaggr aggr;
    aggr.Append(1.0);
    aggr.Append(2.0);
    STEPlist* old = aggr.head;
    const auto read = [&](STEPtransfer* t) {
      STEPaggr* list = &aggr;
      return xrSTEPaggrPrim(t, "A", &list), nullptr;
    };
    ReadWith(read, data);
    EXPECT_EQ(aggr.GetMemberCount(), left) << data;
    if (aggr.head != old) DeleteSTEPlist(&old);
    DeleteSTEPlist(&aggr.head);
  }
}

}  // namespace
