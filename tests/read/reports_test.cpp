// The one form of a report, however long its parts are, and who receives it.
#include <gtest/gtest.h>

#include <climits>

#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace {

using namespace steprt_test;
using steprt::ReportError;

const std::string longText(5000, 'l');

TEST(Reports, HaveOneFormAndAreNeverCut) {
  const struct {
    std::string file;
    int line;
    std::string where;
    std::string report;
  } rows[] = {
      {"a.stp", 12, "WALL", "STEP error: a.stp (12) [WALL]Missing integer"},
      {"", -1, "", "STEP error:  (-1) []Missing integer"},
      {"100%s.stp", 1, "%d", "STEP error: 100%s.stp (1) [%d]Missing integer"},
      {longText, 1, std::string(63, 'w'),
       "STEP error: " + longText + " (1) [" + std::string(63, 'w') + "]Missing integer"},
  };
  for (const auto& row : rows) {
    const auto t = steprt::NewTransfer(row.file.c_str(), CollectReport, nullptr, false);
    t->line = row.line;
    Copy(t->where, row.where.c_str(), 63);
    ReportError(t.get(), "Missing integer");
    EXPECT_EQ(t->errors, 1);
    EXPECT_EQ(TakeReports("none"), Texts{row.report});
  }
}

TEST(Reports, TakeATextOrANumberIntoTheMessage) {
  for (const STEPerrorProc procedure : {&CollectReport, static_cast<STEPerrorProc>(nullptr)}) {
    const auto t = steprt::NewTransfer("f", procedure, nullptr, false);
    ReportError(t.get(), "Unknown entity %s", longText.c_str());
    ReportError(t.get(), "Unknown bool '%s'", ".%d.");
    ReportError(t.get(), "Entity #%d already used", -2147483647 - 1);
    EXPECT_EQ(t->errors, 3) << "counted without a procedure too";
    EXPECT_EQ(TakeReports("f"), procedure ? (Texts{"(1) []Unknown entity " + longText, "(1) []Unknown bool '.%d.'",
                                                   "(1) []Entity #-2147483648 already used"})
                                          : Texts());
  }
}

TEST(Reports, CountUpToTheLargestIntegerAndStayThere) {
  const auto t = steprt::NewTransfer("f", CollectReport, nullptr, false);
  t->errors = t->line = INT_MAX;
  ReportError(t.get(), "Missing integer");
  EXPECT_EQ(t->errors, INT_MAX);
  EXPECT_EQ(TakeReports("f"), Texts{"(2147483647) []Missing integer"});
}

TEST(Reports, GoToTheFirstProcedureOfTheChainOrToStandardError) {
  static const APPentity kNoRows[] = {{nullptr, nullptr, nullptr, 0, nullptr}};
  APPtable first("FIRST", kNoRows);
  APPtable second("SECOND", kNoRows, CollectReport);
  APPtable third("THIRD", kNoRows, [](const char*) { FAIL(); });
  char name[] = "/nowhere.stp";
  testing::internal::CaptureStderr();
  EXPECT_EQ(STEPread(name, &first, false), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "STEP error: STEP error: /nowhere.stp (1) [Read]File not found\n");
  first.next = &second;
  second.next = &third;
  EXPECT_EQ(steprt::ErrorProcOf(&first), &CollectReport);
}

// A keyword fills `where` to its 63 characters, and the message names it whole.
TEST(Reports, NameALongKeywordWhole) {
  const std::string keyword(256, 'K');
  EXPECT_EQ(ReadData("#1=" + keyword + "();").reports,
            Texts{"(1) [" + std::string(63, 'K') + "]Unknown entity " + keyword});
}

}  // namespace
