// The content handler, driven by events made by hand.
#include <gtest/gtest.h>

#include <algorithm>
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
  ~HandlerStates() override { TakeReports("doc"); }

  int Start(std::u16string_view name, Pairs attributes = {}) {
    Attributes all(std::move(attributes));
    return parser.StartElement(name, all);
  }

  // "<PERSON #1>" starts an element with that number, "<Age>" one without attributes, "</>" ends one, and what stands
  // between them is text. None of them is refused.
  void Feed(const std::string& events) {
    for (std::size_t i = 0, end; i < events.size(); i = end) {
      if (events[i] != '<') {
        end = std::min(events.find('<', i), events.size());
        EXPECT_EQ(parser.Characters(std::u16string(&events[i], &events[end])), kSaxOk);
        continue;
      }
      end = events.find('>', i) + 1;
      const std::string tag = events.substr(i + 1, end - i - 2);
      const std::size_t blank = std::min(tag.find(' '), tag.size());
      const std::u16string wide(tag.begin(), tag.end());
      const Pairs number = {{u"rid", wide.substr(std::min(blank + 1, tag.size()))}};
      EXPECT_EQ(tag == "/" ? parser.EndElement() : Start(wide.substr(0, blank), blank < tag.size() ? number : Pairs()),
                kSaxOk)
          << events;
    }
  }

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
  const std::pair<const char*, int> steps[] = {
      {"</>", 0},        {"<a #1>", 0}, {"<BASE>", 0}, {"<PROJ>", 1}, {"</>", 0},        {"</>", 0}, {"<PROJ>", 1},
      {"<POINT #1>", 2}, {"<X>", 3},    {"<b>", 4},    {"<PROJ>", 5}, {"</>", 4},        {"</>", 3}, {"</>", 2},
      {"<Y>", 3},        {"</>", 2},    {"</>", 1},    {"<? #1>", 2}, {"<POINT #1>", 3}, {"</>", 2}, {"</>", 1},
      {"</>", 0},        {"</>", 0},    {"<x>", 0},    {"<PROJ>", 1}, {"<POINT #2>", 2}};
  for (const auto& [event, depth] : steps) {
    Feed(event);
    EXPECT_EQ(parser.depth, depth) << event;
  }
  EXPECT_EQ(Population(model), Texts{"POINT(0,0,0)"});
  EXPECT_EQ(parser.StartDocument(), kSaxOk);
  EXPECT_EQ(parser.depth, 0) << "a new document starts outside";
}

TEST_F(HandlerStates, OtherEventsChangeNothing) {
  Feed("<PROJ><POINT #4><X>1");
  for (const int result :
       {parser.PutDocumentLocator(), parser.StartPrefixMapping(u"p", u"address"), parser.EndPrefixMapping(u"p"),
        parser.IgnorableWhitespace(u" 2"), parser.ProcessingInstruction(u"target", u"3"), parser.SkippedEntity(u"four"),
        parser.EndDocument()}) {
    EXPECT_EQ(result, kSaxOk);
  }
  EXPECT_EQ(parser.depth, 3);
  EXPECT_EQ(Elements(), Texts{"X=1"});
}

TEST_F(HandlerStates, TheFirstCharacterOfANumberIsPassedOverWhateverTheCaseOfItsName) {
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
  Feed("<pRoj>");
  for (const auto& [rid, number] : rows) {
    EXPECT_EQ(Start(u"nobody", {{u"RiD", rid}}), kSaxOk);
    ASSERT_NE(parser.entry, nullptr);
    EXPECT_EQ(parser.entry->number, number);
    Feed("</>");
  }
}

TEST_F(HandlerStates, AnInstanceTakesItsNumberAndOfTwoTheLast) {
  Feed("<PROJ>");
  EXPECT_EQ(Start(u"person", {{u"rid", u"#1"}, {u"RID", u"#2"}}), kSaxOk);
  Feed("</>");
  EXPECT_EQ(model.Inst()->number, 2);
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 2)->object, model.Inst());
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 1)->object, nullptr);
}

TEST_F(HandlerStates, AnEntityWithAnotherAttributeThanItsNumberIsRefused) {
  const std::pair<Pairs, bool> rows[] = {// and whether the number 1 is registered
                                         {{}, false},
                                         {{{u"id", u"#1"}}, false},
                                         {{{u"x", u""}, {u"rid", u"#1"}}, false},
                                         {{{u"rid", u"#1"}, {u"x", u""}}, true},
                                         {{{u"ri", u"#1"}}, false},
                                         {{{u"rids", u"#1"}}, false}};
  for (const auto& [attributes, isRegistered] : rows) {
    for (const STEPerrorProc procedure : {static_cast<STEPerrorProc>(nullptr), &CollectReport}) {
      const steprt::TransferOwner own = steprt::NewTransfer("doc", procedure, ProjSchema(), true);
      steprt::XmlParser refusing;
      refusing.transfer = own.get();
      refusing.schema = ProjSchema();
      Attributes all(attributes);
      refusing.StartElement(u"PROJ", all);
      EXPECT_EQ(refusing.StartElement(u"PERSON", all), static_cast<int>(0x80004005));
      EXPECT_EQ(refusing.depth, 1);
      EXPECT_EQ(own->errors, 0);
      EXPECT_STREQ(own->where, "PERSON");
      EXPECT_EQ(steprt::FindEntry(own.get(), 1) != nullptr, isRegistered);
      EXPECT_EQ(TakeReports("doc"), Texts(procedure ? 1 : 0, "Missing entity 'Rid'"));
    }
  }
}

