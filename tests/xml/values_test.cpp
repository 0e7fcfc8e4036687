// The attribute readers in XML, and the values that both forms read alike.
#include "read/attribute_rows.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

// What a PROBE, with PERSONs 2 and 3 behind it, makes of its child elements.
Outcome ReadChildren(const std::string& children) {
  const std::string further = "<PERSON rid='#2'><Age>2</Age></PERSON><PERSON rid='#3'><Age>3</Age></PERSON>";
  Outcome outcome = ReadDocument(InRoot("<PROBE rid='#1'>" + children + "</PROBE>" + further));
  outcome.population.resize(1);
  return outcome;
}

Outcome ReadDocumentWith(std::function<STEPheader*(STEPtransfer*)> readProbe, const std::string& children) {
  SetProbe({"", -1, std::move(readProbe)});
  return ReadDocument(ProbeDocument(children));
}

TEST(XmlValues, BothFormsReadAlike) {
  // kind, clear text, XML, value
  const char* const rows = R"(
    t | 'abc'        | abc           | 'abc'
    t | ''           |               | ''
    t | 'it''s'      | it's          | 'it's'
    t | '<&>'        | &lt;&amp;&gt; | '<&>'
    t | '#7'         | #7            | '#7'
    i | 0            | 0             | 0
    i | 2147483647   | 2147483647    | 2147483647
    i | 99999999999  | 99999999999   | 2147483647
    r | -.5          | -.5           | -0.5
    r | 1.E3         | 1.E3          | 1000
    r | 1.E999       | 1.E999        | inf
    b | .f.          | .f.           | F
    l | .T.          | .T.           | 1
    l | .u.          | .u.           | -1
    e | .Blue.       | .Blue.        | 2
    s | -5           | -5            | int -5
    s | '_x'         | _x            | text '_x'
    s | $            | $             | object null
    s | #2           | #2            | object @2
    s | #1           | #1            | object null
    f | #2           | #2            | @2
    a | (#2,#3)      | #2 #3         | [@2,@3]
    a | ()           |               | []
    A | (#2,$,#3)    | #2 $ #3       | [@2,null,@3]
    p | (1,$)        | 1;$           | [1,0]
    p | ()           |               | []
    P | (1)          | 1             | none
    T | ('x','y z')  | 'x';'y z'     | ['x','y z']
    T | ('')         | ''            | ['']
    T | ()           |               | []
    X | ('a')        | 'a'           | none
  )";
  for (const Texts& row : Table(rows, 4)) {
    SetProbe({row[0]});
    const Outcome clearText = ReadData("#1=PROBE(" + row[1] + ");#2=PERSON(2);#3=PERSON(3);");
    EXPECT_EQ(clearText, (Outcome{0, {}, {"PROBE(" + row[3] + ")", "PERSON(2)", "PERSON(3)"}})) << row[1];
    EXPECT_EQ(ReadChildren("<A>" + row[2] + "</A>"), (Outcome{0, {}, {"PROBE(" + row[3] + ")"}})) << row[2];
  }
}

// ---- XML alone -----------------------------------------------------------------------------------------------------

TEST(XmlValues, NumbersAreWhateverCanBeSeenInThemAndKeywordsAreComparedWhole) {
  ExpectRows(R"(
    iiii | <A>12abc</A><B>$</B><C>2.9</C><D> \n12 </D>    | PROBE(12,0,2,12)
    rrrr | <A>2.5abc</A><B>$</B><C>1,5</C><D>\x09-1e2 </D> | PROBE(2.5,0,1,-100)
    b    | <A>$</A>         | PROBE(F)   | Unknown bool '$'
    l    | <A>$</A>         | PROBE(-1)  | Unknown logical '$'
    e    | <A>$</A>         | PROBE(0)   | Unknown enumeration '$'
    b    | <A> .T.</A>      | PROBE(F)   | Unknown bool ' .T.'
    l    | <A>.T</A>        | PROBE(-1)  | Unknown logical '.T'
    e    | <A>.green. </A>  | PROBE(0)   | Unknown enumeration '.green. '
    // Missing elements give neutral values.
    tirf  |                          | PROBE('',0,0,null)
    tirf  | <A/><B></B><C></C><D/>   | PROBE('',0,0,null)
    ble   |                          | PROBE(F,-1,0) | Unknown bool '' & Unknown logical '' & Unknown enumeration ''
    ble   | <A/><B/><C/>             | PROBE(F,-1,0) | Unknown bool '' & Unknown logical '' & Unknown enumeration ''
    saApT |                          | PROBE(none,[],[],[],[])
    saApT | <A/><B/><C/><D/><E/>     | PROBE(none,[],[],[],[])
  )",
             ReadChildren);
}

