// The content handler, driven by events made by hand.
#include <gtest/gtest.h>

#include <utility>

#include "read/fixups.h"
#include "read/instance_table.h"
#include "read/transfer.h"
#include "support/proj_schema.h"
#include "xml/parser.h"

namespace {

using namespace steprt_test;
using steprt::kSaxFailure;
using steprt::kSaxOk;

using Pairs = std::vector<std::pair<std::u16string, std::u16string>>;

class Attributes final : public steprt::SaxAttributes {
 public:
  explicit Attributes(Pairs pairs) : pairs_(std::move(pairs)) {}
  int Length() override { return static_cast<int>(pairs_.size()); }
  std::u16string_view LocalName(int index, std::size_t limit) override { return Start(At(index).first, limit); }
  std::u16string_view Value(int index, std::size_t limit) override { return Start(At(index).second, limit); }

 private:
  static std::u16string_view Start(std::u16string_view text, std::size_t limit) { return text.substr(0, limit); }
  const Pairs::value_type& At(int index) const { return pairs_[static_cast<std::size_t>(index)]; }

  const Pairs pairs_;
};

class HandlerStates : public testing::Test {
 protected:
  HandlerStates() {
    parser.transfer = transfer.get();
    parser.schema = ProjSchema();
    parser.StartDocument();
  }
  ~HandlerStates() override {
    SetProbe({});
    TakeReports("doc");
  }

  int Start(std::u16string_view name, Pairs attributes = {}) {
    Attributes all(std::move(attributes));
    return parser.StartElement(name, all);
  }
  int StartEntity(std::u16string_view name, std::u16string_view rid) {
    return Start(name, {{u"rid", std::u16string(rid)}});
  }
  void End(int times = 1) {
    while (times-- > 0) EXPECT_EQ(parser.EndElement(), kSaxOk);
  }
  void Text(std::u16string_view units) { EXPECT_EQ(parser.Characters(units), kSaxOk); }

  // name=value of each element, "name" alone for one without character data.
  Texts Elements() const {
    Texts texts;
    for (const STEPelement* each = transfer->elements; each; each = each->next) {
      texts.push_back(each->value ? each->name + std::string("=") + each->value : each->name);
    }
    return texts;
  }

  ProjModel model;
  const steprt::TransferOwner transfer = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
  steprt::XmlParser parser;
};

TEST_F(HandlerStates, DepthSaysWhereTheNextTagStands) {
  struct Step {
    const char16_t* tag;  // null: an end tag
    int depth;            // behind it
  };
  const Step steps[] = {
      {nullptr, 0}, {u"a", 0},     {u"PROJ", 1}, {nullptr, 0}, {nullptr, 0}, {u"PROJ", 1}, {u"POINT", 2}, {u"X", 3},
      {u"b", 4},    {u"PROJ", 5},  {nullptr, 4}, {nullptr, 3}, {nullptr, 2}, {u"Y", 3},    {nullptr, 2},  {nullptr, 1},
      {u"?", 2},    {u"POINT", 3}, {nullptr, 2}, {nullptr, 1}, {nullptr, 0}, {nullptr, 0}, {u"x", 0},
  };
  for (const Step& step : steps) {
    if (step.tag) {
      EXPECT_EQ(StartEntity(step.tag, u"#1"), kSaxOk);
    } else {
      End();
    }
    EXPECT_EQ(parser.depth, step.depth) << "at step " << &step - steps;
  }
  EXPECT_EQ(Population(model), Texts{"POINT(0,0,0)"});
}

TEST_F(HandlerStates, ANewDocumentStartsOutside) {
  Start(u"PROJ");
  StartEntity(u"POINT", u"#1");
  EXPECT_EQ(parser.StartDocument(), kSaxOk);
  EXPECT_EQ(parser.depth, 0);
}

TEST_F(HandlerStates, OtherEventsChangeNothing) {
  Start(u"PROJ");
  StartEntity(u"POINT", u"#4");
  Start(u"X");
  Text(u"1");
  const int results[] = {parser.PutDocumentLocator(),
                         parser.StartPrefixMapping(u"p", u"address"),
                         parser.EndPrefixMapping(u"p"),
                         parser.IgnorableWhitespace(u" 2"),
                         parser.ProcessingInstruction(u"target", u"3"),
                         parser.SkippedEntity(u"four"),
                         parser.EndDocument()};
  for (const int result : results) EXPECT_EQ(result, kSaxOk);
  EXPECT_EQ(parser.depth, 3);
  EXPECT_EQ(Elements(), Texts{"X=1"});
}

TEST_F(HandlerStates, NamesMatchInAnyCase) {
  Start(u"pRoj");
  EXPECT_EQ(Start(u"Point", {{u"RiD", u"#7"}}), kSaxOk);
  Start(u"x");
  Text(u"2.5");
  End(2);
  EXPECT_EQ(Population(model), Texts{"POINT(2.5,0,0)"});
}

TEST_F(HandlerStates, OnlyTheFirstSchemaNamesTheRoot) {
  Start(u"BASE");
  EXPECT_EQ(parser.depth, 0);
}

TEST_F(HandlerStates, TheFirstCharacterOfANumberIsPassedOver) {
  const std::pair<const char16_t*, int> rows[] = {{u"#12", 12},
                                                  {u"x12", 12},
                                                  {u"12", 2},
                                                  {u"#", 0},
                                                  {u"", 0},
                                                  {u"#abc", 0},
                                                  {u"#-5", -5},
                                                  {u"# 7", 7},
                                                  {u"#12abc", 12},
                                                  {u"##3", 0},
                                                  {u"#99999999999", 2147483647}};
  Start(u"PROJ");
  for (const auto& [rid, number] : rows) {
    StartEntity(u"NOBODY", rid);
    ASSERT_NE(parser.entry, nullptr);
    EXPECT_EQ(parser.entry->number, number);
    End();
  }
}

TEST_F(HandlerStates, AnInstanceTakesItsNumber) {
  Start(u"PROJ");
  StartEntity(u"PERSON", u"#41");
  End();
  EXPECT_EQ(model.Inst()->number, 41);
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 41)->object, model.Inst());
}

