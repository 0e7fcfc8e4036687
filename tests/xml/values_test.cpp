// The attribute readers in XML, and the values that both forms read alike.
#include <gtest/gtest.h>

#include "xml/documents.h"

namespace {

using namespace steprt_test;

// What a PROBE with attributes of these kinds, named "A", "B" and so on, makes of its child elements.
struct Row {
  const char* kinds;
  const char* children;
  const char* probe;
  Texts reports = {};
  int expected = -1;  // type of the references
};

void ExpectRows(const std::vector<Row>& rows, const std::string& further = "") {
  for (const Row& row : rows) {
    SetProbe({row.kinds, row.expected});
    const Outcome outcome = ReadDocument(InRoot("<PROBE rid='#1'>" + std::string(row.children) + "</PROBE>" + further));
    const std::string what = std::string(row.kinds) + " of " + row.children;
    EXPECT_EQ(outcome.population.front(), row.probe) << what;
    EXPECT_EQ(outcome.reports, row.reports) << what;
    EXPECT_EQ(outcome.result, static_cast<int>(row.reports.size())) << what;
  }
  SetProbe({});
}

// ---- both forms alike ----------------------------------------------------------------------------------------------

struct SharedRow {
  const char* kind;
  const char* clearText;
  const char* xml;
  const char* value;
};

const SharedRow kSharedRows[] = {
    {"t", "'abc'", "abc", "'abc'"},
    {"t", "''", "", "''"},
    {"t", "' a b '", " a b ", "' a b '"},
    {"t", "'it''s'", "it's", "'it's'"},
    {"t", "'<&>'", "&lt;&amp;&gt;", "'<&>'"},
    {"t", "'\xe9'", "&#233;", "'\xe9'"},
    {"t", "'#7'", "#7", "'#7'"},
    {"i", "0", "0", "0"},
    {"i", "-12", "-12", "-12"},
    {"i", "+12", "+12", "12"},
    {"i", "2147483647", "2147483647", "2147483647"},
    {"i", "-2147483648", "-2147483648", "-2147483648"},
    {"i", "99999999999", "99999999999", "2147483647"},
    {"r", "2.5", "2.5", "2.5"},
    {"r", "-.5", "-.5", "-0.5"},
    {"r", "1.E3", "1.E3", "1000"},
    {"r", "7", "7", "7"},
    {"r", "1e-05", "1e-05", "1e-05"},
    {"r", "123456789012345678901234567890.", "123456789012345678901234567890.", "1.2345678901234568e+29"},
    {"r", "1.E999", "1.E999", "inf"},
    {"b", ".T.", ".T.", "T"},
    {"b", ".f.", ".f.", "F"},
    {"l", ".T.", ".T.", "1"},
    {"l", ".F.", ".F.", "0"},
    {"l", ".u.", ".u.", "-1"},
    {"e", ".RED.", ".RED.", "0"},
    {"e", ".Blue.", ".Blue.", "2"},
    {"s", "5", "5", "int 5"},
    {"s", "-5", "-5", "int -5"},
    {"s", "2.5", "2.5", "real 2.5"},
    {"s", "1.E3", "1.E3", "real 1000"},
    {"s", "'_x'", "_x", "text '_x'"},
    {"s", "'1.5x'", "1.5x", "text '1.5x'"},
    {"s", "$", "$", "object null"},
    {"s", "#2", "#2", "object @2"},
    {"s", "#1", "#1", "object null"},
    {"f", "#2", "#2", "@2"},
    {"f", "$", "$", "null"},
    {"a", "(#2,#3)", "#2 #3", "[@2,@3]"},
    {"a", "()", "", "[]"},
    {"A", "(#2,$,#3)", "#2 $ #3", "[@2,null,@3]"},
    {"p", "(1,2.5)", "1;2.5", "[1,2.5]"},
    {"p", "(1,$)", "1;$", "[1,0]"},
    {"p", "()", "", "[]"},
    {"P", "(1)", "1", "none"},
    {"T", "('x','y z')", "'x';'y z'", "['x','y z']"},
    {"T", "('')", "''", "['']"},
    {"T", "()", "", "[]"},
    {"X", "('a')", "'a'", "none"},
};

TEST(XmlValues, BothFormsReadAlike) {
  for (const SharedRow& row : kSharedRows) {
    SetProbe({row.kind});
    const Texts population = {"PROBE(" + std::string(row.value) + ")", "PERSON(2)", "PERSON(3)"};
    const Outcome wanted = {0, {}, population};
    const std::string data = std::string("#1=PROBE(") + row.clearText + ");#2=PERSON(2);#3=PERSON(3);";
    const std::string further = "<PERSON rid='#2'><Age>2</Age></PERSON><PERSON rid='#3'><Age>3</Age></PERSON>";
    const Outcome xml = ReadDocument(InRoot("<PROBE rid='#1'><A>" + std::string(row.xml) + "</A></PROBE>" + further));
    EXPECT_EQ(ReadData(data), wanted) << row.kind << " of " << row.clearText;
    EXPECT_EQ(xml, wanted) << row.kind << " of " << row.xml;
  }
  SetProbe({});
}

// ---- XML alone -----------------------------------------------------------------------------------------------------

TEST(XmlValues, NumbersAreWhateverCanBeSeenInThem) {
  ExpectRows({
      {"iiii", "<A>12abc</A><B>$</B><C>2.9</C><D> \n12 </D>", "PROBE(12,0,2,12)"},
      {"rrrr", "<A>2.5abc</A><B>$</B><C>1,5</C><D>\t-1e2 </D>", "PROBE(2.5,0,1,-100)"},
  });
}

TEST(XmlValues, DollarIsNoNullForTextsAndKeywords) {
  ExpectRows({
      {"t", "<A>$</A>", "PROBE('$')"},
      {"b", "<A>$</A>", "PROBE(F)", {"(1) [PROBE]Unknown bool '$'"}},
      {"l", "<A>$</A>", "PROBE(-1)", {"(1) [PROBE]Unknown logical '$'"}},
      {"e", "<A>$</A>", "PROBE(0)", {"(1) [PROBE]Unknown enumeration '$'"}},
  });
}

TEST(XmlValues, KeywordsAreComparedWhole) {
  ExpectRows({
      {"b", "<A>.U.</A>", "PROBE(F)", {"(1) [PROBE]Unknown bool '.U.'"}},
      {"b", "<A> .T.</A>", "PROBE(F)", {"(1) [PROBE]Unknown bool ' .T.'"}},
      {"l", "<A>.T</A>", "PROBE(-1)", {"(1) [PROBE]Unknown logical '.T'"}},
      {"e", "<A>RED</A>", "PROBE(0)", {"(1) [PROBE]Unknown enumeration 'RED'"}},
      {"e", "<A>.green. </A>", "PROBE(0)", {"(1) [PROBE]Unknown enumeration '.green. '"}},
  });
}

TEST(XmlValues, AnUnknownKeywordOfAnyLengthIsReported) {
  const std::string name(100'000, 'x');
  SetProbe({"e"});
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>" + name + "</A>")).reports,
            Texts{"(1) [PROBE]Unknown enumeration '" + name + "'"});
  SetProbe({});
}

TEST(XmlValues, MissingElementsGiveNeutralValues) {
  const Texts keywords = {"(1) [PROBE]Unknown bool ''", "(1) [PROBE]Unknown logical ''",
                          "(1) [PROBE]Unknown enumeration ''"};
  ExpectRows({
      {"tirf", "", "PROBE('',0,0,null)"},
      {"tirf", "<A/><B></B><C></C><D/>", "PROBE('',0,0,null)"},
      {"ble", "", "PROBE(F,-1,0)", keywords},
      {"ble", "<A/><B/><C/>", "PROBE(F,-1,0)", keywords},
      {"saApT", "", "PROBE(none,[],[],[],[])"},
      {"saApT", "<A/><B/><C/><D/><E/>", "PROBE(none,[],[],[],[])"},
  });
}

TEST(XmlValues, AnEnumerationWithoutNamesMatchesNothing) {
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              for (const int count : {0, -1}) EXPECT_EQ(rSTEPenum(t, "A", kColours, count), 0);
              return nullptr;
            }});
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>.RED.</A>")).reports,
            (Texts{"(1) [PROBE]Unknown enumeration '.RED.'", "(1) [PROBE]Unknown enumeration '.RED.'"}));
  SetProbe({});
}

