// STEPstring: what is shared, what is copied, which buffer stays, and what an exhausted memory leaves.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "steprt/text.h"
#include "support/failing_new.h"

namespace {

using namespace steprt_test;

class Text : public STEPstring {
 public:
  using STEPstring::AllocBuffer;
  using STEPstring::AllocCopy;
  using STEPstring::AssignCopy;
  using STEPstring::capacity;
  using STEPstring::data;
  using STEPstring::Delete;
  using STEPstring::Empty;
  using STEPstring::Init;
  using STEPstring::length;
  using STEPstring::operator=;
  using STEPstring::STEPstring;
};

const char* SharedEmpty() { return Text().data; }

void ExpectText(const Text& text, const char* expected, int capacity) {
  EXPECT_STREQ(text.data, expected);
  EXPECT_EQ(text.length, static_cast<int>(std::strlen(expected)));
  EXPECT_EQ(text.capacity, capacity);
  EXPECT_EQ(text.data == SharedEmpty(), capacity == 0);
}

TEST(String, AllEmptyStringsShareOneTextAndAllocateNothing) {
  const long before = CountAllocations();
  const Text built("");
  const Text null(static_cast<const char*>(nullptr));
  const Text copy(built);
  Text assigned;
  assigned = "";
  assigned = built;
  assigned = static_cast<const char*>(nullptr);
  for (const Text* each : {&built, &null, &copy, static_cast<const Text*>(&assigned)}) ExpectText(*each, "", 0);
  EXPECT_EQ(CountAllocations(), before);
}

TEST(String, ABufferStaysUntilATextDoesNotFitAndACopyHasOneThatFits) {
  const struct {
    const char* text;
    int capacity;
    bool allocates;
  } steps[] = {{"abc", 3, true},  {"x", 3, false},   {"", 3, false},
               {"def", 3, false}, {"ghij", 4, true}, {nullptr, 4, false}};
  Text text;
  for (const auto& [next, capacity, allocates] : steps) {
    const std::string wanted = next ? next : "";
    const char* before = text.data;
    const long made = CountAllocations();
    EXPECT_EQ(&(text = next), &text) << wanted;
    EXPECT_EQ(CountAllocations() - made, allocates ? 1 : 0) << wanted;
    EXPECT_TRUE(allocates || text.data == before) << wanted;
    ExpectText(text, wanted.c_str(), capacity);
    EXPECT_EQ(text.GetLength(), text.length) << wanted;
    EXPECT_EQ(text.IsEmpty(), text.length == 0) << wanted;
    const Text copy(text);
    ExpectText(copy, wanted.c_str(), text.length);
    EXPECT_TRUE(wanted.empty() || copy.data != text.data);
  }
}

TEST(String, OwnsABufferOfArrayAllocation) {
  Text text;
  text.AllocBuffer(5);
  EXPECT_EQ(text.length, 5);
  EXPECT_EQ(text.capacity, 5);
  std::strcpy(text.data, "12345");
  char* buffer = text.data;
  text.Init();  // does not release it
  ExpectText(text, "", 0);
  EXPECT_STREQ(buffer, "12345");
  text.Delete(buffer);
  text.Delete(text.data);  // the shared text stays
  ExpectText(text, "", 0);
  text.AllocBuffer(0);
  ExpectText(text, "", 0);
  text.AllocBuffer(INT_MIN);
  ExpectText(text, "", 0);
  text = "gone";
  text.Empty();
  ExpectText(text, "", 0);
}

TEST(String, MeasuresTheTextAndNotTheLength) {
  Text text("abcdef");
  char* writable = text;
  writable[3] = '\0';
  EXPECT_EQ(text.GetLength(), 6);
  ExpectText(Text(text), "abc", 3);
  Text target;
  text.AllocCopy(target);
  ExpectText(target, "abc", 3);
  writable[0] = '\0';
  EXPECT_TRUE(text.IsEmpty());
  text.AssignCopy("123456");
  ExpectText(text, "123456", 6);
}

TEST(String, IsAboveNullUnlessItIsEmpty) {
  for (const char* text : {"", "a"}) {
    EXPECT_EQ(Text(text).Compare(nullptr), *text ? 1 : 0);
    EXPECT_EQ(Text(text).CompareNoCase(nullptr) > 0, *text != 0);
  }
}

TEST(String, IsEmptyWhenMemoryRunsOut) {
  Text held("abc");
  {
    const FailingNew failing(1, FailingNew::kAndAllBehind);
    ExpectText(Text(held), "", 0);
    held = "longer";
    ExpectText(held, "", 0);
    held.AllocBuffer(3);
  }
  ExpectText(held, "", 0);
}

}  // namespace
