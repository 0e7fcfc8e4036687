// The readers of texts, numbers and keywords.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Scalars, EveryKindTakesItsOwnFormsAndReportsOthers) {
  ExpectRows(R"(
    tir  | #1=PROBE('it''s',-5,2.5);             | PROBE('it's',-5,2.5)
    rr   | #1=PROBE(3,1.E3);                     | PROBE(3,1000)
    ii   | #1=PROBE(99999999999,-99999999999);   | PROBE(2147483647,-2147483648)
    bbbb | #1=PROBE(.T.,.F.,.t.,$);              | PROBE(T,F,T,F)
    llll | #1=PROBE(.T.,.F.,.u.,*);              | PROBE(1,0,-1,-1)
    eeee | #1=PROBE(.RED.,.green.,.Blue.,$);     | PROBE(0,1,2,0)
    ttt  | #1=PROBE('',$,*);                     | PROBE('','','')
    // Commas are optional, and one is taken.
    iti  | #1=PROBE(1 'a' 2);                    | PROBE(1,'a',2)
    iii  | #1=PROBE(1,,2);                       | PROBE(1,0,2)      | Missing integer
    // A number reader gives back what it cannot take.
    it   | #1=PROBE($);                          | PROBE(0,'')       | Missing integer
    ir   | #1=PROBE(2.5);                        | PROBE(0,2.5)      | Missing integer
    r    | #1=PROBE(.T.);                        | PROBE(0)          | Missing real & Syntax
    // The others eat it. Brackets are not counted: the first closing one ends the skip.
    ti   | #1=PROBE(1,2);                        | PROBE('',2)       | Missing text
    bi   | #1=PROBE(1,2);                        | PROBE(F,2)        | Missing bool
    li   | #1=PROBE('.T.',2);                    | PROBE(-1,2)       | Missing logical
    ei   | #1=PROBE(RED,2);                      | PROBE(0,2)        | Missing enumeration
    tii  | #1=PROBE((1,(2),3),4);                | PROBE('',3,0)     | Missing text & Missing integer
    ti   | #1=PROBE((1;#2=PROBE('a',2);          | PROBE('',0) & PROBE('a',2) | Missing text
    // The keyword of a typed value is the whole attribute, and its bracket stays for the next reader.
    tit  | #1=PROBE(LABEL('x'),2);               | PROBE('',0,'')    | Missing text & Missing integer & Missing text & Syntax
    // An unknown keyword is named in the report.
    bi   | #1=PROBE(.U.,1);                      | PROBE(F,1)        | Unknown bool '.U.'
    bi   | #1=PROBE(.T,1);                       | PROBE(F,1)        | Unknown bool '.T'
    li   | #1=PROBE(.x.,1);                      | PROBE(-1,1)       | Unknown logical '.x.'
    ei   | #1=PROBE(.REDD.,1);                   | PROBE(0,1)        | Unknown enumeration '.REDD.'
  )");
  const std::string longName = "." + std::string(255, 'x');
  SetProbe({"e"});
  EXPECT_EQ(ReadData("#1=PROBE(" + longName + ");").reports,
            Texts{"(1) [PROBE]Unknown enumeration '" + longName + "'"});
}

TEST(Scalars, AnEnumerationWithoutNamesMatchesNothing) {
  const auto read = [](STEPtransfer* t) {
    for (const int count : {0, -1}) EXPECT_EQ(rSTEPenum(t, "A", kColours, count), 0);
    return nullptr;
  };
  EXPECT_EQ(ReadWith(read, "#1=PROBE(.RED.,.RED.);").reports, Texts(2, "(1) [PROBE]Unknown enumeration '.RED.'"));
}

TEST(Scalars, TheEndOfTheFileInsideASkipEndsIt) {
  ExpectRows(
      "ti | STEP;DATA;#1=PROBE((1,2\\x20 | PROBE('',0) | Missing text & Missing integer & Syntax & Missing ENDSEC",
      [](const std::string& bytes) { return ReadBytes(bytes); });
}

}  // namespace