TEST_F(HandlerStates, AnEntityWithAnotherAttributeThanItsNumberIsRefused) {
  struct Row {
    Pairs attributes;
    bool isRegistered;  // the number 1
  };
  const Row rows[] = {{{}, false},
                      {{{u"id", u"#1"}}, false},
                      {{{u"x", u""}, {u"rid", u"#1"}}, false},
                      {{{u"rid", u"#1"}, {u"x", u""}}, true},
                      {{{u"ri", u"#1"}}, false},
                      {{{u"rids", u"#1"}}, false}};
  for (const Row& row : rows) {
    const steprt::TransferOwner own = steprt::NewTransfer("doc", CollectReport, ProjSchema(), true);
    steprt::XmlParser refusing;
    refusing.transfer = own.get();
    refusing.schema = ProjSchema();
    Attributes attributes(row.attributes);
    refusing.StartElement(u"PROJ", attributes);
    EXPECT_EQ(refusing.StartElement(u"PERSON", attributes), static_cast<int>(0x80004005));
    EXPECT_EQ(refusing.depth, 1);
    EXPECT_EQ(own->errors, 0);
    EXPECT_STREQ(own->where, "PERSON");
    EXPECT_EQ(steprt::FindEntry(own.get(), 1) != nullptr, row.isRegistered);
    EXPECT_EQ(TakeReports("doc"), Texts{"Missing entity 'Rid'"});
  }
}

TEST_F(HandlerStates, ARefusalWithoutAnErrorProcedureIsSilent) {
  const steprt::TransferOwner own = steprt::NewTransfer("doc", nullptr, ProjSchema(), true);
  parser.transfer = own.get();
  Start(u"PROJ");
  EXPECT_EQ(Start(u"PERSON"), kSaxFailure);
  parser.transfer = transfer.get();
  EXPECT_EQ(TakeReports("doc"), Texts{});
}

TEST_F(HandlerStates, OfTwoNumbersTheLastIsTheEntitys) {
  Start(u"PROJ");
  EXPECT_EQ(Start(u"PERSON", {{u"rid", u"#1"}, {u"RID", u"#2"}}), kSaxOk);
  End();
  EXPECT_EQ(model.Inst()->number, 2);
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 1)->object, nullptr);
}

TEST_F(HandlerStates, TextIsKeptInsideAChildOnly) {
  Text(u"1");
  Start(u"PROJ");
  Text(u"2");
  StartEntity(u"PROBE", u"#1");
  Text(u"3");
  Start(u"a");
  Text(u"4");
  Start(u"b");
  Text(u"5");
  Start(u"c");
  Text(u"6");
  End();
  End();
  Text(u"7");
  End();
  Text(u"8");
  Start(u"empty");
  End();
  Start(u"nothing");
  Text(u"");
  End();
  EXPECT_EQ(Elements(), (Texts{"a=4567", "empty", "nothing="}));
}