TEST(XmlValues, ATextIsTheElementsOwnAndTheEmptyOneTheLibrarys) {
  const char* empty = nullptr;
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              EXPECT_EQ(rSTEPtext(t, "A"), rSTEPtext(t, "a"));
              empty = rSTEPtext(t, "B");
              EXPECT_EQ(rSTEPtext(t, "C"), empty);
              return nullptr;
            }});
  ReadDocument(ProbeDocument("<A>1</A><B/>"));
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              EXPECT_EQ(rSTEPtext(t, "A"), empty) << "clear text gives the same";
              return nullptr;
            }});
  ReadData("#1=PROBE($);");
  SetProbe({});
}

TEST(XmlValues, SelectsGoByTheShapeOfTheText) {
  ExpectRows(
      {
          {"ssss", "<A>12 </A><B>'a'</B><C>  9</C><D>+-5</D>", "PROBE(text '12 ',text ''a'',int 9,int 0)"},
          {"ssss", "<A>abc</A><B>.abc</B><C>-</C><D>   </D>", "PROBE(none,none,none,none)"},
          {"ss", "<A>1e5 x</A><B>.</B>", "PROBE(real 1e+05,real 0)"},
          {"ss", "<A> $x</A><B>-#0</B>", "PROBE(object null,object null)", {"(1) [PERSON]Unknown reference #0"}},
      },
      "<PERSON rid='#2'/>");
}

