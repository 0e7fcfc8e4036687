// Every attribute writer in both forms, byte for byte, with the commas or tags about attributes and items.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "support/proj_schema.h"
#include "support/repeat.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

using Writer = std::function<void(STEPtransfer*)>;

// What is between a file's `start` and `end`.
std::string Between(const std::string& path, const std::string& start, const std::string& end) {
  const std::string bytes = BytesOf(path);
  const std::size_t from = bytes.find(start) + start.size();
  return bytes.substr(from, bytes.rfind(end) - from);
}

struct Row {
  Writer write;
  std::string clearText;
  std::string xml;
};

void ExpectRows(const std::vector<Row>& rows, std::initializer_list<STEPheader*> numbered = {}) {
  for (const Row& row : rows) {
    ProjModel model;
    new Entity(kProbe);
    SetProbe({"", -1, {}, row.write});
    std::string path = TempPath("values.stp");
    EXPECT_EQ(model.Write(path.data(), ""), 1);
    EXPECT_EQ(Between(path, "#1 = PROBE(", ");\nENDSEC;\n\nEND-ISO-10303-21;\n"), row.clearText);
    for (STEPheader* each : numbered) each->number = 0;
    EXPECT_EQ(model.WriteXml(path.data(), ""), 1);
    EXPECT_EQ(Between(path, "<PROBE rid=\"#1\">", "</PROBE>\n</PROJ>\n"), row.xml);
    for (STEPheader* each : numbered) each->number = 0;
  }
}

Writer Text(const std::string& text) {
  return [=](STEPtransfer* t) { wSTEPtext(t, "a", text.c_str()); };
}

Writer Select(void (*set)(STEPselect&)) {
  return [=](STEPtransfer* t) {
    STEPselect select;
    set(select);
    wSTEPsel(t, "a", &select);
    wSTEPint(t, "b", 7);
  };
}

TEST(WrittenValues, NumbersAndKeywords) {
  ExpectRows(
      {{[](STEPtransfer* t) { wSTEPint(t, "a", INT_MIN), wSTEPint(t, "b", 0), wSTEPint(t, "c", INT_MAX); },
        "-2147483648,0,2147483647", "<a>-2147483648</a><b>0</b><c>2147483647</c>"},
       {[](STEPtransfer* t) { wSTEPreal(t, "a", -0.5), wSTEPreal(t, "b", 1234567.0), wSTEPreal(t, "c", -HUGE_VAL); },
        "-0.5,1.23457e+06,-inf", "<a>-0.5</a><b>1.23457e+06</b><c>-inf</c>"},
       {[](STEPtransfer* t) { wSTEPbool(t, "a", true), wSTEPbool(t, "b", false); }, ".T.,.F.", "<a>.T.</a><b>.F.</b>"},
       {[](STEPtransfer* t) {
          for (const int value : {-1, 0, 1, 2, -2, INT_MIN}) wSTEPlog(t, "a", value);
        },
        ".U.,.F.,.T.,.U.,.U.,.U.", "<a>.U.</a><a>.F.</a><a>.T.</a><a>.U.</a><a>.U.</a><a>.U.</a>"},
       {[](STEPtransfer* t) { wSTEPenum(t, "a", 2, kColours), wSTEPenum(t, "b", 0, kColours); }, ".BLUE.,.RED.",
        "<a>.BLUE.</a><b>.RED.</b>"},
       {[](STEPtransfer*) {}, "", ""}});
}

