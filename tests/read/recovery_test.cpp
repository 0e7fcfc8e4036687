// Bad records: what is reported, where reading goes on, what stays.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Recovery, TheSemicolonBehindARecordIsNotRequired) {
  ExpectRows(R"(
    i | #1=PROBE(1) #2=PROBE(2);;;#3=PROBE(3) | PROBE(1) & PROBE(2) & PROBE(3)
      | #1=PROBE();                           | PROBE()
  )");
}

TEST(Recovery, ARecordOfNoKnownEntityIsSkipped) {
  ExpectRows(R"(
    i | #1=OTHER(1,(2));#2=probe(2);  | PROBE(2)    | (1) [OTHER]Unknown entity OTHER
    i | #1=OTHER\n;#2=PROBE(2);       | PROBE(2)    | (1) [OTHER]Unknown entity OTHER
    f | #1=OTHER();#2=PROBE(#1);      | PROBE(null) | (1) [OTHER]Unknown entity OTHER & Reference to unknown object #1
    f | #1=PROBE(#2);#2=OTHER(); | PROBE(null) | (1) [OTHER]Unknown entity OTHER & (1) [OTHER]Reference to unknown object #2
    f | #1=PRODUCT();#2=PROBE(#1);    | PROBE(null) | (1) [PRODUCT]Syntax & Reference to unknown object #1
  )");
}

TEST(Recovery, ATokenInPlaceOfTheOpeningBracketIsLostAndOneInPlaceOfTheClosingGivenBack) {
  ExpectRows(R"(
      | #1=PROBE;#2=PROBE();#3=PROBE();         | PROBE()                 | Syntax
      | #1=PROBE 5();#2=PROBE();                | PROBE()                 | Syntax
    f | #1=PROBE;#2=PROBE($);#3=PROBE(#2);      | PROBE(kept)             | Syntax & Unknown reference #2
    i | #1=PROBE(1,2);#2=PROBE(2);              | PROBE(1) & PROBE(2)     | Syntax
    i | #1=PROBE(1;#2=PROBE(2);                 | PROBE(1) & PROBE(2)     | Syntax
    f | #1=PROBE($,5);#2=PROBE(#1);             | PROBE(null) & PROBE(@1) | Syntax
  )");
}

TEST(Recovery, ARecordThatEndsEarlyGivesNeutralValuesInSilence) {
  ExpectRows(R"(
    ii      | #1=PROBE(1;#2=PROBE(2,3);        | PROBE(1,0) & PROBE(2,3)
    irblets | #1=PROBE(7;                      | PROBE(7,0,F,-1,0,'',none)
    ifaApET | #1=PROBE(7;                      | PROBE(7,kept,none,none,none,none,none)
    itt     | #1=PROBE(7,;#2=PROBE(2,'a','b'); | PROBE(7,'','') & PROBE(2,'a','b')
  )");
}

TEST(Recovery, ARecordThatClosesEarlyGoesByTheReaderThatMeetsTheBracket) {
  ExpectRows(R"(
    it   | #1=PROBE(1);   | PROBE(1,'')     | Missing text & Syntax
    itti | #1=PROBE(1);   | PROBE(1,'','',0) | Missing text
    ii   | #1=PROBE(1);   | PROBE(1,0)      | Missing integer
    iiri | #1=PROBE(1);   | PROBE(1,0,0,0)  | Missing integer & Missing real & Missing integer
    itii | #1=PROBE(1) 5; | PROBE(1,'',0,0) | Missing text
    i    | #1=PROBE();    | PROBE(0)        | Missing integer
  )");
}

TEST(Recovery, ADoubledNumberIsReportedAndTheLaterRecordWinsTheTable) {
  ExpectRows(R"(
    f | #1=PERSON(1);#2=NOTE('x');\n#1=PERSON(2);#3=PROBE(#1); | PERSON(1) & NOTE('x') & PERSON(2) & PROBE(@3) | (2) [NOTE]Entity #1 already used
    f | #1=PERSON(1);#1=OTHER();#3=PROBE(#1); | PERSON(1) & PROBE(@1) | (1) [PERSON]Entity #1 already used & (1) [OTHER]Unknown entity OTHER
    f | #1=PROBE(#1); | PROBE(null) | Reference to unknown object #1
    f | #-1=PERSON(1);#0=PERSON(0);#4096=PROBE(#0);#8192=PROBE(#-1);#12288=PROBE(#4096); | PERSON(1) & PERSON(0) & PROBE(@2) & PROBE(@1) & PROBE(@3)
  )");
}

TEST(Recovery, AReadFunctionMayMakeNoInstance) {
  const auto read = [](STEPtransfer* t) { return rSTEPint(t, "A"), nullptr; };
  EXPECT_EQ(ReadWith(read, "#1=PROBE(1);#2=DOOR(#1);#3=DOOR(#4);#4=PROBE(2);"),
            (Outcome{2,
                     {"(1) [DOOR]Reference to unknown object #1", "(1) [PROBE]Reference to unknown object #4"},
                     {"DOOR(null)", "DOOR(null)"}}));
}

}  // namespace
