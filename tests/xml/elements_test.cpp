// How child elements are found, however many there are.
#include <gtest/gtest.h>

#include <set>

#include "read/transfer.h"
#include "support/failing_new.h"
#include "xml/documents.h"
#include "xml/parser.h"
#include "xml/value_element.h"

namespace {

using namespace steprt_test;

class NoAttributes final : public steprt::SaxAttributes {
 public:
  int Length() override { return 1; }
  std::u16string_view LocalName(int, std::size_t) override { return u"rid"; }
  std::u16string_view Value(int, std::size_t) override { return u"#1"; }
};

std::u16string Wide(const std::string& text) { return {text.begin(), text.end()}; }

// An entity with child elements of these names, whose values are their places.
class Entity1 {
 public:
  Entity1() {
    parser_.transfer = t_.get();
    parser_.schema = ProjSchema();
    NoAttributes attributes;
    parser_.StartElement(u"PROJ", attributes);
    parser_.StartElement(u"NOBODY", attributes);
  }
  void Add(const std::string& name) {
    NoAttributes attributes;
    parser_.StartElement(Wide(name), attributes);
    parser_.Characters(Wide(std::to_string(count_++)));
    parser_.EndElement();
  }
  void NextEntity() {
    NoAttributes attributes;
    parser_.EndElement();
    parser_.StartElement(u"NOBODY", attributes);
    count_ = 0;
    TakeReports("doc");
  }
  std::string Find(const std::string& name) { return steprt::ElementValue(t_.get(), name.c_str()); }

 private:
  ProjModel model_;
  const steprt::TransferOwner t_ = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlParser parser_;
  int count_ = 0;
};

std::string NameOf(int i) { return "attribute" + std::to_string(i) + "ofMany"; }

TEST(Elements, AreFoundByNameInAnyCaseAndTheFirstCounts) {
  for (const int count : {1, 7, 15, 16, 17, 18, 40, 1000}) {
    Entity1 entity;
    for (int i = 0; i < count; ++i) entity.Add(NameOf(i));
    for (int i = count; i-- > 0;) entity.Add(NameOf(i) == NameOf(0) ? "ATTRIBUTE0OFMANY" : NameOf(i));
    for (const int i : {0, count / 2, count - 1}) EXPECT_EQ(entity.Find(NameOf(i)), std::to_string(i)) << count;
    EXPECT_EQ(entity.Find("Attribute0OfMANY"), "0");
    for (const char* name : {"", "a", "attribute", "attribute0ofMan", "attribute0ofManyx", "attribute-1ofMany"}) {
      EXPECT_EQ(entity.Find(name), "") << name << " of " << count;
    }
  }
}

TEST(Elements, NamesThatLookAlikeAreToldApart) {
  Entity1 entity;
  const std::string names[] = {
      "a",   "A_", "b", "ab",    "abcdefgh", "abcdefgi", "abcdefghXabcdefgh", "abcdefghYabcdefgh", "[x]",
      "{x}", "@",  "`", "x\x01", "_",        "\x7f"};
  for (const std::string& name : names) entity.Add(name);
  for (std::size_t i = 0; i < std::size(names); ++i) EXPECT_EQ(entity.Find(names[i]), std::to_string(i)) << names[i];
}

TEST(Elements, ANameBeyond63CharactersFindsNothing) {
  for (const int further : {0, 30}) {
    Entity1 entity;
    for (int i = 0; i < further; ++i) entity.Add(NameOf(i));
    entity.Add(std::string(80, 'n'));
    EXPECT_EQ(entity.Find(std::string(63, 'N')), std::to_string(further));
    EXPECT_EQ(entity.Find(std::string(64, 'n')), "");
    EXPECT_EQ(entity.Find(std::string(80, 'n')), "");
  }
}

TEST(Elements, ThoseOfOneEntityAreNotSeenByTheNext) {
  Entity1 entity;
  for (const int count : {2000, 30, 3, 30, 2000}) {
    for (int i = 0; i < count; ++i) entity.Add(NameOf(i));
    EXPECT_EQ(entity.Find(NameOf(count - 1)), std::to_string(count - 1));
    EXPECT_EQ(entity.Find(NameOf(count)), "");
    entity.NextEntity();
    EXPECT_EQ(entity.Find(NameOf(0)), "");
    EXPECT_EQ(entity.Find(NameOf(count - 1)), "");
  }
}

TEST(Elements, ThoseThatComeAfterAQuestionAreFoundToo) {
  Entity1 entity;
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(entity.Find(NameOf(i)), "");
    entity.Add(NameOf(i));
    EXPECT_EQ(entity.Find(NameOf(i)), std::to_string(i));
    EXPECT_EQ(entity.Find(NameOf(0)), "0");
  }
}

TEST(Elements, AreFoundWithoutMemoryForAnIndex) {
  Entity1 entity;
  for (int i = 0; i < 500; ++i) entity.Add(NameOf(i));
  const FailingNew failing(1, FailingNew::kAndAllBehind);
  for (int i = 0; i < 500; ++i) EXPECT_EQ(entity.Find(NameOf(i)), std::to_string(i));
  EXPECT_TRUE(failing.HasFailed());
  EXPECT_EQ(entity.Find(NameOf(500)), "");
}

// Half a minute and more when each search walks the list.
TEST(Elements, ManyElementsAndManySearchesCostLittleEach) {
  constexpr int kMany = 100'000;
  Entity1 entity;
  for (int i = 0; i < kMany; ++i) entity.Add(NameOf(i));
  for (int i = 0; i < kMany; ++i) ASSERT_EQ(entity.Find(NameOf(i)), std::to_string(i));
}

TEST(Elements, ManyCallsForOneTextCostLittleEach) {
  const steprt::TransferOwner t = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlParser parser;
  parser.transfer = t.get();
  parser.schema = ProjSchema();
  NoAttributes attributes;
  for (const char16_t* name : {u"PROJ", u"NOBODY", u"a"}) parser.StartElement(name, attributes);
  constexpr int kMany = 1'000'000;
  for (int i = 0; i < kMany; ++i) parser.Characters(i % 2 ? u"b" : u"a");
  std::string wanted(kMany, 'a');
  for (std::size_t i = 1; i < wanted.size(); i += 2) wanted[i] = 'b';
  EXPECT_EQ(t->elements->value, wanted);
}

TEST(Elements, TheirRoomsAreUsedAgainByTheNextEntities) {
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
  SetProbe({});
}

}  // namespace
