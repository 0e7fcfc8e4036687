// Files that ask for more than their length: each is read in time that grows with the file and not faster. A square of
// any of these sizes would exceed the time limit of the test.
#include <gtest/gtest.h>

#include <string>

#include "exchange/schema/schema_check.h"
#include "express/load.h"
#include "support/repeat.h"
#include "surveys.h"

namespace exchange::testing {
namespace {

using steprt_test::Repeat;

constexpr int kMany = 300'000;

const char* const kSchema =
    "SCHEMA s; TYPE nest = LIST OF value; END_TYPE; TYPE value = SELECT (nest, a); END_TYPE;"
    "ENTITY a; v : LIST OF value; END_ENTITY; ENTITY b SUBTYPE OF (a); END_ENTITY; END_SCHEMA;";

struct Counts {
  std::size_t records;
  std::size_t read;
  std::size_t errors;
};

Counts CheckText(const std::string& text) {
  express::Diagnostics diagnostics;
  std::vector<std::unique_ptr<express::Source>> sources;
  sources.push_back(std::make_unique<express::Source>("s.exp", kSchema));
  const auto model = express::Load(std::move(sources), diagnostics);
  EXPECT_EQ(diagnostics.Errors(), 0U);
  Reports reports;
  const auto input = Input::FromText("text", text);
  const Totals totals = CheckAgainst(*model, *input, {}, reports).totals;
  return {totals.records, totals.read, reports.Total(Severity::kError)};
}

TEST(Hostile, LargeSoundRecordsAreRead) {
  const struct {
    const char* what;
    std::string records;
    std::size_t count;
  } rows[] = {
      {"comment", "/*" + Repeat(kMany * 10, " * /") + "*/#1=A(());", 1},
      {"comments", "#1=A(" + Repeat(kMany, "/**/") + "());", 1},
      {"text of lines", "#1=A((NEST(())));#2=!T('" + Repeat(kMany, "line\n") + "');", 2},
      {"text of quotes", "#1=!T('" + Repeat(kMany, "''") + "');", 1},
      {"text of lines like records", "#1=!T('" + Repeat(kMany, "\n#1=A(());") + "');", 1},
      {"directives", "#1=!T('" + Repeat(kMany, "\\X2\\03B1\\X0\\") + "');", 1},
      {"brackets", "#1=!T(" + Repeat(kMany, "(") + Repeat(kMany, ")") + ");", 1},
      {"typed values", "#1=A((" + Repeat(kMany, "NEST((") + Repeat(kMany, "))") + "));", 1},
      {"keyword", "#1=!" + Repeat(kMany * 10, "K") + "();", 1},
      {"blanks", "#1" + Repeat(kMany * 10, " ") + "=A(());", 1},
      {"scopes", Repeat(kMany, "#@=&SCOPE ") + Repeat(kMany, "ENDSCOPE A(());"), kMany},
      {"values", "#1=A((#1" + Repeat(kMany, ",#1") + "));", 1},
      {"names", Repeat(kMany, "#@=A((#^));") + "#" + std::to_string(kMany) + "=A(());", kMany + 1},
      {"names far apart", Repeat(kMany, "#@00000000=A(());"), kMany},
  };
  for (const auto& row : rows) {
    const Counts counts = CheckText(File(row.records));
    EXPECT_EQ(counts.records, row.count) << row.what;
    EXPECT_EQ(counts.read, row.count) << row.what;
    EXPECT_EQ(counts.errors, 0U) << row.what;
  }
}

TEST(Hostile, ManyFaultsAreCounted) {
  const struct {
    const char* what;
    std::string records;
    std::size_t records_;
    std::size_t read;
    std::size_t errors;
  } rows[] = {
      {"one name", Repeat(kMany, "#1=A(());"), kMany, kMany, kMany - 1},
      {"dangling", Repeat(kMany, "#@=A((#9@));"), kMany, kMany, kMany - 10'000},
      {"parts", "#1=(" + Repeat(kMany, "P@(1)") + ");", 1, 1, kMany},
      {"parts of one entity", "#1=(A(())" + Repeat(kMany, "A(())") + ");", 1, 1, kMany},
      {"records without an end", Repeat(kMany, "#@=A("), kMany, 0, kMany},
      {"brackets without an end", "#1=A(" + Repeat(kMany, "(") + ";", 1, 0, 1},
      {"names without records", Repeat(kMany, "#1 "), 1, 0, 1},
      {"no records", Repeat(kMany, "?"), 0, 0, 1},
      {"no tokens", Repeat(kMany, "?;"), 0, 0, kMany},
      {"scopes without an end", Repeat(kMany, "#@=&SCOPE "), kMany, 0, kMany},
      {"semicolons", Repeat(kMany, ";"), 0, 0, kMany},
      {"words", Repeat(kMany, "DATA;"), 0, 0, kMany},
      {"words of the end", Repeat(kMany, "ENDSEC;"), 0, 0, kMany},
  };
  for (const auto& row : rows) {
    const Counts counts = CheckText(File(row.records));
    EXPECT_EQ(counts.records, row.records_) << row.what;
    EXPECT_EQ(counts.read, row.read) << row.what;
    EXPECT_EQ(counts.errors, row.errors) << row.what;
  }
}

// A return to the line after an open text must not be bought again and again.
TEST(Hostile, OpenTextsAreLeftInTime) {
  const std::string lines[] = {
      "#1=A('\n", "#1=A('x);\n", "#1=A(/*\n", "#1=A('/*\n", "#1=A('/*'/**/,'\n", "#1=A('''\n", "'\n#1=\n", "ENDSEC;'\n",
  };
  for (const std::string& line : lines) {
    const Counts counts = CheckText(File(Repeat(kMany, line.c_str())));
    EXPECT_EQ(counts.read, 0U) << line;
    EXPECT_GT(counts.errors, 0U) << line;
  }
}

}  // namespace
}  // namespace exchange::testing
