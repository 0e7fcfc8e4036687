// Classes that describe their attributes: what a record is read to, that it is written as it was read, in both forms,
// and what a client does with its attributes.
#include "steprt/record.h"

#include <gtest/gtest.h>

#include "support/records.h"

namespace {

using namespace steprt_test;
// The records of a file or document, as Print prints them once they have been written, so that references show.
Texts Printed(steprt::Model& model) {
  Texts texts;
  for (steprt::Record& record : model.All<steprt::Record>()) texts.push_back(steprt::Print(record));
  return texts;
}

TEST(Records, AreWrittenAsTheyWereRead) {
  for (const Texts& row : Table(kRecords, 1)) {
    const std::string data = kPointAndLine + ("#3 = " + row[0] + ";\n");
    steprt::Model model(&recordSchema);
    EXPECT_EQ(ReadRecords(model, data), Texts{}) << data;
    EXPECT_EQ(WrittenData(model), data);
  }
}

// Print shows a text as it is, without doubled apostrophes.
TEST(Records, ArePrintedLikeClearText) {
  steprt::Model model(&recordSchema);
  ReadRecords(model, kPointAndLine + std::string("#3=VALUE(PAIR(LABEL('x'),#2,.T.,(1.5,$)));"));
  WrittenData(model);
  EXPECT_EQ(Printed(model), (Texts{"POINT((0,1))", "LINE('l',(#1),#1)", "VALUE(PAIR(LABEL('x'),#2,.T.,(1.5,$)))"}));
}

// What cannot be read is reported once, and the attributes after it keep their places.
TEST(Records, LoseOneAttributeAndNoMore) {
  const auto lines = Table(R"(
    LINE(5,(#1),#1)             | LINE('',(#1),#1)     | Missing text
    LINE(A('x',(1)),(#1),#1)    | LINE($,(#1),#1)      | Missing text
    LINE('a',5,#1)              | LINE('a',$,#1)       | Missing reference
    LINE('a',A(#1),#1)          | LINE('a',$,#1)       | Missing reference
    LINE('a',(#1,5),#1)         | LINE('a',(#1),#1)    | Missing reference
    LINE('a',(#1,(#1),(5)),#1)  | LINE('a',(#1),#1)    | Missing reference
    LINE('a',(A((#1)),#1),#1)   | LINE('a',(),#1)      | Missing reference
    LINE('a',(#1,5              | LINE('a',(#1),$)     | Missing reference
    LINE('a',(#1                | LINE('a',(#1),$)     | Missing reference
    LINE('a',$,'x')             | LINE('a',$,$)        | Missing reference
    LINE('a',$,((1),2))         | LINE('a',$,$)        | Missing reference
    LINE('a',$,#2)              | LINE('a',$,#2)       | Reference to wrong object type ''
    LINE('a')                   | LINE('a',$,$)        | Missing reference & Missing reference
    LINE()                      | LINE($,$,$)          | Missing text & Missing reference & Missing reference
    INTEGER('x')                | INTEGER($)           | Missing integer
    INTEGER(2.5)                | INTEGER($)           | Missing integer
    INTEGER(A(1))               | INTEGER($)           | Missing integer
    REAL(.T.)                   | REAL($)              | Missing real
    BOOLEAN((1))                | BOOLEAN($)           | Missing bool
    LOGICAL()                   | LOGICAL($)           | Missing logical
    COLOUR(.PINK.)              | COLOUR($)            | Unknown enumeration '.PINK.'
    COLOUR(A(.RED.))            | COLOUR($)            | Missing enumeration
    BINARY('x')                 | BINARY($)            | Missing binary
    BINARY((((1))))             | BINARY($)            | Missing binary
    BINARIES((((1)),"1A",A(1))) | BINARIES(($,"1A",$)) | Missing binary & Missing binary
    REALS(A((1)))               | REALS($)             | Missing primitive in list
    ROWS((5,(1)))               | ROWS(($,(1)))        | Missing primitive in list
    ROWS(((1,(2),(3)),(4)))     | ROWS(((1),(4)))      | Missing primitive in list
    ROWS(A((1)))                | ROWS($)              | Missing list
    INTEGERS((1,'x',(2),3))     | INTEGERS((1,$,$,3))  | Missing integer & Missing integer
    VALUE(NAME)                 | VALUE($)             | Missing value
    FIGURE('x')                 |                      | Syntax
  )",
                           3);
  for (const Texts& row : lines) {
    steprt::Model model(&recordSchema);
    Texts reports = ItemsOf(row[2]);
    for (std::string& report : reports) report = "(3) [" + row[0].substr(0, row[0].find('(')) + "]" + report;
    EXPECT_EQ(ReadRecords(model, kPointAndLine + ("#3 = " + row[0] + ";\n")), reports) << row[0];
    const std::string expected = row[1].empty() ? "" : "#3 = " + row[1] + ";\n";
    EXPECT_EQ(WrittenData(model), kPointAndLine + expected);
  }
}

TEST(Records, TellTheirValues) {
  steprt::Model model(&recordSchema);
  ReadRecords(model, "#1=LINE('l',(#3,$,#2),#3);#2=LINE($,$,#1);#3=POINT((1,2.5));#4=INTEGER($);#5=VALUE(A(7));");
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
  for (Figure& shape : model.All<Figure>()) shapes += shape.Name.IsPresent() ? 1 : 10;
  EXPECT_EQ(shapes, 11);
  for (HasInteger& each : model.All<HasInteger>()) EXPECT_EQ(each.A.Or(9), 9);
  for (HasValue& each : model.All<HasValue>()) EXPECT_EQ(each.A.First().Integer(), each.A.Is("A") ? 7 : 0);
}

// Whatever an attribute held before is released, and what it holds is written.
TEST(Records, AreEdited) {
  steprt::Model model(&recordSchema);
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
  line->Points.Remove(point);
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

// What a file cannot hold as it is, a line end included, comes back from it.
TEST(Records, HoldUtf8Encoded) {
  const std::string utf8 = "it's \\ <\u00E9\u4E2D\U0001F600\r\n>";
  steprt::Model model(&recordSchema);
  auto* text = new HasText;
  auto* value = new HasValue;
  steprt::TextFaults faults;
  text->A.SetUtf8(utf8, &faults);
  value->A.SetTyped("LABEL").SetUtf8(utf8, &faults);
  EXPECT_TRUE(faults.None());
  const std::string data = WrittenData(model);
  EXPECT_EQ(data, R"(#1 = TEXT('it''s \\ <\X\E9\X2\4E2D\X0\\X4\0001F600\X0\\X\0D\X\0A>');)"
                  "\n"
                  R"(#2 = VALUE(LABEL('it''s \\ <\X\E9\X2\4E2D\X0\\X4\0001F600\X0\\X\0D\X\0A>'));)"
                  "\n");
  steprt::Model copy(&recordSchema);
  EXPECT_EQ(ReadRecords(copy, data), Texts{});
  EXPECT_EQ(static_cast<HasText&>(*copy.Inst()).A.Utf8(), utf8);
  EXPECT_EQ(static_cast<HasValue&>(*copy.Inst()->next).A.First().Utf8(), utf8);
  text->A.SetUtf8("\xFF", &faults);
  EXPECT_EQ(faults.replaced, 1u);
  text->A.Omit();
  EXPECT_EQ(text->A.Utf8(), "");
  value->A.SetEnumerator(".X.");
  EXPECT_EQ(value->A.Utf8(), "") << "no text";
}

TEST(Records, AreEqualWhenAllTheirAttributesAre) {
  for (const Texts& a : Table(kRecords, 1)) {
    for (const Texts& b : Table(kRecords, 1)) {
      steprt::Model model(&recordSchema);
      ReadRecords(model, kPointAndLine + ("#3=" + a[0] + ";#4=" + b[0] + ";"));
      auto* first = static_cast<steprt::Record*>(model.Inst()->NextHead()->NextHead());
      auto* second = static_cast<steprt::Record*>(first->NextHead());
      EXPECT_EQ(steprt::Equal(*first, *second), a[0] == b[0]) << a[0] << " " << b[0];
    }
  }
}

}  // namespace