TEST_F(HandlerStates, TextIsKeptInsideAChildOnly) {
  Feed("1<PROJ>2<PROBE #1>3<a>4<b>5<c>6</></>7</>8<empty></><nothing>");
  EXPECT_EQ(parser.Characters(u""), kSaxOk);
  Feed("</>");
  EXPECT_EQ(Elements(), (Texts{"a=4567", "empty", "nothing="}));
}

TEST_F(HandlerStates, ElementsStayUntilTheNextEntityBegins) {
  Feed("<PROJ><PERSON #1><Age>41</></>");
  EXPECT_EQ(Elements(), Texts{"Age=41"});
  Feed("<PERSON #2>");
  EXPECT_EQ(Elements(), Texts{});
  EXPECT_EQ(transfer->elementsTail, &transfer->elements);
  EXPECT_EQ(parser.element, nullptr);
  Feed("<Age>");
  EXPECT_EQ(Elements(), Texts{"Age"}) << "nothing is left of the text that an element had before";
  Feed("</></>");
  EXPECT_EQ(Population(model), (Texts{"PERSON(41)", "PERSON(0)"}));
}

TEST_F(HandlerStates, AUnitIsItsLowByteAndOneOfZeroEndsTheTextUntilTheNextCall) {
  const std::pair<std::vector<std::u16string_view>, const char*> rows[] = {
      {{u"\u0141\u00e9\u20ac"}, "A\xe9\xac"}, {{u"ab\u2000cd"}, "ab"},          {{u"ab\u2000cd", u"ef"}, "abef"},
      {{u"\u0100", u"\u0200x", u"yz"}, "yz"}, {{u"a", u"", u"b", u"c"}, "abc"}, {{u"\xd83d\xde00"}, "=\0"}};
  for (const auto& [calls, text] : rows) {
    parser.StartDocument();
    Feed("<PROJ><PROBE #1><a>");
    for (const std::u16string_view call : calls) EXPECT_EQ(parser.Characters(call), kSaxOk);
    EXPECT_STREQ(transfer->elements->value, text);
  }
}

TEST_F(HandlerStates, LongNamesAreCut) {
  const std::string name(300, 'n');
  Feed("<PROJ><" + name + " #1>");
  EXPECT_EQ(transfer->where, std::string(63, 'n'));
  Feed("<" + name + ">");
  EXPECT_EQ(parser.text, std::string(260, 'n'));
  EXPECT_EQ(transfer->elements->name, std::string(63, 'n'));
  Feed("</></>");
  EXPECT_EQ(Start(u"PERSON", {{std::u16string(300, u'n'), u"#2"}}), kSaxFailure);
  EXPECT_EQ(parser.text, std::string(260, 'n'));
}

TEST_F(HandlerStates, AnEntityThatCannotBeReadKeepsItsNumber) {
  Feed("<PROJ><NOBODY #1><a>1</></><PRODUCT #2><a>1</></>");
  for (const int number : {1, 2}) {
    const STEPentry* entry = steprt::FindEntry(transfer.get(), number);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->object, nullptr);
  }
  EXPECT_TRUE(model.IsEmpty());
  EXPECT_EQ(transfer->errors, 0);
}

TEST_F(HandlerStates, ADoubledNumberIsReportedAndTheLaterInstanceWinsTheTable) {
  Feed("<PROJ><Person #5><Age>1</></><PERSON #5><Age>2</></></>");
  EXPECT_EQ(Population(model), (Texts{"PERSON(1)", "PERSON(2)"}));
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 5)->object, model.Inst()->next);
  EXPECT_EQ(TakeReports("doc"), Texts{"(1) [PERSON]Entity #5 already used"});
  EXPECT_STREQ(transfer->where, "PERSON") << "the name of the last entity stays";
}

TEST_F(HandlerStates, TheReadFunctionSeesTheTransferAndMayGiveNothing) {
  int calls = 0;
  SetProbe({"", -1, [&](STEPtransfer* t) -> STEPheader* {
              ++calls;
              EXPECT_EQ(t, transfer.get());
              EXPECT_EQ(parser.depth, 2);
              EXPECT_STREQ(rSTEPtext(t, "b"), "2");
              EXPECT_STREQ(rSTEPtext(t, "a"), "1");
              return nullptr;
            }});
  Feed("<PROJ><PROBE #9><a>1</><b>2</></>");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(steprt::FindEntry(transfer.get(), 9)->object, nullptr);
}

}  // namespace
