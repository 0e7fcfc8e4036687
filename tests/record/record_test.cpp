// Classes that describe their attributes: what a record is read to, that it is written as it was read, in both forms,
// and what a client does with its attributes.
#include "steprt/record.h"

#include <gtest/gtest.h>

#include "support/reports.h"
#include "support/table.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;
using steprt::List;
using steprt::Ref;

enum class Colour { kRed, kGreen };
steprt::EnumeratorNames NamesOf(Colour) {
  static const char* names[] = {".RED.", ".GREEN."};
  return {names, 2};
}

struct Point : steprt::Entity<Point, 1> {
  static constexpr const char* kKeyword = "POINT";
  List<steprt::Real> Coordinates;
  void Describe(steprt::Description& d) override { d("Coordinates", Coordinates); }
};

struct Shape : steprt::AbstractEntity<Shape, 2> {
  static constexpr const char* kKeyword = "SHAPE";
  steprt::Text Name;
  void Describe(steprt::Description& d) override { d("Name", Name); }
};

struct Line : steprt::Entity<Line, 3, Shape> {
  static constexpr const char* kKeyword = "LINE";
  List<Ref<Point>> Points;
  Ref<Point> Centre;
  void Describe(steprt::Description& d) override {
    Shape::Describe(d);
    d("Points", Points)("Centre", Centre);
  }
};

// One attribute of each type that a table sets.
template <class T, int kNumber>
struct Holder : steprt::Entity<Holder<T, kNumber>, kNumber> {
  static const char* const kKeyword;
  T A;
  void Describe(steprt::Description& d) override { d("A", A); }
};
using HasText = Holder<steprt::Text, 10>;
using HasInteger = Holder<steprt::Integer, 11>;
using HasReal = Holder<steprt::Real, 12>;
using HasBoolean = Holder<steprt::Boolean, 13>;
using HasLogical = Holder<steprt::Logical, 14>;
using HasColour = Holder<steprt::Enumeration<Colour>, 15>;
using HasBinary = Holder<steprt::Binary, 16>;
using HasRef = Holder<Ref<Point>, 17>;
using HasValue = Holder<steprt::Value, 18>;
using HasReals = Holder<List<steprt::Real>, 19>;
using HasRefs = Holder<List<Ref<Shape>>, 20>;
using HasTexts = Holder<List<steprt::Text>, 21>;
using HasRows = Holder<List<List<steprt::Real>>, 22>;
using HasIntegers = Holder<List<steprt::Integer>, 23>;
using HasColours = Holder<List<steprt::Enumeration<Colour>>, 24>;

template <>
constexpr const char* const HasText::kKeyword = "TEXT";
template <>
constexpr const char* const HasInteger::kKeyword = "INTEGER";
template <>
constexpr const char* const HasReal::kKeyword = "REAL";
template <>
constexpr const char* const HasBoolean::kKeyword = "BOOLEAN";
template <>
constexpr const char* const HasLogical::kKeyword = "LOGICAL";
template <>
constexpr const char* const HasColour::kKeyword = "COLOUR";
template <>
constexpr const char* const HasBinary::kKeyword = "BINARY";
template <>
constexpr const char* const HasRef::kKeyword = "REF";
template <>
constexpr const char* const HasValue::kKeyword = "VALUE";
template <>
constexpr const char* const HasReals::kKeyword = "REALS";
template <>
constexpr const char* const HasRefs::kKeyword = "REFS";
template <>
constexpr const char* const HasTexts::kKeyword = "TEXTS";
template <>
constexpr const char* const HasRows::kKeyword = "ROWS";
template <>
constexpr const char* const HasIntegers::kKeyword = "INTEGERS";
template <>
constexpr const char* const HasColours::kKeyword = "COLOURS";

constinit auto schema =
    steprt::Schema<Point, Shape, Line, HasText, HasInteger, HasReal, HasBoolean, HasLogical, HasColour, HasBinary,
                   HasRef, HasValue, HasReals, HasRefs, HasTexts, HasRows, HasIntegers, HasColours>("SHAPES",
                                                                                                    CollectReport);

// The records of a file or document, as Print prints them once they have been written, so that references show.
Texts Printed(steprt::Model& model) {
  Texts texts;
  for (steprt::Record& record : model.All<steprt::Record>()) texts.push_back(steprt::Print(record));
  return texts;
}

