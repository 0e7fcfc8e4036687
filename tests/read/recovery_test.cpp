// Bad records: what is reported, where reading goes on, what stays.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Recovery, OfARecordGoesOnWhereTheTokenThatBrokeItSays) {
  ExpectRows(R"(
    // The semicolon behind a record is not required.
    i    | #1=PROBE(1) #2=PROBE(2);;;#3=PROBE(3)  | PROBE(1) & PROBE(2) & PROBE(3)
    f    | #1=OTHER(1,(2));#2=probe(#1);          | PROBE(null) | (1) [OTHER]Unknown entity OTHER & (1) [probe]Reference to unknown object #1
    f    | #1=PRODUCT();#2=PROBE(#1);             | PROBE(null) | (1) [PRODUCT]Syntax & Reference to unknown object #1
    // A token in place of the opening bracket is lost, one in place of the closing given back.
    f    | #1=PROBE;#2=PROBE($);#3=PROBE(#2);     | PROBE(kept) | Syntax & Unknown reference #2
    i    | #1=PROBE(1,2);#2=PROBE(2);             | PROBE(1) & PROBE(2) | Syntax
    f    | #1=PROBE($,5);#2=PROBE(#1);            | PROBE(null) & PROBE(@1) | Syntax
    // A record that ends early gives neutral values in silence.
    ii   | #1=PROBE(1;#2=PROBE(2,3);              | PROBE(1,0) & PROBE(2,3)
    irblets | #1=PROBE(7;                         | PROBE(7,0,F,-1,0,'',none)
    ifaApET | #1=PROBE(7;                         | PROBE(7,kept,none,none,none,none,none)
    // One that closes early goes by the reader that meets the bracket.
    itti | #1=PROBE(1);                           | PROBE(1,'','',0) | Missing text
    iiri | #1=PROBE(1);                           | PROBE(1,0,0,0)  | Missing integer & Missing real & Missing integer
    itii | #1=PROBE(1) 5;                         | PROBE(1,'',0,0) | Missing text
    // A doubled number is reported, and the later record wins the table.
    f | #1=PERSON(1);#2=NOTE('x');\n#1=PERSON(2);#3=PROBE(#1); | PERSON(1) & NOTE('x') & PERSON(2) & PROBE(@3) | (2) [NOTE]Entity #1 already used
    f | #1=PERSON(1);#1=OTHER();#3=PROBE(#1); | PERSON(1) & PROBE(@1) | (1) [PERSON]Entity #1 already used & (1) [OTHER]Unknown entity OTHER
  )");
}

TEST(Recovery, AReadFunctionMayMakeNoInstance) {
  const auto read = [](STEPtransfer* t) { return rSTEPint(t, "A"), nullptr; };
  EXPECT_EQ(ReadWith(read, "#1=PROBE(1);#2=DOOR(#1);#3=DOOR(#4);#4=PROBE(2);"),
            (Outcome{2,
                     {"(1) [DOOR]Reference to unknown object #1", "(1) [PROBE]Reference to unknown object #4"},
                     {"DOOR(null)", "DOOR(null)"}}));
  EXPECT_EQ(ReadWith(read, "#1=PERSON(1);#1=PROBE(1);#2=DOOR(#1);"),
            (Outcome{2,
                     {"(1) [PERSON]Entity #1 already used", "(1) [DOOR]Reference to unknown object #1"},
                     {"PERSON(1)", "DOOR(null)"}}))
      << "that of an earlier record does not stay in the table";
}

}  // namespace