TEST(XmlValues, SelectsGoByTheShapeOfTheText) {
  ExpectRows(R"(
    ssss | <A>12 </A><B>'a'</B><C>  9</C><D>+-5</D> | PROBE(text '12 ',text ''a'',int 9,int 0)
    ssss | <A>abc</A><B>.abc</B><C>-</C><D>   </D>  | PROBE(none,none,none,none)
    ss   | <A>1e5 x</A><B>.</B>                     | PROBE(real 1e+05,real 0)
    ss   | <A> $x</A><B>-#0</B>   | PROBE(object null,object null) | (1) [PERSON]Unknown reference #0
    s    | <A> #3</A>             | PROBE(object @3)
    s    | <A>+#3x</A>            | PROBE(object @3)
  )",
             ReadChildren);
  STEPselect select;
  const auto read = [&](STEPtransfer* t) {
    select.SetInt(7);
    for (const char* name : {"A", "B", "C", "D"}) rSTEPsel(t, name, &select);
    return nullptr;
  };
  EXPECT_EQ(ReadDocumentWith(read, "<A>abc</A><B>.T.</B><C> </C>").reports, Texts{});
  EXPECT_EQ(select.GetInt(), 7) << "what is no value leaves the select alone";
}

TEST(XmlValues, ReferencesForwardAndBackAreSettledAndWhatIsNoneIsANullOne) {
  ExpectRows(R"(
    f:3  | <A>#2</A>       | PROBE(@2)
    f:11 | <A>#2</A>       | PROBE(@2)      | (1) [PERSON]Reference to wrong object type ''
    f    | <A>#9</A>       | PROBE(kept)    | (1) [PERSON]Unknown reference #9
    f    | <A>#1</A>       | PROBE(null)    | Reference to unknown object #1
    ffff | <A> #2</A><B>#0</B><C>#-2</C><D>2</D>   | PROBE(null,null,null,null)
    ffff | <A>$</A><B>#</B><C>abc</C><D>-#2</D>    | PROBE(null,null,null,null)
    // Lists of references lose what stands for nothing.
    a:11 | <A>#2#3</A>     | PROBE([@2,@3]) | (1) [PERSON]Reference to wrong object type '' & (1) [PERSON]Reference to wrong object type ''
    a    | <A>#2 $ #3</A>  | PROBE([@2,@3]) | Missing reference
    a    | <A>$#0$</A>     | PROBE([])      | Missing reference & Missing reference & Missing reference
    A    | <A>#2 # $</A>   | PROBE([@2,null,null])
    A    | <A>#1 #2</A>    | PROBE([@2])    | Reference to unknown object #1
    a    | <A>#2 #9</A>    | PROBE([@2,null]) | (1) [PERSON]Unknown reference #9
  )",
             ReadChildren);
}

TEST(XmlValues, AttributesAreFoundByNameInAnyOrder) {
  ExpectRows(R"(
    ti  | <b>2</b><other>x</other><a>1</a> | PROBE('1',2)
    t   | <A/><A>second</A>                | PROBE('')
    // A list of enumerators has no name: it is empty, and the attributes behind it are read.
    iEi | <A>1</A><B>.RED.</B><C>3</C>     | PROBE(1,[],3)
    Ni  | <B>3</B>                         | PROBE(none,3)
    X   | <A>'a';'b'</A>                   | PROBE(none)
  )",
             ReadChildren);
}

TEST(XmlValues, ATextIsTheElementsOwnAndTheEmptyOneTheLibrarys) {
  const char* empty = nullptr;
  const auto read = [&](STEPtransfer* t) {
    EXPECT_EQ(rSTEPtext(t, "A"), rSTEPtext(t, "a"));
    empty = rSTEPtext(t, "B");
    EXPECT_EQ(rSTEPtext(t, "C"), empty);
    return nullptr;
  };
  ReadDocumentWith(read, "<A>1</A><B/>");
  const char* clear = nullptr;
  ReadWith([&](STEPtransfer* t) { return clear = rSTEPtext(t, "A"), nullptr; }, "#1=PROBE($);");
  EXPECT_EQ(clear, empty);
}

TEST(XmlValues, AListThatIsReadIntoOneWithNodesReplacesThemAndOneOfTextsCutsItsElement) {
  STEPaggr aggr;
  STEPaggr* out = &aggr;
  const auto read = [&](STEPtransfer* t) {
    xrSTEPaggrPrim(t, "A", &out);
    STEPlist* first = aggr.head;
    xrSTEPaggrPrim(t, "B", &out);
    EXPECT_EQ(aggr.head, first) << "a list without items changes nothing";
    xrSTEPaggrPrim(t, "C", &out);
    DeleteSTEPlist(&first);
    xrSTEPtextAggr(t, "D", nullptr);
    EXPECT_STREQ(rSTEPtext(t, "D"), "'a") << "even when the list is dropped";
    return nullptr;
  };
  ReadDocumentWith(read, "<A>1;2</A><B/><C>3</C><D>'a';'b'</D>");
  ASSERT_NE(aggr.head, nullptr);
  EXPECT_EQ(aggr.head->value.real, 3.0);
  EXPECT_EQ(aggr.head->next, nullptr);
  DeleteSTEPlist(&aggr.head);
}

}  // namespace
