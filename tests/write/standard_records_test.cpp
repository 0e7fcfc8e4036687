// The records of a standard file: names, references, complex instances, and what is left out.
#include <gtest/gtest.h>

#include "steprt/record.h"
#include "support/proj_schema.h"
#include "support/records.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;

// The records of a file.
std::string DataOf(const std::string& path) {
  const std::string bytes = BytesOf(path);
  const std::size_t start = bytes.find("DATA;\n") + 6;
  return bytes.substr(start, bytes.find("ENDSEC;", start) - start);
}

std::string Standard(STEPmodel& model, Texts reports = {}, const STEPwriteOptions* options = nullptr) {
  const std::string path = TempPath("standard-records.stp");
  model.WriteStandard(path.c_str(), nullptr, options);
  EXPECT_EQ(TakeReports(path), reports);
  return DataOf(path);
}

struct Curve : steprt::Entity<Curve, 1> {
  static constexpr const char* kKeyword = "Curve";
  steprt::Text Name;
  Ref<Curve> Next;
  void Describe(steprt::Description& d) override { d("Name", Name)("Next", Next); }
};

// Has an attribute of a further supertype.
struct Spline : steprt::Entity<Spline, 2, Curve> {
  static constexpr const char* kKeyword = "SPLINE";
  static constexpr int kFurtherAttributes = 1;
  steprt::Text Further;
  List<steprt::Real> Knots;
  void Describe(steprt::Description& d) override {
    Super::Describe(d);
    d("Further", Further)("Knots", Knots);
  }
};

struct Unit : steprt::Entity<Unit, 3> {
  static constexpr const char* kKeyword = "UNIT";
  void Describe(steprt::Description&) override {}
};

struct Hidden : steprt::Entity<Hidden, 5, Curve> {};  // without a row

auto curves = steprt::Schema<Curve, Spline, Unit>("Curves", CollectReport);

// Makes a part. A part is on no list.
template <class T>
T* Part(STEPcomplex& complex) {
  STEPmodel* const model = CurrentModel();
  CurrentModel(nullptr);
  T* part = new T;
  CurrentModel(model);
  complex.Add(part);
  return part;
}

TEST(StandardRecords, PartsHaveTheirOwnAttributesAndTheNameOfTheirInstance) {
  steprt::Model model(&curves);
  auto* curve = new Curve;
  auto* complex = new STEPcomplex;
  Part<Unit>(*complex);
  auto* spline = Part<Spline>(*complex);
  auto* base = Part<Curve>(*complex);
  auto* whole = new Spline;
  curve->Name = "c";
  curve->Next = spline;
  spline->Name = "not here";
  spline->Further = "nor this";
  spline->Knots.Add(1);
  base->Name = "b";
  base->Next = curve;
  whole->Next = base;
  whole->Further = "f";
  EXPECT_EQ(Standard(model), "#1=CURVE('c',#2);\n#2=(UNIT()SPLINE((1.))CURVE('b',#1));\n#3=SPLINE($,#2,'f',$);\n");
  EXPECT_EQ(curve->number, 1);
  EXPECT_EQ(complex->number, 2);
  EXPECT_EQ(base->number, 2);

  // And back, and once more.
  const std::string first = BytesOf(TempPath("standard-records.stp"));
  steprt::Model again(&curves);
  EXPECT_EQ(again.ReadStandard(TempPath("standard-records.stp")), 0);
  Standard(again);
  EXPECT_EQ(DataOf(TempPath("standard-records.stp")),
            first.substr(first.find("DATA;\n") + 6, first.rfind("ENDSEC") - first.find("DATA;\n") - 6));
}

TEST(StandardRecords, WhatHasNoRowIsReportedOnceAndLeftOut) {
  steprt::Model model(&curves);
  auto* curve = new Curve;
  auto* hidden = new Hidden;
  auto* complex = new STEPcomplex;
  Part<Hidden>(*complex);
  Part<Unit>(*complex);
  auto* lost = new STEPcomplex;
  auto* part = Part<Hidden>(*lost);
  auto* user = new Curve;
  auto* more = new Curve;
  curve->Next = hidden;
  user->Next = part;
  more->Next = hidden;
  EXPECT_EQ(
      Standard(model, {"(9) [Curve]Reference to object that is not in the file", "(10) [Curve]Unknown STEP object",
                       "(10) [Curve]Unknown STEP object", "(11) [UNIT]Unknown STEP object",
                       "(11) [Curve]Reference to object that is not in the file"}),
      "#1=CURVE($,$);\n#2=(UNIT());\n#3=CURVE($,$);\n#4=CURVE($,$);\n");
}

TEST(StandardRecords, InstancesOfOtherModelsAreNotInTheFile) {
  steprt::Model model(&curves);
  auto* curve = new Curve;
  steprt::Model other(&curves);
  auto* stranger = new Curve;
  stranger->number = 1;  // of an earlier file
  curve->Next = stranger;
  EXPECT_EQ(Standard(model, {"(9) [Curve]Reference to object that is not in the file"}), "#1=CURVE($,$);\n");
}

