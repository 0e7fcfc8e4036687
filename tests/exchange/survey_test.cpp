// What a survey counts, names of any size, and places.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>

#include "exchange/lines.h"
#include "exchange/names.h"
#include "surveys.h"

namespace exchange::testing {
namespace {

TEST(Survey, CountsRecordsPartsAndReferences) {
  Reports reports;
  const auto input =
      Input::FromText("text", File("#1=A(#2,(#3,#9));#2=A($);#3=(B(#1)C());#3=(C(#1)D());#4=A(;#5=E(A(#4));"));
  const Survey survey = TakeSurvey(*input, {.keywords = true, .progress = nullptr}, reports);
  EXPECT_EQ(survey.totals.bytes, input->Bytes().size());
  EXPECT_EQ(survey.totals.records, 6U);
  EXPECT_EQ(survey.totals.read, 5U);
  EXPECT_EQ(survey.totals.complex, 2U);
  EXPECT_EQ(survey.totals.references, 6U);
  EXPECT_EQ(survey.totals.dangling, 1U);
  EXPECT_EQ(survey.totals.doubled, 1U);
  std::map<std::string, std::string> counts;
  for (const auto& [keyword, count] : survey.keywords) {
    counts[keyword] = std::to_string(count.records) + "+" + std::to_string(count.parts);
  }
  EXPECT_EQ(counts,
            (std::map<std::string, std::string>{{"A", "2+0"}, {"B", "0+1"}, {"C", "0+2"}, {"D", "0+1"}, {"E", "1+0"}}));
}

TEST(Survey, LaterReportsOfOneCodeAreCountedOnly) {
  std::string records;
  for (int i = 0; i < 20; ++i) records += "#1=A(#7);";
  Reports reports(3);
  const auto input = Input::FromText("text", File(records));
  TakeSurvey(*input, {}, reports);
  EXPECT_EQ(reports.All().size(), 6U);
  EXPECT_EQ(reports.Count(Code::kDoubledName), 19U);
  EXPECT_EQ(reports.Dropped(Code::kDoubledName), 16U);
  EXPECT_EQ(reports.Dropped(Code::kDanglingReference), 17U);
  EXPECT_EQ(reports.Dropped(Code::kSyntax), 0U);
  EXPECT_EQ(reports.Total(Severity::kError), 39U);
  EXPECT_EQ(reports.Total(Severity::kWarning), 0U);
}

TEST(Survey, ProgressGrowsToTheEnd) {
  std::string records;
  while (records.size() < (3U << 20)) records += "#" + std::to_string(records.size() + 1) + "=A('some text');\n";
  const auto input = Input::FromText("text", File(records));
  Reports reports;
  std::size_t calls = 0;
  std::size_t last = 0;
  TakeSurvey(*input,
             {.keywords = false,
              .progress =
                  [&](std::size_t done, std::size_t total) {
                    EXPECT_LE(last, done);
                    EXPECT_EQ(total, input->Bytes().size());
                    last = done;
                    ++calls;
                  }},
             reports);
  EXPECT_EQ(last, input->Bytes().size());
  EXPECT_GE(calls, 3U);
  EXPECT_LE(calls, 6U);
}

// Against ordinary containers, with names that are dense, scattered, and at both ends of 64 bits.
TEST(Names, RememberEachNameOfAnySize) {
  std::mt19937_64 random(7);
  Names names;
  std::map<std::uint64_t, std::uint16_t> defined;
  std::set<std::uint64_t> referred;
  const auto pick = [&]() -> std::uint64_t {
    switch (random() % 4) {
      case 0:
        return random() % 5000;
      case 1:
        return ~std::uint64_t{0} - random() % 5000;
      case 2:
        return (random() % 5000) << 32;
      default:
        return random();
    }
  };
  for (int i = 0; i < 30000; ++i) {
    const std::uint64_t name = pick();
    const auto type = static_cast<std::uint16_t>(random() % 65536);
    if (i % 3 == 0) {
      names.Refer(name);
      referred.insert(name);
    } else {
      EXPECT_EQ(names.Define(name, type), defined.emplace(name, type).second);
    }
  }
  EXPECT_TRUE(names.AnyDangling());
  for (const auto& [name, type] : defined) ASSERT_EQ(names.TypeOf(name), type);
  for (const std::uint64_t name : referred) {
    ASSERT_EQ(names.IsDefined(name), defined.count(name) == 1);
    names.Define(name, 1);
  }
  EXPECT_FALSE(names.AnyDangling());
}

// Against a count from the start, across blocks of the table, with all line ends and characters of several bytes.
TEST(Lines, PlacesAreThoseOfACountFromTheStart) {
  std::mt19937 random(11);
  const std::string pieces[] = {"a", "\n", "\r", "\r\n", "\t", "\xC3\xA9", std::string(300, 'x')};
  std::string text;
  while (text.size() < 200'000) text += pieces[random() % 7 * (random() % 50 == 0 ? 1U : 0U)];
  Lines lines(text);
  Position position;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i % 97 == 0 || (i & 0xFFFFU) < 3) {
      const Position found = lines.PositionAt(i);
      ASSERT_EQ(found.line, position.line) << i;
      ASSERT_EQ(found.column, position.column) << i;
    }
    if (i == text.size()) break;
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\n' || (text[i] == '\r' && !pair)) {
      ++position.line;
      position.column = 1;
    } else if ((text[i] & 0xC0) != 0x80) {
      ++position.column;
    }
  }
}

TEST(Lines, AnExcerptIsThePieceOfTheLineAroundThePlace) {
  const std::string longLine = std::string(500, 'a') + "X" + std::string(500, 'b');
  struct {
    std::string text;
    std::size_t offset;
    std::string excerpt;
    std::size_t caret;
  } const rows[] = {
      {"one\ntwo\nthree", 5, "two", 1},
      {"one\r\ntwo\r\n", 3, "one", 3},
      {"", 0, "", 0},
      {"ab", 2, "ab", 2},
      {"\xC3\xA9\xC3\xA9x", 4, "\xC3\xA9\xC3\xA9x", 2},
      {longLine, 500, std::string(80, 'a') + "X" + std::string(39, 'b'), 80},
  };
  for (const auto& row : rows) {
    const express::Excerpt excerpt = express::ExcerptAt(row.text, row.offset);
    EXPECT_EQ(excerpt.text, row.excerpt);
    EXPECT_EQ(excerpt.caret, row.caret) << row.text;
  }
}

}  // namespace
}  // namespace exchange::testing
