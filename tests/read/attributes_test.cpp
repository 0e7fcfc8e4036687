// The readers of attributes, and bad records: what they give, what is reported and where reading goes on.
#include "read/attribute_rows.h"
#include "whole/reference/reader.h"

namespace {

using namespace steprt_test;

// The rows hold the reference reader, too.
TEST(Attributes, GiveWhatTheirRowsSay) {
  ExpectRows("read/attributes.rows", ReadData);
  ExpectRows("read/attributes.rows", [](const std::string& data) { return ReadByReference({.bytes = InFrame(data)}); });
}

TEST(Attributes, AnUnknownEnumeratorIsNamedWhole) {
  const std::string longName = "." + std::string(255, 'x');
  SetProbe({"e"});
  EXPECT_EQ(ReadData("#1=PROBE(" + longName + ");").reports,
            Texts{"(1) [PROBE]Unknown enumeration '" + longName + "'"});
}

TEST(Attributes, AnEnumerationWithoutNamesMatchesNothing) {
  const auto read = [](STEPtransfer* t) {
    for (const int count : {0, -1}) EXPECT_EQ(rSTEPenum(t, "A", kColours, count), 0);
    return nullptr;
  };
  EXPECT_EQ(ReadWith(read, "#1=PROBE(.RED.,.RED.);").reports, Texts(2, "(1) [PROBE]Unknown enumeration '.RED.'"));
}

TEST(Attributes, TheEndOfTheFileInsideASkipEndsIt) {
  SetProbe({"ti"});
  EXPECT_EQ(ReadBytes("STEP;DATA;#1=PROBE((1,2 "), (Outcome{4,
                                                            {"(1) [PROBE]Missing text", "(1) [PROBE]Missing integer",
                                                             "(1) [PROBE]Syntax", "(1) [PROBE]Missing ENDSEC"},
                                                            {"PROBE('',0)"}}));
}

TEST(Attributes, AReadFunctionMayMakeNoInstance) {
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
