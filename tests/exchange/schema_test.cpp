// A file against a schema.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "exchange/schema/schema_check.h"
#include "express/load.h"
#include "surveys.h"

namespace exchange::testing {
namespace {

const express::Model& Zoo() {
  static const std::unique_ptr<express::Model> model = [] {
    express::Diagnostics diagnostics;
    std::vector<std::unique_ptr<express::Source>> sources;
    sources.push_back(express::ReadSource(STEPRT_TEST_FOLDER "/zoo.exp", diagnostics));
    auto loaded = express::Load(std::move(sources), diagnostics);
    for (const auto& diagnostic : diagnostics.All()) ADD_FAILURE() << Format(diagnostic);
    return loaded;
  }();
  return *model;
}

std::string CheckText(const std::string& text) {
  Reports reports;
  const auto input = Input::FromText("text", text);
  CheckAgainst(Zoo(), *input, {}, reports);
  return ReportLines(input->Bytes(), reports);
}

// A report on the third line, where the records of File begin.
std::string Third(const std::string& report) { return report.empty() ? "" : "3:" + report + "\n"; }

struct Row {
  std::string records;
  std::string report;
};

void Expect(const Row& row) {
  SCOPED_TRACE(row.records);
  EXPECT_EQ(CheckText(File(row.records)), Third(row.report));
}

TEST(Schema, EachScalarMustFitItsType) {
  // One value of each attribute of SCALARS that fits.
  const std::vector<std::string> fits{"1.5", "2.", "3", "'x'", "\"0F\"", ".T.", ".U.", ".RED.", "#1", "#1", "5"};
  const auto record = [&](std::size_t at, const std::string& value) {
    std::string values;
    for (std::size_t i = 0; i < fits.size(); ++i) values += (i == 0 ? "" : ",") + (i == at ? value : fits[i]);
    return "#1=POINT(0.,0.);#2=PIN(0.,0.);#3=LOOSE($,$);\n#4=SCALARS(" + values + ");";
  };
  struct {
    std::size_t at;
    std::string value;
    std::string report;
  } const rows[] = {
      {99, "", ""},
      {0, "7", ""},
      {0, "'7'", "12 wrong-kind: expected a number for SCALARS.n, found a text"},
      {1, "2", "16 integer-for-real: expected a real (DEPTH) for SCALARS.r, found an integer, which has no point"},
      {1, "DEPTH(2.)", "16 wrong-kind: expected a real (DEPTH) for SCALARS.r, found a keyword"},
      {2, "3.", "19 wrong-kind: expected an integer for SCALARS.i, found a real"},
      {3, "#1", "21 wrong-kind: expected a text (LABEL) for SCALARS.t, found a reference"},
      {3, "$", "21 missing-value: expected a text (LABEL) for SCALARS.t, found '$', which is for optional attributes"},
      {3, "*", "21 not-derived: expected a text (LABEL) for SCALARS.t, found '*', which is for derived attributes"},
      {4, "'0'", "25 wrong-kind: expected a binary for SCALARS.b, found a text"},
      {5, ".F.", ""},
      {5, ".U.", "30 unknown-enumerator: expected .T. or .F. for SCALARS.o, which has no .U."},
      {5, "1", "30 wrong-kind: expected .T. or .F. for SCALARS.o, found an integer"},
      {6, ".X.", "34 unknown-enumerator: expected .T., .F. or .U. for SCALARS.l, which has no .X."},
      {7, ".DARK_GREEN.", ""},
      {7, ".BLUE.", "38 unknown-enumerator: expected COLOUR for SCALARS.c, which has no .BLUE."},
      {8, "#2", ""},
      {8, "#3", "44 wrong-reference: expected POINT for SCALARS.p, found a reference to LOOSE"},
      {8, "(#1)", "44 wrong-kind: expected a reference to POINT for SCALARS.p, found '('"},
      {8, "@5", ""},
      {9, "#2", ""},
      {9, "LENGTH(1.)", ""},
      {9, "LABEL('x')", ""},
      {9, "COLOUR(.RED.)", ""},
      {9, "TRIPLE((1.,2.,3.))", ""},
      {9, "THINGS((THINGS((#1)),TALLY(1)))", ""},
      {9, "#3", "47 wrong-reference: expected AGAIN for SCALARS.s, found a reference to LOOSE"},
      {9, "1.", "47 wrong-select: expected a reference or a typed value of AGAIN for SCALARS.s, found a real"},
      {9, "MEASURE(1.)", "47 wrong-select: expected AGAIN for SCALARS.s, which has no MEASURE"},
      {9, "!LENGTH(1.)", "47 wrong-select: expected AGAIN for SCALARS.s, which has no !LENGTH"},
      {9, "TALLY(1.)", "53 wrong-kind: expected an integer (TALLY) for SCALARS.s, found a real"},
      {9, "TALLY($)", "53 wrong-kind: expected an integer (TALLY) for SCALARS.s, found '$'"},
      {9, "COLOUR(.X.)", "54 unknown-enumerator: expected COLOUR for SCALARS.s, which has no .X."},
      {9, "TRIPLE((1.,2.))", "54 aggregate-size: expected 3 values in SCALARS.s, found 2"},
      {10, "LABEL(#1)", ""},  // nothing extends the select, so nothing is known
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.value);
    EXPECT_EQ(CheckText(File(record(row.at, row.value))), row.report.empty() ? "" : "4:" + row.report + "\n");
  }
}

TEST(Schema, AggregatesMustFitTheirBounds) {
  const Row rows[] = {
      {"#1=LISTS((1),(1.,$,3.),(),(),(#2,#2));#2=POINT(1.,2.);", ""},
      {"#1=LISTS((1,2),(1.,2.,3.),((#2,#2),(#2,#2)),('a'),(#2,LABEL('x')));#2=POINT(1.,2.);", ""},
      {"#1=LISTS((),($,$,$),(),(),(#1,#1));",
       "10 aggregate-size: expected 1 to 2 values in LISTS.l, found 0\n"
       "3:28 wrong-reference: expected THING for LISTS.s, found a reference to LISTS\n"
       "3:31 wrong-reference: expected THING for LISTS.s, found a reference to LISTS"},
      {"#1=LISTS((1,2,3),($,$),(),(),(LABEL('')));",
       "10 aggregate-size: expected 1 to 2 values in LISTS.l, found 3\n"
       "3:18 aggregate-size: expected 3 values in LISTS.a, found 2\n"
       "3:30 aggregate-size: expected at least 2 values in LISTS.s, found 1"},
      {"#1=LISTS((1,$),($,$,*),(#1,(#1)),$,#1);",
       "13 wrong-kind: expected an integer for LISTS.l, found '$'\n"
       "3:21 wrong-kind: expected a real for LISTS.a, found '*'\n"
       "3:25 wrong-kind: expected a list for LISTS.n, found a reference\n"
       "3:28 aggregate-size: expected 2 values in LISTS.n, found 1\n"
       "3:29 wrong-reference: expected POINT for LISTS.n, found a reference to LISTS\n"
       "3:34 missing-value: expected a list for LISTS.b, found '$', which is for optional attributes\n"
       "3:36 wrong-kind: expected a list for LISTS.s, found a reference"},
      {"#1=LOOSE($,(#2,#2));#2=POINT(0.,0.);", "12 aggregate-size: expected 1 value in LOOSE.q, found 2"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Schema, EntitiesAndTheirAttributesMustBeThoseOfTheSchema) {
  const Row rows[] = {
      {"#1=NEAR('x');#2=UNSEEN();", ""},
      {"#1=FAR_AWAY();", "4 unknown-entity: expected an entity of the schema, FAR_AWAY is none"},
      {"#1=Point(0.,0.);", "5 lower-case: expected capitals in a keyword"},
      {"#1=!POINT(1);", "4 user-defined: expected an entity of the schema, found !POINT"},
      {"#1=POINT(0.);", "4 attribute-count: expected 2 attributes of POINT, found 1"},
      {"#1=POINT(0.,0.,(1,2));", "4 attribute-count: expected 2 attributes of POINT, found 3"},
      {"#1=PIN();", "4 attribute-count: expected 2 attributes of PIN, found 0"},
      {"#1=SHAPE('x',1.);", "4 abstract-entity: expected a subtype of SHAPE, which is abstract"},
      {"#1=DISC($,*);#2=DISC('x',*);#3=SQUARE('x',1.);", ""},
      {"#1=DISC('x',1.);", "13 derived-value: expected '*' for the derived DISC.size, found a real"},
      {"#1=DISC('x',$);", "13 derived-value: expected '*' for the derived DISC.size, found '$'"},
      // The redeclaration takes OPTIONAL away.
      {"#1=SQUARE($,1.);",
       "11 missing-value: expected a text (LABEL) for SQUARE.name, found '$', which is for optional attributes"},
      // A record with a fault of the grammar, an unknown one and one of another file have no type.
      {"#1=LOOSE($,(#2));#2=POINT(;", "27 syntax: expected a value or ')', found ';'"},
      {"#1=LOOSE($,(#2));#2=OTHER();", "21 unknown-entity: expected an entity of the schema, OTHER is none"},
      {"#1=LOOSE($,(#2));", "13 dangling-reference: expected the name of a record, no record is called #2"},
      // The first of two records with one name counts, but both are checked.
      {"#2=POINT(0.,0.);#2=LOOSE(1,$);#1=LOOSE($,(#2));",
       "17 doubled-name: expected another name, #2 is that of an earlier record\n"
       "3:26 integer-for-real: expected a real for LOOSE.o, found an integer, which has no point"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Schema, PartsMustMakeAnInstance) {
  const Row rows[] = {
      {"#1=(INCH(2.5)PLAIN()UNIT(1));#2=(METRE()SQUARED()UNIT(*));#3=(INCH(2.5)UNIT(3));", ""},
      {"#1=(PIN()POINT(0.,0.));#2=LOOSE($,(#1));", ""},
      // A redeclaration of another part counts.
      {"#1=(METRE()PLAIN()UNIT(1));",
       "24 derived-value: expected '*' for the derived UNIT.dimension, found an integer"},
      {"#1=(INCH(2.5)SQUARED()UNIT($));", ""},
      {"#1=(INCH(2.5)PLAIN()UNIT(*));",
       "26 not-derived: expected an integer for UNIT.dimension, found '*', which is for derived attributes"},
      {"#1=(INCH()PLAIN()UNIT(1));", "5 attribute-count: expected 1 attribute of INCH, found 0"},
      {"#1=(INCH(2.5)METRE()UNIT(*));",
       "5 wrong-combination: expected one subtype of UNIT, ONEOF forbids METRE with INCH"},
      {"#1=(PLAIN()SQUARED()UNIT(1));",
       "5 wrong-combination: expected one subtype of UNIT, ONEOF forbids PLAIN with SQUARED"},
      {"#1=(BOTH()PLAIN()SQUARED()UNIT(1));#2=BOTH(1);", ""},  // the schema forces it
      {"#1=(PLAIN());", "5 missing-supertype: expected the part UNIT, a supertype of another part"},
      {"#1=(UNIT(1)INCH(1.));", "12 part-order: expected parts in the order of the alphabet, found INCH after UNIT"},
      {"#1=(UNIT(1)UNIT(1));", "12 doubled-part: expected each part once, found UNIT again"},
      {"#1=(OTHER()UNIT(1.));", "5 unknown-entity: expected an entity of the schema, OTHER is none"},
      {"#1=(POINT(0.,0.)UNIT(1));",
       "5 wrong-combination: expected parts with a common supertype, UNIT has none with POINT"},
      {"#1=(SHAPE($,1.));", "5 abstract-entity: expected a subtype of SHAPE, which is abstract"},
      {"#1=(CHILD()GUEST()PERSON());#2=PERSON();", ""},
      {"#1=CHILD();", "4 wrong-combination: expected another subtype of PERSON, AND wants one with CHILD"},
      {"#1=(CHILD()GUEST()NATIVE()PERSON());",
       "5 wrong-combination: expected one subtype of PERSON, ONEOF forbids NATIVE with GUEST"},
      {"#1=SHIP();#2=TUG();#3=(SHIP()TUG()VESSEL());", ""},
      {"#1=VESSEL();", "4 wrong-combination: expected a subtype that TOTAL_OVER of VESSEL names"},
      {"#1=(RAFT()TUG()SHIP()VESSEL());",
       "5 wrong-combination: expected one subtype of VESSEL, ONEOF forbids SHIP with RAFT\n"
       "3:16 part-order: expected parts in the order of the alphabet, found SHIP after TUG"},
      {"#1=LOOSE($,(#2));#2=(INCH(1.)PLAIN()UNIT(1));",
       "13 wrong-reference: expected POINT for LOOSE.q, found a reference to (UNIT INCH PLAIN)"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Schema, TheHeaderChoosesTheSchema) {
  const std::string text = File("#1=POINT();");
  const auto with = [&](const std::string& schemas) {
    std::string named = text;
    return named.replace(named.find("('S')"), 5, schemas);
  };
  const std::string count = "3:4 attribute-count: expected 2 attributes of POINT, found 0\n";
  const Row rows[] = {
      {with("('S')"), count},
      {with("('third { 1 0 10303 442 }')"), ""},
      {with("('UNKNOWN','THIRD')"), ""},
      {with("('UNKNOWN')"), "1:86 schema-differs: expected the schema S, found UNKNOWN\n" + count},
      {with("($)"), "1:99 header-omitted: expected a text, found '$'\n" + count},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.records);
    EXPECT_EQ(CheckText(row.records), row.report);
  }
}

TEST(Schema, EditionThreeNamesInstancesOfOtherFiles) {
  std::string text = File("#1=LOOSE($,(#7));#2=LOOSE($,(#8));");
  text.insert(text.find("DATA;"), "REFERENCE;#7=<points.stp#first>;ENDSEC;");
  EXPECT_EQ(CheckText(text), "3:30 dangling-reference: expected the name of a record, no record is called #8\n");
}

}  // namespace
}  // namespace exchange::testing
