// Target: exchange files as published. The bytes are a file. Whatever they hold, reading ends; the figures agree; a
// check against a schema finds what the survey finds and more; each report can be shown; and what was found does not
// depend on how many reports are kept.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "exchange/lines.h"
#include "exchange/schema/schema_check.h"
#include "express/load.h"

namespace {

using namespace exchange;

// Small names, so that the mutations find them.
constexpr const char* kSchema = R"(
SCHEMA s;
TYPE e = ENUMERATION OF (x, y); END_TYPE;
TYPE n = LIST OF v; END_TYPE;
TYPE r = REAL; END_TYPE;
TYPE v = SELECT (n, r, e, a); END_TYPE;
ENTITY a SUPERTYPE OF (ONEOF (b, c) AND ONEOF (d, f)); p : OPTIONAL a; q : v; END_ENTITY;
ENTITY b SUBTYPE OF (a); s : SET [1:2] OF STRING; END_ENTITY;
ENTITY c SUBTYPE OF (a); SELF\a.p : a; END_ENTITY;
ENTITY d SUBTYPE OF (a); DERIVE SELF\a.q : v := SELF; END_ENTITY;
ENTITY f ABSTRACT SUBTYPE OF (a); END_ENTITY;
ENTITY g SUBTYPE OF (b, d); t : ARRAY [1:2] OF OPTIONAL LIST OF INTEGER; END_ENTITY;
ENTITY h; i : INTEGER; j : NUMBER; k : BINARY; l : LOGICAL; m : BOOLEAN; END_ENTITY;
END_SCHEMA;
)";

// A breach prints its line and ends the program, in every kind of build.
void Check(bool holds, int line = __builtin_LINE()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%d: does not hold\n", __FILE__, line);
  std::abort();
}

const express::Model& Schema() {
  static const std::unique_ptr<express::Model> model = [] {
    express::Diagnostics diagnostics;
    std::vector<std::unique_ptr<express::Source>> sources;
    sources.push_back(std::make_unique<express::Source>("s.exp", kSchema));
    auto loaded = express::Load(std::move(sources), diagnostics);
    Check(diagnostics.Errors() == 0);
    return loaded;
  }();
  return *model;
}

void CheckTotals(const Survey& survey, const Input& input) {
  const Totals& totals = survey.totals;
  Check(totals.bytes == input.Bytes().size());
  Check(totals.read <= totals.records && totals.complex <= totals.read);
  Check(totals.dangling <= totals.references && totals.doubled <= totals.records);
}

void CheckKeywords(const Survey& survey) {
  std::size_t records = 0;
  std::size_t parts = 0;
  for (const auto& [keyword, count] : survey.keywords) {
    Check(!keyword.empty());
    records += count.records;
    parts += count.parts;
  }
  Check(records == survey.totals.read - survey.totals.complex && parts >= survey.totals.complex);
}

void CheckReports(const Reports& reports, const Input& input) {
  Lines lines(input.Bytes());
  Position last;
  for (const Report& report : reports.All()) {
    Check(report.offset <= input.Bytes().size() && !report.message.empty());
    const Position at = lines.PositionAt(report.offset);
    Check(at.line > last.line || (at.line == last.line && at.column >= last.column));
    last = at;
    const express::Excerpt excerpt = express::ExcerptAt(input.Bytes(), report.offset);
    Check(excerpt.caret <= excerpt.text.size());
    Check(excerpt.text.find_first_of("\r\n") == std::string_view::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto input = Input::FromText("file", std::string(reinterpret_cast<const char*>(data), size));
  Reports survey(1000);
  const Survey surveyed = TakeSurvey(*input, {.keywords = true, .progress = nullptr}, survey);
  CheckTotals(surveyed, *input);
  CheckKeywords(surveyed);
  CheckReports(survey, *input);
  Reports check(0);
  const Survey checked = CheckAgainst(Schema(), *input, {}, check);
  CheckTotals(checked, *input);
  Check(checked.totals.read == surveyed.totals.read && checked.totals.dangling == surveyed.totals.dangling);
  Reports all(1000);
  CheckAgainst(Schema(), *input, {}, all);
  CheckReports(all, *input);
  for (std::size_t i = 0; i < kCodes; ++i) {
    const auto code = static_cast<Code>(i);
    Check(all.Count(code) == check.Count(code) && all.Count(code) >= survey.Count(code));
  }
  return 0;
}
