// Texts: the bounded copy, the buffer that grows, file names.
#include "steprt/text.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/failing_new.h"
#include "support/file_name.h"
#include "support/text_buffer.h"

namespace {

using steprt::TextBuffer;
using steprt_test::FailingNew;

TEST(Copy, StopsAtTheTerminatorOrTheLimitAndTerminates) {
  const struct {
    const char* source;
    int limit;
    const char* copied;
  } rows[] = {{"abc", 63, "abc"}, {"abc", 3, "abc"}, {"abc", 2, "ab"}, {"abc", 0, ""},
              {"abc", -1, ""},    {"", 5, ""},       {nullptr, 5, ""}};
  for (const auto& row : rows) {
    char room[80];
    std::memset(room, '?', sizeof room);
    EXPECT_EQ(Copy(room, row.source, row.limit), room);
    EXPECT_STREQ(room, row.copied);
    EXPECT_EQ(room[std::strlen(row.copied) + 1], '?') << "nothing is written behind the terminator";
  }
}

TEST(TextBuffer, GrowsAsLongAsThereIsMemoryAndIsCutThen) {
  TextBuffer text;
  std::string expected;
  for (int i = -1000; i < 1000; ++i) {
    text.Add(i).Add(',').Add("piece").Add(std::string(static_cast<std::size_t>(i + 1000) / 10, 'x'));
    expected += std::to_string(i) + ",piece" + std::string(static_cast<std::size_t>(i + 1000) / 10, 'x');
  }
  EXPECT_EQ(text.Text(), expected);
  EXPECT_EQ(text.Length(), expected.size());
  EXPECT_FALSE(text.IsCut());

  TextBuffer cut;
  const FailingNew failing(1, FailingNew::kAndAllBehind);
  cut.Add(std::string(500, 'a')).Add(std::string(500, 'b')).Add('c').Add(7);
  EXPECT_EQ(cut.Text(), std::string(500, 'a') + std::string(11, 'b'));
  EXPECT_TRUE(cut.IsCut());
}

TEST(FileName, TheEndingIsAddedWhenTheLastComponentHasNoDot) {
  const struct {
    const char* name;
    const char* completed;
  } rows[] = {{"a", "a.stp"},         {"a.", "a."},       {"a.ifc", "a.ifc"},     {"a\\b.c\\d", "a\\b.c\\d.stp"},
              {"a\\b.c", "a\\b.c"},   {"a.b/c", "a.b/c"}, {"a.b\\", "a.b\\.stp"}, {"", ".stp"},
              {".hidden", ".hidden"}, {"a/b", "a/b.stp"}};
  for (const auto& row : rows) {
    TextBuffer room;
    const char* completed = steprt::DefaultFileName(room, row.name);
    EXPECT_STREQ(completed, row.completed);
    EXPECT_EQ(completed == row.name, std::strcmp(row.name, row.completed) == 0) << "a complete name is not copied";
  }
  TextBuffer room;
  const std::string longName(2000, 'n');
  EXPECT_EQ(steprt::DefaultFileName(room, longName.c_str()), longName + ".stp");
}

TEST(FileName, ApostrophesAreDoubledInTheQuotedFormAndDashesPartedInTheOneForComments) {
  const struct {
    const char* name;
    const char* quoted;
    const char* comment;
  } rows[] = {{"c:\\w\\it's.stp", "c:\\w\\it''s.stp", "c:\\w\\it's.stp"},
              {"''", "''''", "''"},
              {"", "", ""},
              {"a--b", "a--b", "a_-b"},
              {"----", "----", "___-"},
              {"-", "-", "-"},
              {"a-b-", "a-b-", "a-b-"}};
  for (const auto& row : rows) {
    TextBuffer quoted;
    TextBuffer comment;
    EXPECT_STREQ(steprt::QuoteFileName(quoted, row.name), row.quoted);
    EXPECT_STREQ(steprt::CommentFileName(comment, row.name), row.comment);
  }
}

}  // namespace
