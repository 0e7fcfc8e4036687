// The content handler and the error handler, driven by events made by hand.
#include <cstring>
#include <iterator>

#include "read/transfer/instance_table.h"
#include "read/transfer/references.h"
#include "xml/error_handler.h"
#include "xml/events.h"

namespace {

using namespace steprt_test;
using steprt::kSaxFailure;
using steprt::kSaxOk;

// Where an operation is in its table, from 0, as the compilers of this system code a pointer to it.
template <typename Operation>
std::size_t SlotOf(Operation operation) {
  std::size_t code;
  std::memcpy(&code, &operation, sizeof code);
  return (code - 1) / sizeof(void*);
}

TEST(HandlerSlots, AreInTheOrderOfTheEventsAndTheDestructorIsLast) {
  using Content = steprt::SaxContentHandler;
  const std::size_t content[] = {SlotOf(&Content::PutDocumentLocator),  SlotOf(&Content::StartDocument),
                                 SlotOf(&Content::EndDocument),         SlotOf(&Content::StartPrefixMapping),
                                 SlotOf(&Content::EndPrefixMapping),    SlotOf(&Content::StartElement),
                                 SlotOf(&Content::EndElement),          SlotOf(&Content::Characters),
                                 SlotOf(&Content::IgnorableWhitespace), SlotOf(&Content::ProcessingInstruction),
                                 SlotOf(&Content::SkippedEntity)};
  for (std::size_t i = 0; i < std::size(content); ++i) EXPECT_EQ(content[i], i);
  using Errors = steprt::SaxErrorHandler;
  const std::size_t errors[] = {SlotOf(&Errors::Error), SlotOf(&Errors::FatalError), SlotOf(&Errors::IgnorableWarning)};
  for (std::size_t i = 0; i < std::size(errors); ++i) EXPECT_EQ(errors[i], i);
}

class HandlerStates : public testing::Test, public XmlEvents {};

TEST_F(HandlerStates, DepthSaysWhereTheNextTagIs) {
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
  const std::pair<const char16_t*, int> rows[] = {{u"x12", 12}, {u"12", 2},        {u"#", 0},
                                                  {u"", 0},     {u"\u010012", 12}, {u"#-5", -5},
                                                  {u"# 7", 7},  {u"#12abc", 12},   {u"##3", 0}};
  Feed("<pRoj>");
  for (const auto& [rid, number] : rows) {
    EXPECT_EQ(Start(u"nobody", {{u"RiD", rid}}), kSaxOk);
    ASSERT_NE(parser.entry, nullptr);
    EXPECT_EQ(parser.entry->number, number);
    Feed("</>");
  }
}

// A row says whether the number 1 is registered all the same.
TEST_F(HandlerStates, AnEntityWithAnotherAttributeThanItsNumberIsRefused) {
  const std::pair<AttributePairs, bool> rows[] = {{{}, false},
                                                  {{{u"x", u""}, {u"rid", u"#1"}}, false},
                                                  {{{u"rid", u"#1"}, {u"x", u""}}, true},
                                                  {{{u"ri", u"#1"}}, false},
                                                  {{{u"rids", u"#1"}}, false}};
  for (const auto& [attributes, isRegistered] : rows) {
    for (const STEPerrorProc procedure : {static_cast<STEPerrorProc>(nullptr), &CollectReport}) {
      XmlEvents own(procedure);
      own.Feed("<PROJ>");
      EXPECT_EQ(own.Start(u"PERSON", attributes), static_cast<int>(0x80004005));
      EXPECT_EQ(own.parser.depth, 1);
      EXPECT_EQ(own.transfer->errors, 0);
      EXPECT_STREQ(own.transfer->where, "PERSON");
      EXPECT_EQ(steprt::FindEntry(own.transfer.get(), 1) != nullptr, isRegistered);
      EXPECT_EQ(TakeReports("doc"), Texts(procedure ? 1 : 0, "Missing entity 'Rid'"));
    }
  }
}

TEST_F(HandlerStates, TextIsKeptInsideAChildOnlyAndUntilTheNextEntityBegins) {
  Feed("1<PROJ>2<PROBE #1>3<a>4<b>5<c>6</></>7</>8<empty></><nothing>");
  EXPECT_EQ(parser.Characters(u""), kSaxOk);
  Feed("</>");
  EXPECT_EQ(Elements(), (Texts{"a=4567", "empty", "nothing="}));
  Feed("</><PERSON #2>");
  EXPECT_EQ(Elements(), Texts{});
  EXPECT_EQ(parser.element, nullptr);
  Feed("<Age>");
  EXPECT_EQ(Elements(), Texts{"Age"}) << "nothing is left of the text that an element had before";
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
}

TEST_F(HandlerStates, TheServicesWordsGoOutBareAndCutAndTheCountBecomesMinusOne) {
  const std::pair<std::u16string, std::string> rows[] = {{u"", ""},
                                                         {u"\u0141\u00e9", "A\xe9"},
                                                         {u"ab\u0100cd", "ab"},
                                                         {std::u16string(127, u'x'), std::string(127, 'x')},
                                                         {std::u16string(5000, u'x'), std::string(127, 'x')}};
  steprt::XmlErrorHandler handler;
  handler.transfer = transfer.get();
  for (const auto& [message, delivered] : rows) {
    transfer->errors = 7;
    EXPECT_EQ(handler.IgnorableWarning(message.c_str()), 0);
    EXPECT_EQ(transfer->errors, 7) << "a warning is ignored";
    EXPECT_EQ(handler.Error(message.c_str()), 0);
    EXPECT_EQ(transfer->errors, -1);
    EXPECT_EQ(handler.FatalError(message.c_str()), 0);
    EXPECT_EQ(TakeReports("doc"), Texts(2, delivered));
  }
}

}  // namespace