TEST(XmlValues, ASelectThatIsLeftAloneKeepsWhatItHeld) {
  STEPselect select;
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              select.SetInt(7);
              for (const char* name : {"A", "B", "C", "D"}) rSTEPsel(t, name, &select);
              return nullptr;
            }});
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>abc</A><B>.T.</B><C> </C>")).reports, Texts{});
  EXPECT_EQ(select.Type(), STEPselect::SEL_INT);
  EXPECT_EQ(select.GetInt(), 7);
  SetProbe({});
}

TEST(XmlValues, ReferencesForwardAndBackAreSettled) {
  const std::string further = "<PERSON rid='#2'/><WALL rid='#3'><External>.T.</External></WALL>";
  const Texts wrongType = {"(1) [WALL]Reference to wrong object type ''"};
  ExpectRows({{"f", "<A>#2</A>", "PROBE(@2)", {}, kPerson},
              {"f", "<A>#2</A>", "PROBE(@2)", wrongType, kWall},
              {"f", "<A>#3</A>", "PROBE(@3)", {}, kProduct},
              {"f", "<A>#9</A>", "PROBE(kept)", {"(1) [WALL]Unknown reference #9"}},
              {"f", "<A>#1</A>", "PROBE(null)", {"(1) [PROBE]Reference to unknown object #1"}},
              {"s", "<A>#1</A>", "PROBE(object null)"},
              {"s", "<A> #3</A>", "PROBE(object @3)"},
              {"s", "<A>+#3x</A>", "PROBE(object @3)"},
              {"a", "<A>#2#3</A>", "PROBE([@2,@3])", wrongType, kPerson}},
             further);
}

TEST(XmlValues, WhatIsNoReferenceIsANullOne) {
  ExpectRows({{"ffff", "<A> #2</A><B>#0</B><C>#-2</C><D>2</D>", "PROBE(null,null,null,null)"},
              {"ffff", "<A>$</A><B>#</B><C>abc</C><D>-#2</D>", "PROBE(null,null,null,null)"}},
             "<PERSON rid='#2'/>");
}

