// Every attribute writer, byte for byte, with the commas between attributes and items.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

using Writer = std::function<void(STEPtransfer*)>;

// What stands between the brackets of a record.
std::string Written(const Writer& write) {
  SetProbe({"", -1, {}, write});
  Entity object(kProbe);
  std::string path = TempPath("values.stp");
  EXPECT_EQ(STEPwrite(path.data(), "", &object, ProjSchema()), 1);
  const std::string bytes = BytesOf(path);
  SetProbe({});
  std::remove(path.c_str());
  const std::size_t start = bytes.find("#1 = PROBE(") + 11;
  const std::size_t end = bytes.rfind(");\nENDSEC;\n\nEND-ISO-10303-21;\n");
  return bytes.substr(start, end - start);
}

struct Row {
  Writer write;
  std::string bytes;
};

void ExpectRows(const std::vector<Row>& rows) {
  CurrentModel(nullptr);
  for (const Row& row : rows) EXPECT_EQ(Written(row.write), row.bytes);
}

Writer Text(const char* text) {
  return [=](STEPtransfer* t) { wSTEPtext(t, "A", text); };
}

Writer Real(double value) {
  return [=](STEPtransfer* t) { wSTEPreal(t, "A", value); };
}

Writer Select(void (*set)(STEPselect&)) {
  return [=](STEPtransfer* t) {
    STEPselect select;
    set(select);
    wSTEPsel(t, "A", &select);
    wSTEPint(t, "B", 7);
  };
}

TEST(WrittenValues, Numbers) {
  ExpectRows({{[](STEPtransfer* t) { wSTEPint(t, nullptr, INT_MIN), wSTEPint(t, "B", 0), wSTEPint(t, "C", INT_MAX); },
               "-2147483648,0,2147483647"},
              {Real(1.0), "1"},
              {Real(-0.5), "-0.5"},
              {Real(1000000.0), "1e+06"},
              {Real(1234567.0), "1.23457e+06"},
              {Real(0.00001), "1e-05"},
              {Real(0.0001), "0.0001"},
              {Real(-HUGE_VAL), "-inf"}});
}

TEST(WrittenValues, Keywords) {
  ExpectRows(
      {{[](STEPtransfer* t) { wSTEPbool(t, "A", true), wSTEPbool(t, "B", false); }, ".T.,.F."},
       {[](STEPtransfer* t) {
          for (const int value : {-1, 0, 1, 2, -2, INT_MIN}) wSTEPlog(t, "A", value);
        },
        ".U.,.F.,.T.,.U.,.U.,.U."},
       {[](STEPtransfer* t) { wSTEPenum(t, "A", 2, kColours), wSTEPenum(t, "B", 0, kColours); }, ".BLUE.,.RED."}});
}

TEST(WrittenValues, Texts) {
  ExpectRows({{Text(nullptr), "$"},
              {Text(""), "''"},
              {Text("it's"), "'it''s'"},
              {Text("'"), "''''"},
              {Text("''a"), "'''''a'"},
              {Text("a\\b\nc\xff\""), "'a\\b\nc\xff\"'"},
              {Text(std::string(200000, '\'').c_str()), "'" + std::string(400000, '\'') + "'"}});
}

TEST(WrittenValues, Selects) {
  ExpectRows({{[](STEPtransfer* t) { wSTEPsel(t, "A", nullptr), wSTEPint(t, "B", 7); }, "$,7"},
              {Select([](STEPselect&) {}), "$,7"},
              {Select([](STEPselect& s) { s.SetInt(-5); }), "-5,7"},
              {Select([](STEPselect& s) { s.SetReal(1.0); }), "1,7"},
              {Select([](STEPselect& s) {
                 s.SetCharPtr(new char[3]{'\'', 'x', 0});
               }),
               "'''x',7"},
              {Select([](STEPselect& s) { s.SetCharPtr(nullptr); }), "$,7"},
              {Select([](STEPselect& s) { s.SetSTEPobj(nullptr); }), "$,7"}});
}

TEST(WrittenValues, ReferencesGiveOutOneNumberToAnInstance) {
  Entity wall(kWall);
  Entity door(kDoor);
  ExpectRows({{[&](STEPtransfer* t) {
                 STEPselect select;
                 select.SetSTEPobj(&door);
                 STEPaggr aggr;
                 aggr.Append(&door);
                 aggr.Append(static_cast<STEPheader*>(nullptr));
                 aggr.Append(&wall);
                 xwSTEPref(t, "A", &wall);
                 xwSTEPref(t, "B", nullptr);
                 wSTEPsel(t, "C", &select);
                 xwSTEPaggr(t, "D", &aggr);
                 xwSTEPref(t, "E", &door);
                 DeleteSTEPlist(&aggr.head);
               },
               "#2,$,#3,(#3,$,#2),#3"}});
}

TEST(WrittenValues, ListsBeginWithoutAComma) {
  ExpectRows({{[](STEPtransfer* t) {
                 STEPaggr reals;
                 for (const double value : {1.0, 2.5, -1e10}) reals.Append(value);
                 xwSTEPaggrPrim(t, "A", &reals);
                 wSTEPint(t, "B", 3);
                 xwSTEPaggr(t, "C", nullptr);
                 xwSTEPaggrPrim(t, "D", nullptr);
                 xwSTEPaggrEnum(t, nullptr, kColours);
                 xwSTEPtextAggr(t, "F", nullptr);
                 DeleteSTEPlist(&reals.head);
                 xwSTEPaggrPrim(t, "G", &reals);
               },
               "(1,2.5,-1e+10),3,(),(),(),(),()"},
              {[](STEPtransfer* t) {
                 STEPlist texts[3];
                 STEPaggr aggr;
                 aggr.head = texts;
                 texts[0].next = texts + 1;
                 texts[1].next = texts + 2;
                 char apostrophe[] = "a'";
                 texts[0].value.text = apostrophe;
                 xwSTEPtextAggr(t, "A", &aggr);
                 for (int i = 0; i < 3; ++i) texts[i].value.integer = 2 - i;
                 xwSTEPaggrEnum(t, &aggr, kColours);
               },
               "('a''',$,$),(.BLUE.,.GREEN.,.RED.)"},
              {[](STEPtransfer*) {}, ""}});
}

// What each reader makes of what its writer wrote.
TEST(WrittenValues, EveryKindReadsBack) {
  const std::string record =
      "SAMPLE('it''s',-7,0.25,.T.,.U.,.BLUE.,2.5,#2,(#2,#2),(1,-2.5),(.GREEN.,.RED.),('a','','it''s'));\n";
  ProjModel model;
  ReadBytes(model, InFrame("#1=" + record + "#2=WALL('',1e-7,$,(),(),.F.);"));
  EXPECT_EQ(Population(model),
            (Texts{"SAMPLE('it's',-7,0.25,T,-1,2,real 2.5,@2,[@2,@2],[1,-2.5],[1,0],['a','','it's'])",
                   "WALL('',1e-07,null,[],[],F)"}));
  std::string path = TempPath("kinds.stp");
  EXPECT_EQ(model.Write(path.data(), ""), 2);
  EXPECT_NE(BytesOf(path).find("\n#1 = " + record + "#2 = WALL('',1e-07,$,(),(),.F.);\n"), std::string::npos)
      << BytesOf(path);
}

}  // namespace