TEST(StandardRecords, RowsWithoutAWriteFunctionAreLeftOutInSilence) {
  ProjModel model;
  new Entity(kNote);
  new Entity(kPerson);
  auto* complex = new STEPcomplex;
  STEPmodel* const current = CurrentModel();
  CurrentModel(nullptr);
  complex->Add(new Entity(kNote));
  complex->Add(new Entity(kPerson));
  CurrentModel(current);
  EXPECT_EQ(Standard(model), "#1=PERSON(0);\n#2=(PERSON(0));\n");
}

std::uint64_t NameOf(STEPheader* object, void* context) {
  auto* last = static_cast<std::uint64_t*>(context);
  *last += 5'000'000'000U;
  object->id[0] = 'n';
  return *last;
}

TEST(StandardRecords, NamesMayBeTheClients) {
  steprt::Model model(&curves);
  auto* curve = new Curve;
  auto* next = new Curve;
  curve->Next = next;
  std::uint64_t last = 18'446'744'073'709'551'615U - 10'000'000'000U;
  STEPwriteOptions options;
  options.nameOf = NameOf;
  options.context = &last;
  EXPECT_EQ(Standard(model, {}, &options),
            "#18446744068709551615=CURVE($,#18446744073709551615);\n#18446744073709551615=CURVE($,$);\n");
  EXPECT_EQ(curve->number, 0);
  steprt::Model again(&curves);
  EXPECT_EQ(again.ReadStandard(TempPath("standard-records.stp")), 0);
  EXPECT_EQ(Standard(again), "#1=CURVE($,#2);\n#2=CURVE($,$);\n");
}

// A row that writes what no other row knows.
struct Record : STEPheader {
  explicit Record(const char* word) : keyword(word) { type = 99; }
  const char* keyword;
};
void WriteUnknown(STEPtransfer* t, STEPheader* object) {
  const char* keyword = static_cast<Record*>(object)->keyword;
  if (keyword) wSTEPkeyword(t, keyword);
  EXPECT_TRUE(wSTEPisstandard(t));
  wSTEPint(t, nullptr, wSTEPispart(t) ? 1 : 0);
  wSTEPkeyword(t, "LATE");
}

TEST(StandardRecords, UnknownRecordsSayTheirKeyword) {
  static constexpr APPentity row = {"ANY", nullptr, WriteUnknown, 99, nullptr};
  steprt::Model model(&curves);
  const std::string longest(100, 'L');
  new Record("!mine");
  new Record(longest.c_str());
  new Record(nullptr);
  auto* complex = new STEPcomplex;
  CurrentModel(nullptr);
  complex->Add(new Record("A"));
  complex->Add(new Record("B"));
  CurrentModel(&model);
  STEPwriteOptions options;
  options.unknown = &row;
  EXPECT_EQ(Standard(model, {}, &options), "#1=!MINE(0);\n#2=\n" + longest + "\n(0);\n#3=ANY(0);\n#4=(A(1)B(1));\n");
}

// What described records hold comes back, whatever kind of attribute it is.
TEST(StandardRecords, EveryAttributeOfDescribedRecordsComesBack) {
  std::string data = kPointAndLine;
  int number = 2;
  for (const Texts& row : Table(kRecords, 1)) data += "#" + std::to_string(++number) + " = " + row[0] + ";\n";
  steprt::Model model(&recordSchema);
  ASSERT_EQ(ReadRecords(model, data), Texts());
  const std::string path = TempPath("standard-described.stp");
  EXPECT_EQ(model.WriteStandard(path), number);
  EXPECT_EQ(TakeReports(path), Texts());
  const std::string written = DataOf(path);
  for (const char* record :
       {"=VALUE(PAIR(LABEL('it''s'),#1,$,*,\"0F\",.T.,(1,(2.5))));\n", "=INTEGERS((1,-1234567,0));\n",
        "=ROWS(((1.,2.),(),$,(3.)));\n", "=TEXTS(('a','','it''s'));\n", "=REALS(*);\n", "#1=POINT((0.,1.));\n"}) {
    EXPECT_NE(written.find(record), std::string::npos) << record << written;
  }
  steprt::Model again(&recordSchema);
  EXPECT_EQ(again.ReadStandard(path), 0);
  EXPECT_EQ(again.WriteStandard(path), number);
  EXPECT_EQ(DataOf(path), written);
}

TEST(StandardRecords, RealsOfValuesHaveAllDigits) {
  steprt::Model model(&recordSchema);
  for (const double real : {123456.7, 3.0, 1e-7, 0.1}) (new HasValue)->A.SetReal(real);
  EXPECT_EQ(Standard(model), "#1=VALUE(123456.7);\n#2=VALUE(3.);\n#3=VALUE(1.E-07);\n#4=VALUE(0.1);\n");
}

}  // namespace