// The data section of the file that the model is written to.
std::string WrittenData(steprt::Model& model) {
  const std::string path = TempPath("described.stp");
  model.Write(path);
  const std::string bytes = BytesOf(path);
  const std::size_t start = bytes.find("DATA;\n") + 6;
  return bytes.substr(start, bytes.find("ENDSEC;", start) - start);
}

Texts ReadData(steprt::Model& model, const std::string& data) {
  const std::string path = MakeFile(
      "described.stp", "ISO-10303-21;HEADER;FILE_SCHEMA(('SHAPES'));ENDSEC;DATA;" + data + "ENDSEC;END-ISO-10303-21;");
  model.Read(path);
  return TakeReports(path);
}

constexpr char kSound[] = R"(
  TEXT($)
  TEXT(*)
  TEXT('')
  TEXT('it''s <a> & \X2\00E9\X0\')
  INTEGER($)
  INTEGER(*)
  INTEGER(-7)
  INTEGER(0)
  REAL($)
  REAL(2.5)
  BOOLEAN(.T.)
  BOOLEAN($)
  LOGICAL(.U.)
  LOGICAL(*)
  COLOUR(.GREEN.)
  COLOUR($)
  BINARY("1A")
  BINARY($)
  REF(#1)
  REF($)
  REF(*)
  VALUE($)
  VALUE(*)
  VALUE(5)
  VALUE(2.5)
  VALUE(.ANY.)
  VALUE(#1)
  VALUE(LABEL('x'))
  VALUE(PAIR(LABEL('it''s'),#1,$,*,"0F",.T.,(1,(2.5))))
  VALUE(())
  REALS((1,2.5))
  REALS(*)
  REFS((#2,$,#2))
  REFS(*)
  TEXTS(('a','','it''s'))
  TEXTS($)
  TEXTS(())
  TEXTS(('a',$))
  ROWS(((1,2),(),$,(3)))
  ROWS($)
  ROWS(())
  INTEGERS((1,-1234567,0))
  COLOURS((.RED.,.GREEN.,$))
)";

constexpr char kPointAndLine[] = "#1 = POINT((0,1));\n#2 = LINE('l',(#1),#1);\n";

TEST(Records, AreWrittenAsTheyWereRead) {
  for (const Texts& row : Table(kSound, 1)) {
    const std::string data = kPointAndLine + ("#3 = " + row[0] + ";\n");
    steprt::Model model(&schema);
    EXPECT_EQ(ReadData(model, data), Texts{}) << data;
    EXPECT_EQ(WrittenData(model), data);
  }
}

// Print shows a text as it is, without doubled apostrophes.
TEST(Records, ArePrintedLikeClearText) {
  steprt::Model model(&schema);
  ReadData(model, kPointAndLine + std::string("#3=VALUE(PAIR(LABEL('x'),#2,.T.,(1.5,$)));"));
  WrittenData(model);
  EXPECT_EQ(Printed(model), (Texts{"POINT((0,1))", "LINE('l',(#1),#1)", "VALUE(PAIR(LABEL('x'),#2,.T.,(1.5,$)))"}));
}

// What cannot be read is reported once, and the attributes after it keep their places.
TEST(Records, LoseOneAttributeAndNoMore) {
  const auto lines = Table(R"(
    LINE(5,(#1),#1)             | LINE('',(#1),#1)     | Missing text
    LINE('a',5,#1)              | LINE('a',(),#1)      | Missing reference
    LINE('a',(#1,5),#1)         | LINE('a',(#1),#1)    | Missing reference
    LINE('a',$,'x')             | LINE('a',$,$)        | Missing reference
    LINE('a',$,#2)              | LINE('a',$,#2)       | Reference to wrong object type ''
    INTEGER('x')                | INTEGER(0)           | Missing integer
    INTEGER(2.5)                | INTEGER(0)           | Missing integer
    INTEGER(A(1))               | INTEGER(0)           | Missing integer
    REAL(.T.)                   | REAL(0)              | Missing real
    COLOUR(.PINK.)              | COLOUR(.RED.)        | Unknown enumeration '.PINK.'
    ROWS((5,(1)))               | ROWS(((),(1)))       | Missing primitive in list
    ROWS(A((1)))                | ROWS(())             | Missing primitive in list
    INTEGERS((1,'x',(2),3))     | INTEGERS((1,0,0,3))  | Missing integer & Missing integer
    VALUE(NAME)                 | VALUE($)             | Missing reference
    SHAPE('x')                  |                      | Syntax
  )",
                           3);
  for (const Texts& row : lines) {
    steprt::Model model(&schema);
    Texts reports = ItemsOf(row[2]);
    for (std::string& report : reports) report = "(3) [" + row[0].substr(0, row[0].find('(')) + "]" + report;
    EXPECT_EQ(ReadData(model, kPointAndLine + ("#3 = " + row[0] + ";\n")), reports) << row[0];
    const std::string expected = row[1].empty() ? "" : "#3 = " + row[1] + ";\n";
    EXPECT_EQ(WrittenData(model), kPointAndLine + expected);
  }
}

TEST(Records, TellTheirValues) {
  steprt::Model model(&schema);
  ReadData(model, "#1=LINE('l',(#3,$,#2),#3);#2=LINE($,$,#1);#3=POINT((1,2.5));#4=INTEGER($);#5=VALUE(A(7));");
  TakeReports("");
  auto& line = static_cast<Line&>(*model.Inst());
  EXPECT_STREQ(line.Name.Get(), "l");
  EXPECT_EQ(line.Points.Size(), 3);
  std::size_t points = 0;
  for (Point& point : line.Points) points += &point == line.Centre.Get();
  EXPECT_EQ(points, 1u);
  double sum = 0;
  for (const double coordinate : line.Centre->Coordinates) sum += coordinate;
  EXPECT_EQ(sum, 3.5);
  for (Line& each : model.All<Line>()) EXPECT_EQ(each.Centre.Get() != nullptr, &each == &line);
  int shapes = 0;
  for (Shape& shape : model.All<Shape>()) shapes += shape.Name.IsPresent() ? 1 : 10;
  EXPECT_EQ(shapes, 11);
  for (HasInteger& each : model.All<HasInteger>()) EXPECT_EQ(each.A.Or(9), 9);
  for (HasValue& each : model.All<HasValue>()) EXPECT_EQ(each.A.First().Integer(), each.A.Is("A") ? 7 : 0);
}

// Whatever an attribute held before is released, and what it holds is written.
TEST(Records, AreEdited) {
  steprt::Model model(&schema);
  auto* point = new Point;
  point->Coordinates.Add(1.5);
  point->Coordinates.Clear();
  point->Coordinates.Add(2);
  point->Coordinates.Add(3);
  auto* line = new Line;
  line->Name = "old";
  line->Name = std::string("new");
  line->Centre = point;
  line->Points.Add(point);
  line->Points.Omit();
  line->Points.Add(point);
  auto* value = new HasValue;
  value->A.SetText("text");
  value->A.SetTyped("LABEL").SetText("x");
  value->A.SetList();
  value->A.Add().SetInteger(1);
  value->A.Add().SetTyped("REAL").SetReal(0.5);
  value->A.Add().SetObject(point);
  value->A.Add().SetEnumerator(".X.");
  auto* rows = new HasRows;
  rows->A.Add().Add(1);
  rows->A.Add().Clear();
  auto* colour = new HasColour;
  colour->A = Colour::kGreen;
  auto* text = new HasText;
  text->A = "gone";
  text->A.Derive();
  EXPECT_EQ(WrittenData(model),
            "#1 = POINT((2,3));\n#2 = LINE('new',(#1),#1);\n#3 = VALUE((1,REAL(0.5),#1,.X.));\n"
            "#4 = ROWS(((1),()));\n#5 = COLOUR(.GREEN.);\n#6 = TEXT(*);\n");
}

TEST(Records, AreEqualWhenAllTheirAttributesAre) {
  for (const Texts& a : Table(kSound, 1)) {
    for (const Texts& b : Table(kSound, 1)) {
      steprt::Model model(&schema);
      ReadData(model, kPointAndLine + ("#3=" + a[0] + ";#4=" + b[0] + ";"));
      auto* first = static_cast<steprt::Record*>(model.Inst()->NextHead()->NextHead());
      auto* second = static_cast<steprt::Record*>(first->NextHead());
      EXPECT_EQ(steprt::Equal(*first, *second), a[0] == b[0]) << a[0] << " " << b[0];
    }
  }
}

}  // namespace
