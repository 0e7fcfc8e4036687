// How child elements are found, however many there are.
#include <gtest/gtest.h>

#include "support/failing_new.h"
#include "xml/documents.h"
#include "xml/events.h"
#include "xml/values/element.h"

namespace {

using namespace steprt_test;

std::string NameOf(int i) { return "attribute" + std::to_string(i) + "ofMany"; }

// An entity with child elements of these names, whose values are their places.
struct Elements : XmlEvents {
  Elements() { Feed("<PROJ><NOBODY #1>"); }
  void Add(const std::string& name) { Feed("<" + name + ">" + std::to_string(count++) + "</>"); }
  void AddMany(int many) {
    for (int i = 0; i < many; ++i) Add(NameOf(i));
  }
  void NextEntity() {
    Feed("</><NOBODY #1>");
    count = 0;
    TakeReports("doc");
  }
  std::string Find(const std::string& name) { return steprt::ElementValue(transfer.get(), name.c_str()); }

  int count = 0;
};

TEST(XmlElements, AreFoundByNameCaseInsensitivelyAndTheFirstCounts) {
  for (const int count : {1, 7, 15, 16, 17, 18, 40, 1000}) {
    Elements entity;
    entity.AddMany(count);
    for (int i = count; i-- > 0;) entity.Add(NameOf(i) == NameOf(0) ? "ATTRIBUTE0OFMANY" : NameOf(i));
    for (const int i : {0, count / 2, count - 1}) EXPECT_EQ(entity.Find(NameOf(i)), std::to_string(i)) << count;
    EXPECT_EQ(entity.Find("Attribute0OfMANY"), "0");
    for (const char* name : {"", "a", "attribute", "attribute0ofMan", "attribute0ofManyx", "attribute-1ofMany"}) {
      EXPECT_EQ(entity.Find(name), "") << name << " of " << count;
    }
  }
}

TEST(XmlElements, NamesThatLookAlikeAreToldApart) {
  Elements entity;
  const std::string names[] = {
      "a",   "A_", "b", "ab",    "abcdefgh", "abcdefgi", "abcdefghXabcdefgh", "abcdefghYabcdefgh", "[x]",
      "{x}", "@",  "`", "x\x01", "_",        "\x7f"};
  for (const std::string& name : names) entity.Add(name);
  for (std::size_t i = 0; i < std::size(names); ++i) EXPECT_EQ(entity.Find(names[i]), std::to_string(i)) << names[i];
}

TEST(XmlElements, ANameBeyond63CharactersFindsNothing) {
  for (const int further : {0, 30}) {
    Elements entity;
    entity.AddMany(further);
    entity.Add(std::string(80, 'n'));
    EXPECT_EQ(entity.Find(std::string(63, 'N')), std::to_string(further));
    EXPECT_EQ(entity.Find(std::string(64, 'n')), "");
    EXPECT_EQ(entity.Find(std::string(80, 'n')), "");
  }
}

TEST(XmlElements, ThoseOfOneEntityAreNotSeenByTheNext) {
  Elements entity;
  for (const int count : {2000, 30, 3, 30, 2000}) {
    entity.AddMany(count);
    EXPECT_EQ(entity.Find(NameOf(count - 1)), std::to_string(count - 1));
    EXPECT_EQ(entity.Find(NameOf(count)), "");
    entity.NextEntity();
    EXPECT_EQ(entity.Find(NameOf(0)), "");
    EXPECT_EQ(entity.Find(NameOf(count - 1)), "");
  }
}

TEST(XmlElements, ThoseThatComeAfterAQuestionAreFoundToo) {
  Elements entity;
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(entity.Find(NameOf(i)), "");
    entity.Add(NameOf(i));
    EXPECT_EQ(entity.Find(NameOf(i)), std::to_string(i));
    EXPECT_EQ(entity.Find(NameOf(0)), "0");
  }
}

TEST(XmlElements, AreFoundWhenMemoryRunsOutForAnIndex) {
  Elements entity;
  entity.AddMany(500);
  const FailingNew failing(1, FailingNew::kAndAllBehind);
  for (int i = 0; i < 500; ++i) EXPECT_EQ(entity.Find(NameOf(i)), std::to_string(i));
  EXPECT_TRUE(failing.HasFailed());
  EXPECT_EQ(entity.Find(NameOf(500)), "");
}

TEST(XmlElements, TheirBuffersAreUsedAgainByTheNextEntities) {
  std::string entities;
  for (int i = 1; i <= 500; ++i) {
    entities += "<PROBE rid='#" + std::to_string(i) + "'><A>some text</A><B>more text</B></PROBE>";
  }
  const std::string document = InRoot(entities);
  SetProbe({"", -1, [](STEPtransfer*) -> STEPheader* { return nullptr; }});
  const long before = CountAllocations();
  ReadDocument(document);
  const long few = CountAllocations() - before;
  ReadDocument(InRoot(entities + "<NOBODY rid='#9999'/>"));
  EXPECT_LT(few, 100) << "for 500 entities with two elements each";
}

}  // namespace