TEST_F(HandlerStates, ElementsStayUntilTheNextEntityBegins) {
  Start(u"PROJ");
  StartEntity(u"PERSON", u"#1");
  Start(u"Age");
  Text(u"41");
  End(2);
  EXPECT_EQ(Elements(), Texts{"Age=41"});
  StartEntity(u"PERSON", u"#2");
  EXPECT_EQ(Elements(), Texts{});
  EXPECT_EQ(transfer->elementsTail, &transfer->elements);
  EXPECT_EQ(parser.element, nullptr);
  Start(u"Age");
  EXPECT_EQ(Elements(), Texts{"Age"}) << "nothing is left of the text that an element had before";
  End(2);
  EXPECT_EQ(Population(model), (Texts{"PERSON(41)", "PERSON(0)"}));
}

TEST_F(HandlerStates, AUnitIsItsLowByteAndOneOfZeroEndsTheTextUntilTheNextCall) {
  struct Row {
    std::vector<std::u16string_view> calls;
    const char* text;
  };
  const Row rows[] = {{{u"\u0141\u00e9\u20ac"}, "A\xe9\xac"}, {{u"ab\u2000cd"}, "ab"},
                      {{u"ab\u2000cd", u"ef"}, "abef"},       {{u"\u0100", u"\u0200x", u"yz"}, "yz"},
                      {{u"a", u"", u"b", u"c"}, "abc"},       {{u"\xd83d\xde00"}, "=\0"}};
  for (const Row& row : rows) {
    parser.StartDocument();
    Start(u"PROJ");
    StartEntity(u"PROBE", u"#1");
    Start(u"a");
    for (const std::u16string_view call : row.calls) Text(call);
    EXPECT_STREQ(transfer->elements->value, row.text);
  }
}

TEST_F(HandlerStates, LongNamesAreCut) {
  const std::u16string name(300, u'n');
  Start(u"PROJ");
  StartEntity(name, u"#1");
  EXPECT_EQ(transfer->where, std::string(63, 'n'));
  Start(name);
  EXPECT_EQ(parser.text, std::string(260, 'n'));
  EXPECT_EQ(transfer->elements->name, std::string(63, 'n'));
  End(2);
  EXPECT_EQ(Start(u"PERSON", {{name, u"#2"}}), kSaxFailure);
  EXPECT_EQ(parser.text, std::string(260, 'n'));
}

TEST_F(HandlerStates, AnEntityThatCannotBeReadKeepsItsNumber) {
  Start(u"PROJ");
  for (const auto& [name, rid] : {std::pair(u"NOBODY", u"#1"), {u"PRODUCT", u"#2"}}) {
    StartEntity(name, rid);
    Start(u"a");
    Text(u"1");
    End(2);
  }
  for (const int number : {1, 2}) {
    const STEPentry* entry = steprt::FindEntry(transfer.get(), number);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->object, nullptr);
  }
  EXPECT_TRUE(model.IsEmpty());
  EXPECT_EQ(transfer->errors, 0);
}

TEST_F(HandlerStates, ADoubledNumberIsReportedAndTheLaterInstanceWinsTheTable) {
  Start(u"PROJ");
  for (const char16_t* age : {u"1", u"2"}) {
    StartEntity(u"PERSON", u"#5");
    Start(u"Age");
    Text(age);
    End(2);
  }
  EXPECT_EQ(Population(model), (Texts{"PERSON(1)", "PERSON(2)"}));
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 5)->object, model.Inst()->next);
  EXPECT_EQ(TakeReports("doc"), Texts{"(1) [PERSON]Entity #5 already used"});
}

TEST_F(HandlerStates, WhereKeepsTheNameOfTheLastEntity) {
  Start(u"PROJ");
  StartEntity(u"Person", u"#1");
  Start(u"Age");
  End(3);
  EXPECT_STREQ(transfer->where, "Person");
}

TEST_F(HandlerStates, TheReadFunctionSeesTheModelAndMayGiveNothing) {
  int calls = 0;
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              ++calls;
              EXPECT_EQ(t, transfer.get());
              EXPECT_EQ(parser.depth, 2);
              EXPECT_STREQ(rSTEPtext(t, "b"), "2");
              EXPECT_STREQ(rSTEPtext(t, "a"), "1");
              return nullptr;
            }});
  Start(u"PROJ");
  StartEntity(u"PROBE", u"#9");
  Start(u"a");
  Text(u"1");
  End();
  Start(u"b");
  Text(u"2");
  End(2);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 9)->object, nullptr);
}

}  // namespace
