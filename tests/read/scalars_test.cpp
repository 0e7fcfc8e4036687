// The readers of texts, numbers and keywords.
#include "read/attribute_rows.h"

namespace {

using namespace steprt_test;

TEST(Scalars, EveryKindTakesItsOwnForms) {
  ExpectRows({
      {"tir", "#1=PROBE('it''s',-5,2.5);", {"PROBE('it's',-5,2.5)"}},
      {"rr", "#1=PROBE(3,1.E3);", {"PROBE(3,1000)"}},
      {"ii", "#1=PROBE(99999999999,-99999999999);", {"PROBE(2147483647,-2147483648)"}},
      {"bbbb", "#1=PROBE(.T.,.F.,.t.,$);", {"PROBE(T,F,T,F)"}},
      {"llll", "#1=PROBE(.T.,.F.,.u.,*);", {"PROBE(1,0,-1,-1)"}},
      {"eeee", "#1=PROBE(.RED.,.green.,.Blue.,$);", {"PROBE(0,1,2,0)"}},
      {"ttt", "#1=PROBE('',$,*);", {"PROBE('','','')"}},
  });
}

TEST(Scalars, CommasAreOptionalAndOneIsTaken) {
  ExpectRows({
      {"iti", "#1=PROBE(1 'a' 2);", {"PROBE(1,'a',2)"}},
      {"ii", "#1=PROBE(,1,2);", {"PROBE(1,2)"}},
      {"ii", "#1=PROBE(1,,2);", {"PROBE(1,0)"}, {"(1) [PROBE]Missing integer", "(1) [PROBE]Syntax"}},
      {"iii", "#1=PROBE(1,,2);", {"PROBE(1,0,2)"}, {"(1) [PROBE]Missing integer"}},
      {"iti", "#1=PROBE(1,,2);", {"PROBE(1,'',2)"}, {"(1) [PROBE]Missing text"}},
  });
}

TEST(Scalars, ANumberReaderGivesBackWhatItCannotTake) {
  ExpectRows({
      {"it", "#1=PROBE($);", {"PROBE(0,'')"}, {"(1) [PROBE]Missing integer"}},
      {"rb", "#1=PROBE(*);", {"PROBE(0,F)"}, {"(1) [PROBE]Missing real"}},
      {"ir", "#1=PROBE(2.5);", {"PROBE(0,2.5)"}, {"(1) [PROBE]Missing integer"}},
      {"iirt",
       "#1=PROBE('a');",
       {"PROBE(0,0,0,'a')"},
       {"(1) [PROBE]Missing integer", "(1) [PROBE]Missing integer", "(1) [PROBE]Missing real"}},
      {"r", "#1=PROBE(.T.);", {"PROBE(0)"}, {"(1) [PROBE]Missing real", "(1) [PROBE]Syntax"}},
  });
}

TEST(Scalars, OtherReadersEatWhatTheyCannotTake) {
  ExpectRows({
      {"ti", "#1=PROBE(1,2);", {"PROBE('',2)"}, {"(1) [PROBE]Missing text"}},
      {"bi", "#1=PROBE(1,2);", {"PROBE(F,2)"}, {"(1) [PROBE]Missing bool"}},
      {"li", "#1=PROBE('.T.',2);", {"PROBE(-1,2)"}, {"(1) [PROBE]Missing logical"}},
      {"ei", "#1=PROBE(RED,2);", {"PROBE(0,2)"}, {"(1) [PROBE]Missing enumeration"}},
      {"ti", "#1=PROBE((1,'a',$),2);", {"PROBE('',2)"}, {"(1) [PROBE]Missing text"}},
      // Brackets are not counted: the first closing one ends the skip.
      {"tii", "#1=PROBE((1,(2),3),4);", {"PROBE('',3,0)"}, {"(1) [PROBE]Missing text", "(1) [PROBE]Missing integer"}},
      {"ti", "#1=PROBE((1;#2=PROBE('a',2);", {"PROBE('',0)", "PROBE('a',2)"}, {"(1) [PROBE]Missing text"}},
      // The keyword of a typed value is the whole attribute, and its bracket stays for the next reader.
      {"tit",
       "#1=PROBE(LABEL('x'),2);",
       {"PROBE('',0,'')"},
       {"(1) [PROBE]Missing text", "(1) [PROBE]Missing integer", "(1) [PROBE]Missing text", "(1) [PROBE]Syntax"}},
  });
}

TEST(Scalars, AnUnknownKeywordIsNamedInTheReport) {
  const std::string longName(256, 'x');
  ExpectRows({
      {"bi", "#1=PROBE(.U.,1);", {"PROBE(F,1)"}, {"(1) [PROBE]Unknown bool '.U.'"}},
      {"bi", "#1=PROBE(.T,1);", {"PROBE(F,1)"}, {"(1) [PROBE]Unknown bool '.T'"}},
      {"li", "#1=PROBE(.x.,1);", {"PROBE(-1,1)"}, {"(1) [PROBE]Unknown logical '.x.'"}},
      {"ei", "#1=PROBE(.REDD.,1);", {"PROBE(0,1)"}, {"(1) [PROBE]Unknown enumeration '.REDD.'"}},
      {"e",
       ("#1=PROBE(." + longName.substr(1) + ");").c_str(),
       {"PROBE(0)"},
       {"(1) [PROBE]Unknown enumeration '." + longName.substr(1) + "'"}},
  });
}

TEST(Scalars, AnEnumerationWithoutNamesMatchesNothing) {
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              for (const int count : {0, -1}) EXPECT_EQ(rSTEPenum(t, "A", kColours, count), 0);
              return nullptr;
            }});
  EXPECT_EQ(ReadData("#1=PROBE(.RED.,.RED.);").reports,
            (Texts{"(1) [PROBE]Unknown enumeration '.RED.'", "(1) [PROBE]Unknown enumeration '.RED.'"}));
  SetProbe({});
}

TEST(Scalars, TheEndOfTheFileInsideASkipEndsIt) {
  SetProbe({"ti"});
  const Outcome outcome = ReadBytes("STEP;DATA;#1=PROBE((1,2 ");
  EXPECT_EQ(outcome.population, Texts{"PROBE('',0)"});
  EXPECT_EQ(outcome.reports, (Texts{"(1) [PROBE]Missing text", "(1) [PROBE]Missing integer", "(1) [PROBE]Syntax",
                                    "(1) [PROBE]Missing ENDSEC"}));
  SetProbe({});
}

}  // namespace