TEST(WrittenValues, Texts) {
  ExpectRows(
      {{[](STEPtransfer* t) { wSTEPtext(t, "a", nullptr); }, "$", "<a>$</a>"},
       {Text(""), "''", "<a></a>"},
       {Text("'"), "''''", "<a>'</a>"},
       {Text("''a"), "'''''a'", "<a>''a</a>"},
       {Text("a\\b\nc\xff\""), "'a\\b\nc\xff\"'", "<a>a\\b\nc\xff\"</a>"},
       {Text("a<b&c>&&<<"), "'a<b&c>&&<<'", "<a>a&lt;b&amp;c&gt;&amp;&amp;&lt;&lt;</a>"},
       {Text(Repeat(70'000, "'&")), "'" + Repeat(70'000, "''&") + "'", "<a>" + Repeat(70'000, "'&amp;") + "</a>"}});
  for (const int length : {51, 52, 256, 257, 65'536}) {
    const std::string text = Repeat(length, "&");
    ExpectRows({{Text(text), "'" + text + "'", "<a>" + Repeat(length, "&amp;") + "</a>"}});
  }
}

TEST(WrittenValues, NamesOfAnyLengthGoOutWholeAndNumbersWithoutOneBare) {
  for (const std::size_t length : {1u, 61u, 62u, 63u, 64u, 1'000u, 70'000u}) {
    const std::string name(length, 'n');
    ExpectRows({{[&](STEPtransfer* t) { wSTEPint(t, name.c_str(), 1); }, "1", "<" + name + ">1</" + name + ">"}});
  }
  STEPselect select;
  select.SetInt(7);
  const auto write = [&](STEPtransfer* t) {
    wSTEPint(t, nullptr, 1);
    wSTEPtext(t, "n", "x");
    wSTEPreal(t, nullptr, 2.5);
    wSTEPsel(t, nullptr, &select);
  };
  ExpectRows({{write, "1,'x',2.5,7", "1<n>x</n>,2.5,7"}});
}

TEST(WrittenValues, Selects) {
  ExpectRows({{[](STEPtransfer* t) { wSTEPsel(t, "a", nullptr), wSTEPint(t, "b", 7); }, "$,7", "<a>$</a><b>7</b>"},
              {Select([](STEPselect&) {}), "$,7", "<a>$</a><b>7</b>"},
              {Select([](STEPselect& s) { s.SetInt(-5); }), "-5,7", "<a>-5</a><b>7</b>"},
              {Select([](STEPselect& s) { s.SetReal(1.0); }), "1,7", "<a>1</a><b>7</b>"},
              {Select([](STEPselect& s) {
                 s.SetCharPtr(new char[4]{'\'', '<', 'x', 0});
               }),
               "'''<x',7", "<a>'&lt;x</a><b>7</b>"},
              {Select([](STEPselect& s) { s.SetCharPtr(nullptr); }), "$,7", "<a>$</a><b>7</b>"},
              {Select([](STEPselect& s) { s.SetSTEPobj(nullptr); }), "$,7", "<a>$</a><b>7</b>"}});
}

TEST(WrittenValues, ReferencesGiveOutOneNumberToAnInstance) {
  CurrentModel(nullptr);
  Entity wall(kWall);
  Entity door(kDoor);
  const auto write = [&](STEPtransfer* t) {
    STEPselect select;
    select.SetSTEPobj(&door);
    STEPaggr aggr;
    for (Entity* each : {&door, static_cast<Entity*>(nullptr), &wall}) aggr.Append(each);
    xwSTEPref(t, "a", &wall);
    xwSTEPref(t, "b", nullptr);
    wSTEPsel(t, "c", &select);
    xwSTEPaggr(t, "d", &aggr);
    xwSTEPref(t, "e", &door);
    DeleteSTEPlist(&aggr.head);
  };
  ExpectRows({{write, "#2,$,#3,(#3,$,#2),#3", "<a>#2</a><b>$</b><c>#3</c><d>#3 $ #2</d><e>#3</e>"}}, {&wall, &door});
}

TEST(WrittenValues, ListsBeginWithoutACommaAndHaveSeparatorsBetweenTheirItemsAlone) {
  const auto reals = [](STEPtransfer* t) {
    STEPaggr aggr;
    for (const double value : {1.0, 2.5, -1e10}) aggr.Append(value);
    xwSTEPaggrPrim(t, "a", &aggr);
    wSTEPint(t, "b", 3);
    xwSTEPaggr(t, "c", nullptr);
    xwSTEPaggrPrim(t, "d", nullptr);
    xwSTEPaggrEnum(t, nullptr, kColours);
    xwSTEPtextAggr(t, "f", nullptr);
    DeleteSTEPlist(&aggr.head);
    xwSTEPaggrPrim(t, "g", &aggr);
    xwSTEPaggr(t, "h", &aggr);
    xwSTEPtextAggr(t, "i", &aggr);
  };
  const auto texts = [](STEPtransfer* t) {
    STEPlist nodes[3];
    STEPaggr aggr;
    aggr.head = nodes;
    nodes[0].next = nodes + 1;
    nodes[1].next = nodes + 2;
    char apostrophe[] = "a'";
    char empty[] = "";
    nodes[0].value.text = apostrophe;
    nodes[2].value.text = empty;
    xwSTEPtextAggr(t, "a", &aggr);
    for (int i = 0; i < 3; ++i) nodes[i].value.integer = 2 - i;
    xwSTEPaggrEnum(t, &aggr, kColours);
  };
  ExpectRows({{reals, "(1,2.5,-1e+10),3,(),(),(),(),(),(),()",
               "<a>1;2.5;-1e+10</a><b>3</b><c></c><d></d><f></f><g></g><h></h><i></i>"},
              {texts, "('a''',$,''),(.BLUE.,.GREEN.,.RED.)", "<a>'a'';$;''</a>"}});
}

}  // namespace