TEST(XmlValues, ListsOfReferencesLoseWhatStandsForNothing) {
  ExpectRows({{"a", "<A>#2 $ #3</A>", "PROBE([@2,@3])", {"(1) [PROBE]Missing reference"}},
              {"a", "<A>$#0$</A>", "PROBE([])", Texts(3, "(1) [PROBE]Missing reference")},
              {"A", "<A>#2 # $</A>", "PROBE([@2,null,null])"},
              {"A", "<A>#1 #2</A>", "PROBE([@2])", {"(1) [PROBE]Reference to unknown object #1"}},
              {"a", "<A>#2 #9</A>", "PROBE([@2,null])", {"(1) [PERSON]Unknown reference #9"}}},
             "<PERSON rid='#2'/><PERSON rid='#3'/>");
}

TEST(XmlValues, AListThatIsReadIntoOneWithNodesReplacesThem) {
  STEPaggr aggr;
  STEPaggr* out = &aggr;
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              xrSTEPaggrPrim(t, "A", &out);
              STEPlist* first = aggr.head;
              xrSTEPaggrPrim(t, "B", &out);
              EXPECT_EQ(aggr.head, first) << "a list without items changes nothing";
              xrSTEPaggrPrim(t, "C", &out);
              DeleteSTEPlist(&first);
              return nullptr;
            }});
  ReadDocument(ProbeDocument("<A>1;2</A><B/><C>3</C>"));
  ASSERT_NE(aggr.head, nullptr);
  EXPECT_EQ(aggr.head->value.real, 3.0);
  EXPECT_EQ(aggr.head->next, nullptr);
  DeleteSTEPlist(&aggr.head);
  SetProbe({});
}

TEST(XmlValues, AListOfTextsCutsItsElementEvenWhenItIsDropped) {
  ExpectRows({{"X", "<A>'a';'b'</A>", "PROBE(none)"}});
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              xrSTEPtextAggr(t, "A", nullptr);
              EXPECT_STREQ(rSTEPtext(t, "A"), "'a");
              return nullptr;
            }});
  ReadDocument(ProbeDocument("<A>'a';'b'</A>"));
  SetProbe({});
}

TEST(XmlValues, AListOfEnumeratorsIsEmptyAndTheAttributesBehindItAreRead) {
  ExpectRows({{"iEi", "<A>1</A><B>.RED.</B><C>3</C>", "PROBE(1,[],3)"}, {"Ni", "<B>3</B>", "PROBE(none,3)"}});
}

TEST(XmlValues, AttributesAreFoundByNameInAnyOrder) {
  ExpectRows({{"ti", "<b>2</b><other>x</other><a>1</a>", "PROBE('1',2)"},
              {"t", "<A>first</A><a>second</a>", "PROBE('first')"},
              {"t", "<A/><A>second</A>", "PROBE('')"},
              {"t", "<A>1<b>2</b>3</A>", "PROBE('123')"},
              {"t", "<A>1<!-- x -->2<?x y?>3<![CDATA[<4>]]></A>", "PROBE('123<4>')"}});
}

TEST(XmlValues, AReaderLeavesTheTokenisersFieldsAlone) {
  SetProbe({"", -1, [](STEPtransfer* t) -> STEPheader* {
              STEPaggr* list = nullptr;
              STEPheader* slot = nullptr;
              STEPselect select;
              for (const char* name : {"A", "missing"}) {
                rSTEPtext(t, name);
                rSTEPint(t, name);
                rSTEPreal(t, name);
                xrSTEPref(t, name, &slot, -1, false);
                rSTEPsel(t, name, &select);
                xrSTEPaggrPrim(t, name, &list);
              }
              xrSTEPaggrEnum(t, &list, kColours, 3);
              DeleteSTEPlist(&list->head);
              delete list;
              return new Entity(kPerson);
            }});
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>5</A>")), (Outcome{0, {}, {"PERSON(0)"}}));
  SetProbe({});
}

}  // namespace
