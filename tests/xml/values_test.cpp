// The attribute readers in XML, and the values that both forms read alike.
#include "read/attribute_rows.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

// What a PROBE, with PERSONs 2 and 3 after it, makes of its child elements.
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
  for (const Texts& row : TableOf("xml/both_forms.rows", 4)) {
    SetProbe({row[0]});
    const Outcome clearText = ReadData("#1=PROBE(" + row[1] + ");#2=PERSON(2);#3=PERSON(3);");
    EXPECT_EQ(clearText, (Outcome{0, {}, {"PROBE(" + row[3] + ")", "PERSON(2)", "PERSON(3)"}})) << row[1];
    EXPECT_EQ(ReadChildren("<A>" + row[2] + "</A>"), (Outcome{0, {}, {"PROBE(" + row[3] + ")"}})) << row[2];
  }
}

// ---- XML alone -----------------------------------------------------------------------------------------------------

TEST(XmlValues, GiveWhatTheirRowsSay) { ExpectRows("xml/attributes.rows", ReadChildren); }

TEST(XmlValues, WhatIsNoValueLeavesASelectAlone) {
  STEPselect select;
  const auto read = [&](STEPtransfer* t) {
    select.SetInt(7);
    for (const char* name : {"A", "B", "C", "D"}) rSTEPsel(t, name, &select);
    return nullptr;
  };
  EXPECT_EQ(ReadDocumentWith(read, "<A>abc</A><B>.T.</B><C> </C>").reports, Texts{});
  EXPECT_EQ(select.GetInt(), 7);
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
