// How much of a file one damaged byte costs.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "surveys.h"

namespace exchange::testing {
namespace {

// One record on each line.
const std::string kRecords =
    "#1=POINT('origin',(0.,0.,1.5E-3));\n"
    "#2=LINE(#1,#1,.T.,$,*);\n"
    "#3=(NAMED_UNIT(*)SI_UNIT($,.METRE.)LENGTH_UNIT());\n"
    "#4=TEXT('it''s \\X2\\03B1\\X0\\','',\"0FF\",LABEL('x'));\n"
    "#5 = LIST ( ( ) , ( ( 1 , 2 ) , ( 3 ) ) ) ; /* a comment */\n"
    "#6=NESTED(A(B(C((#1,#2)))));\n"
    "#7=NOTE('two\nlines');\n"
    "#8=LAST();\n"
    "#9=LINE(#1,#8,.F.,$,*);";
constexpr std::size_t kCount = 9;

Totals SurveyOf(const std::string& text, Reports& reports) {
  const auto input = Input::FromText("text", text);
  return TakeSurvey(*input, {}, reports).totals;
}

// `damaged` is kRecords with one byte changed. At most two records may be lost: that of the byte, and the next one if
// the byte is between them.
void ExpectFewLost(const std::string& damaged) {
  Reports reports;
  const Totals totals = SurveyOf(File(damaged), reports);
  EXPECT_GE(totals.read + 2, kCount) << damaged;
  EXPECT_LE(totals.records, kCount + 2) << damaged;
  EXPECT_TRUE(totals.read >= kCount || reports.Total(Severity::kError) > 0) << damaged;
  // Whatever is lost, the sections are found.
  EXPECT_EQ(reports.Count(Code::kMissingPart), 0U) << damaged;
}

TEST(Recovery, AMissingByteCostsItsRecord) {
  for (std::size_t i = 0; i < kRecords.size(); ++i) {
    std::string damaged = kRecords;
    ExpectFewLost(damaged.erase(i, 1));
  }
}

TEST(Recovery, AnAdditionalByteCostsItsRecord) {
  for (const char c : std::string("'\"(),;=#$*.!@<&\\/? 1AE\n\x01\xE9")) {
    for (std::size_t i = 0; i <= kRecords.size(); ++i) {
      if (kRecords.compare(i, 1, "*") == 0 && c == '/') continue;  // starts a comment, up to the end of the next one
      std::string damaged = kRecords;
      ExpectFewLost(damaged.insert(i, 1, c));
    }
  }
}

// Each record that is whole is read, and something is wrong until the last byte.
TEST(Recovery, APrefixHasItsWholeRecords) {
  const std::string text = File(kRecords);
  const std::size_t data = text.find("#1=");
  for (std::size_t size = 0; size < text.size(); ++size) {
    Reports reports;
    const Totals totals = SurveyOf(text.substr(0, size), reports);
    const std::string records = text.substr(data, size < data ? 0 : size - data);
    const auto whole = std::count(records.begin(), records.end(), ';');  // no text of these has one
    EXPECT_EQ(totals.read, std::min<std::size_t>(kCount, static_cast<std::size_t>(whole))) << size;
    EXPECT_GT(reports.Total(Severity::kError), 0U) << size;
  }
}

}  // namespace
}  // namespace exchange::testing
