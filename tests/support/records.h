// A schema of described records, with an entity for each attribute type, and short ways to read and write it.
#ifndef STEPRT_TESTS_SUPPORT_RECORDS_H
#define STEPRT_TESTS_SUPPORT_RECORDS_H

#include <string>

#include "steprt/record.h"
#include "support/reports.h"
#include "support/table.h"
#include "support/temp_files.h"

namespace steprt_test {

using steprt::List;
using steprt::Ref;

enum class Colour { kRed, kGreen };
inline steprt::EnumeratorNames NamesOf(Colour) {
  static const char* names[] = {".RED.", ".GREEN."};
  return {names, 2};
}

struct Point : steprt::Entity<Point, 1> {
  static constexpr const char* kKeyword = "POINT";
  List<steprt::Real> Coordinates;
  void Describe(steprt::Description& d) override { d("Coordinates", Coordinates); }
};

struct Figure : steprt::AbstractEntity<Figure, 2> {
  static constexpr const char* kKeyword = "FIGURE";
  steprt::Text Name;
  void Describe(steprt::Description& d) override { d("Name", Name); }
};

struct Line : steprt::Entity<Line, 3, Figure> {
  static constexpr const char* kKeyword = "LINE";
  List<Ref<Point>> Points;
  Ref<Point> Centre;
  void Describe(steprt::Description& d) override {
    Figure::Describe(d);
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
using HasRefs = Holder<List<Ref<Figure>>, 20>;
using HasTexts = Holder<List<steprt::Text>, 21>;
using HasRows = Holder<List<List<steprt::Real>>, 22>;
using HasIntegers = Holder<List<steprt::Integer>, 23>;
using HasBinaries = Holder<List<steprt::Binary>, 25>;
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
template <>
constexpr const char* const HasBinaries::kKeyword = "BINARIES";

inline constinit auto recordSchema =
    steprt::Schema<Point, Figure, Line, HasText, HasInteger, HasReal, HasBoolean, HasLogical, HasColour, HasBinary,
                   HasRef, HasValue, HasReals, HasRefs, HasTexts, HasRows, HasIntegers, HasColours, HasBinaries>(
        "FIGURES", CollectReport);

// The data section of the file that the model is written to.
inline std::string WrittenData(steprt::Model& model) {
  const std::string path = TempPath("described.stp");
  model.Write(path);
  const std::string bytes = BytesOf(path);
  const std::size_t start = bytes.find("DATA;\n") + 6;
  return bytes.substr(start, bytes.find("ENDSEC;", start) - start);
}

inline Texts ReadRecords(steprt::Model& model, const std::string& data) {
  const std::string path = MakeFile(
      "described.stp", "ISO-10303-21;HEADER;FILE_SCHEMA(('FIGURES'));ENDSEC;DATA;" + data + "ENDSEC;END-ISO-10303-21;");
  model.Read(path);
  return TakeReports(path);
}

inline constexpr char kRecords[] = R"(
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
  BINARIES(("1A",$,*))
)";

inline constexpr char kPointAndLine[] = "#1 = POINT((0,1));\n#2 = LINE('l',(#1),#1);\n";

}  // namespace steprt_test

#endif
