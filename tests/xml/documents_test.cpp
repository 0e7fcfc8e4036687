// What kinds of documents are taken, decoded and refused.
#include "xml/documents.h"

#include <gtest/gtest.h>

namespace {

using namespace steprt_test;

// A PERSON, so that the tests see whether a document was read.
const char kPersonEntity[] = "<PERSON rid=\"#1\"><Age>41</Age></PERSON>";

class Documents : public testing::Test {
 protected:
  Documents() { SetProbe({"t"}); }
  ~Documents() override { SetProbe({}); }
};

TEST_F(Documents, OneThatIsNotNamedAfterTheSchemaGivesNothing) {
  for (const char* document : {"<OTHER><PERSON rid='#1'/></OTHER>", "<BASE><PERSON rid='#1'/></BASE>", "<a/>",
                               "<PROJECT><PERSON rid='#1'/></PROJECT>"}) {
    EXPECT_EQ(ReadDocument(document), (Outcome{0, {}, {}})) << document;
  }
}

TEST_F(Documents, ARootIsFoundInsideOthersAndEachOneIsRead) {
  const std::string person = kPersonEntity;
  EXPECT_EQ(ReadDocument("<a><b/><proj>" + person + "</proj></a>"), (Outcome{0, {}, {"PERSON(41)"}}));
  EXPECT_EQ(ReadDocument("<a>" + InRoot(person) + "<x><Proj><PERSON rid='#2'/></Proj></x></a>"),
            (Outcome{0, {}, {"PERSON(41)", "PERSON(0)"}}));
}

TEST_F(Documents, PrefixesAndDeclarationsOfNamespacesDoNotMatter) {
  for (const char* document :
       {"<p:PROJ xmlns:p='urn:x'><p:PERSON p:rid='#1'><p:Age>41</p:Age></p:PERSON></p:PROJ>",
        "<PROJ xmlns='urn:x'><PERSON xmlns:q='urn:y' rid='#1' xmlns:r='urn:z'><Age>41</Age></PERSON></PROJ>",
        "<PROJ xmlns='http://a/b;c?d=e#f'><PERSON rid='#1'><q:Age xmlns:q='urn:y'>41</q:Age></PERSON></PROJ>"}) {
    EXPECT_EQ(ReadDocument(document), (Outcome{0, {}, {"PERSON(41)"}})) << document;
  }
  EXPECT_EQ(ReadDocument("<PROJ><q:PERSON rid='#1'/></PROJ>").result, -1) << "a prefix that is not declared";
  EXPECT_EQ(ReadDocument("<PROJ><PERSON xml:id='#1'/></PROJ>").reports, Texts{"Missing entity 'Rid'"});
}

TEST_F(Documents, ReferencesAreResolved) {
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>&lt;a&amp;b&gt;&quot;&apos;&#65;&#x42;</A>")).population,
            Texts{"PROBE('<a&b>\"'AB')"});
  EXPECT_EQ(ReadDocument(InRoot("<PERSON rid='&#35;7'/>")).result, 0);
  EXPECT_EQ(
      ReadDocument("<!DOCTYPE PROJ [<!ENTITY e 'x&#38;#38;y'><!ENTITY f '[&e;]'>]>" + ProbeDocument("<A>1&f;2</A>")),
      (Outcome{0, {}, {"PROBE('1[x&y]2')"}}));
}

TEST_F(Documents, LineEndsAreThoseOfXml) {
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>1\r\n2\r3\n4&#13;5</A>")).population, Texts{"PROBE('1\n2\n3\n4\r5')"});
}

// ---- encodings -----------------------------------------------------------------------------------------------------

struct Encoding {
  const char* declared;  // "" for no declaration
  const char* bytes;     // of a text
  const char* narrowed;  // as the attribute shows it
};

// Each unit's low byte: U+0141 is 41, U+20AC is AC, U+0416 is 16, U+0161 is 61.
const Encoding kEncodings[] = {
    {"", "\xc3\xa9\xc5\x81",
     "\xe9"
     "A"},
    {"UTF-8", "\xc3\xa9\xc5\x81",
     "\xe9"
     "A"},
    {"utf-8", "\xf0\x9f\x98\x80", "="},  // a pair of units, D83D and DE00, the second of which ends the text
    {"ISO-8859-1", "\xe9\x80\xff", "\xe9\x80\xff"},
    {"iso-8859-1", "\xa4", "\xa4"},
    {"US-ASCII", "abc", "abc"},
    {"windows-1250", "\xa3\x9a\x80", "Aa\xac"},
    {"windows-1251", "\xc6\xa8\x88", "\x16\x01\xac"},
    {"windows-1252", "\xe9\x80\x8a\x81", "\xe9\xac`\x81"},
    {"Windows-1252", "\x93", "\x1c"},
    {"ISO-8859-2", "\xa3\xb9", "Aa"},
    {"ISO-8859-5", "\xb6\xfd", "\x16\xa7"},
    {"ISO-8859-15", "\xa4\xa6", "\xac`"},
};

TEST_F(Documents, AreDecodedByTheirDeclarationInMemoryAsInAFile) {
  for (const Encoding& encoding : kEncodings) {
    const std::string declared = encoding.declared;
    const std::string head = declared.empty() ? "" : "<?xml version='1.0' encoding='" + declared + "'?>";
    const std::string document = head + ProbeDocument("<A>" + std::string(encoding.bytes) + "</A>");
    const Outcome wanted = {0, {}, {"PROBE('" + std::string(encoding.narrowed) + "')"}};
    EXPECT_EQ(ReadDocument(document), wanted) << declared;
    EXPECT_EQ(ReadDocumentFile(document), wanted) << declared;
  }
}

std::string Utf16(const std::string& ascii, bool bigEndian) {
  std::string bytes = bigEndian ? "\xfe\xff" : "\xff\xfe";
  for (const char c : ascii) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

TEST_F(Documents, MarksOfTheByteOrderCount) {
  const std::string document = "<?xml version='1.0' encoding='UTF-16'?>" + ProbeDocument("<A>ab</A>");
  const Outcome wanted = {0, {}, {"PROBE('ab')"}};
  EXPECT_EQ(ReadDocumentFile(Utf16(document, true)), wanted);
  EXPECT_EQ(ReadDocumentFile(Utf16(document, false)), wanted);
  EXPECT_EQ(ReadDocumentFile(Utf16(ProbeDocument("<A>ab</A>"), false)), wanted);
  EXPECT_EQ(ReadDocument("\xef\xbb\xbf" + ProbeDocument("<A>ab</A>")), wanted);
}

TEST_F(Documents, WhatAnEncodingDoesNotHoldIsRefused) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "\xe9"},         {"UTF-8", "\xc3"}, {"UTF-8", "\xed\xa0\x80"},
      {"US-ASCII", "\xe9"}, {"EBCDIC", "a"},   {"UTF-16", "a"}};
  for (const auto& [declared, bytes] : rows) {
    const std::string name = declared;
    const std::string head = name.empty() ? "" : "<?xml version='1.0' encoding='" + name + "'?>";
    const Outcome outcome = ReadDocument(head + ProbeDocument("<A>" + std::string(bytes) + "</A>"));
    EXPECT_EQ(outcome.result, -1) << declared;
    EXPECT_EQ(outcome.reports.size(), 1u) << declared;
    EXPECT_EQ(outcome.population, Texts{}) << declared;
  }
}

TEST_F(Documents, ControlCharactersAndTheByteZeroAreRefused) {
  for (const char c : {'\x01', '\x08', '\x0b', '\x1f', '\0', '\x7f', '\t'}) {
    const std::string document = ProbeDocument("<A>a" + std::string(1, c) + "b</A>");
    const bool isAllowed = c == '\t' || c == '\x7f';
    EXPECT_EQ(ReadDocumentFile(document).result, isAllowed ? 0 : -1) << static_cast<int>(c);
  }
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>&#0;</A>")).result, -1);
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>&#1;</A>")).result, -1);
}

// ---- faults --------------------------------------------------------------------------------------------------------

TEST_F(Documents, TheServicesWordsSayWhatAndWhere) {
  const std::pair<std::string, const char*> rows[] = {
      {"", "no element found (line 1, column 1)"},
      {"abc", "syntax error (line 1, column 1)"},
      {"<PROJ>\n <PERSON rid='#1'></b>\n</PROJ>", "mismatched tag (line 2, column 21)"},
      {"<PROJ>", "no element found (line 1, column 7)"},
      {"<PROJ/><PROJ/>", "junk after document element (line 1, column 8)"},
      {"<PROJ a='1' a='2'/>", "duplicate attribute (line 1, column 13)"},
      {"<PROJ>&x;</PROJ>", "undefined entity (line 1, column 7)"},
      {"<?xml version='1.0' encoding='EBCDIC'?><PROJ/>", "unknown encoding (line 1, column 31)"},
  };
  for (const auto& [document, words] : rows) {
    EXPECT_EQ(ReadDocument(document), (Outcome{-1, {words}, {}})) << document;
    EXPECT_EQ(ReadDocumentFile(document), (Outcome{-1, {words}, {}})) << document;
  }
}

TEST_F(Documents, WhatWasReadBeforeAFaultStays) {
  const std::string start = "<PROJ><DOOR rid='#1'><Host>#2</Host></DOOR><WALL rid='#2'><External>.T.</External></WALL>";
  EXPECT_EQ(ReadDocument(start + "<PERSON rid='#3'><Age>4</Agee>"),
            (Outcome{-1, {"mismatched tag (line 1, column 115)"}, {"DOOR(@2)", "WALL('',0,null,[],[],T)"}}));
}

TEST_F(Documents, ReportsBehindAFaultCountUp) {
  const std::string doors = "<DOOR rid='#1'><Host>#7</Host></DOOR><DOOR rid='#2'><Host>#8</Host></DOOR>";
  const Outcome outcome = ReadDocument("<PROJ>" + doors + "<");
  EXPECT_EQ(outcome.result, 1) << "-1 and two reports";
  EXPECT_EQ(outcome.reports, (Texts{"unclosed token (line 1, column 81)", "(1) [DOOR]Unknown reference #8",
                                    "(1) [DOOR]Unknown reference #7"}));
}

// A document cut anywhere: never more than the whole one gives, and a fault unless nothing but white space is missing.
TEST_F(Documents, ACutAtAnyByteIsAFault) {
  const std::string whole =
      "<?xml version='1.0' encoding='ISO-8859-1'?>\n<!DOCTYPE PROJ [<!ENTITY e 'x'>]>\n<!-- c -->\n<PROJ>\n" +
      std::string("<PROBE rid='#2'><A>a&e;&amp;\xe9<![CDATA[d]]></A></PROBE>\n") + kPersonEntity + "\n</PROJ>";
  ASSERT_EQ(ReadDocument(whole).result, 0);
  const std::size_t end = whole.size();
  for (std::size_t size = 0; size < end; ++size) {
    const Outcome outcome = ReadDocument(whole.substr(0, size));
    EXPECT_EQ(outcome.result, -1) << size;
    EXPECT_EQ(outcome.reports.size(), 1u) << size;
    const bool hasProbe = size >= whole.find("</PROBE>") + 8;
    const bool hasPerson = size >= whole.find("</PERSON>") + 9;
    EXPECT_EQ(outcome.population.size(), (hasProbe ? 1u : 0u) + (hasPerson ? 1u : 0u)) << size;
  }
}

TEST_F(Documents, ARefusedEntityEndsTheReadWithoutAFault) {
  const Outcome outcome =
      ReadDocument("<PROJ><DOOR rid='#1'><Host>#9</Host></DOOR><PERSON id='#2'/><PERSON rid='#3'/>not xml");
  EXPECT_EQ(outcome.result, 1);
  EXPECT_EQ(outcome.reports, (Texts{"Missing entity 'Rid'", "(1) [PERSON]Unknown reference #9"}));
  EXPECT_EQ(outcome.population, Texts{"DOOR(null)"});
}

// ---- hostile documents ---------------------------------------------------------------------------------------------

TEST_F(Documents, NothingIsLoadedFromOutside) {
  const std::string secret = MakeFile("secret.txt", "secret");
  const std::string dtd = MakeFile("evil.dtd", "<!ENTITY g 'grown'><!ATTLIST PROBE rid CDATA '#1'>");
  const std::string head = "<!DOCTYPE PROJ SYSTEM '" + dtd + "' [<!ENTITY x SYSTEM '" + secret + "'>";
  for (const auto& [use, name] : {std::pair{"<A>[&x;]</A>", secret}, {"<A>[&g;]</A>", std::string("g")}}) {
    const Outcome outcome = ReadDocument(head + "]>" + ProbeDocument(use));
    EXPECT_EQ(outcome.result, -1) << use;
    ASSERT_EQ(outcome.reports.size(), 1u) << use;
    EXPECT_EQ(outcome.reports[0].substr(0, 19 + name.size()), "entity not loaded: " + name);
    EXPECT_EQ(outcome.population, Texts{"PROBE('[]')"}) << "the read goes on without it";
  }
  EXPECT_EQ(ReadDocument(head + "<!ENTITY % p SYSTEM '" + dtd + "'>%p;]>" + ProbeDocument("<A>1</A>")),
            (Outcome{0, {}, {"PROBE('1')"}}));
}

TEST_F(Documents, AnEntityThatAnotherOneDeclaresIsKnown) {
  const std::string head = "<!DOCTYPE PROJ [<!ENTITY % d \"<!ENTITY g 'grown'>\"> %d; ]>";
  EXPECT_EQ(ReadDocument(head + ProbeDocument("<A>[&g;]</A>")), (Outcome{0, {}, {"PROBE('[grown]')"}}));
}

TEST_F(Documents, AnEntityBombIsRefused) {
  std::string head = "<!DOCTYPE PROJ [<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i < 12; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ";";
    head += "<!ENTITY a" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k) head += before;
    head += "'>";
  }
  for (const std::string& body : {ProbeDocument("<A>&a11;</A>"), InRoot("<PERSON rid='&a11;'/>")}) {
    const Outcome outcome = ReadDocument(head + "]>" + body);
    EXPECT_EQ(outcome.result, -1);
    ASSERT_EQ(outcome.reports.size(), 1u);
    EXPECT_EQ(outcome.reports[0].substr(0, 40), "limit on input amplification factor (fro");
    EXPECT_EQ(outcome.population, Texts{});
  }
}

TEST_F(Documents, AnEntityInsideItselfIsRefused) {
  EXPECT_EQ(ReadDocument("<!DOCTYPE PROJ [<!ENTITY a '&b;'><!ENTITY b '&a;'>]>" + ProbeDocument("<A>&a;</A>")).reports,
            Texts{"recursive entity reference (line 1, column 78)"});
}

// Each entity holds the one before it, so what the last one stands for is found that deep in the parser.
TEST_F(Documents, EntitiesInsideOneAnotherHaveALimit) {
  const auto chain = [](int size) {
    std::string head = "<!DOCTYPE PROJ [\n<!ENTITY a0 '1'>\n";
    for (int i = 1; i < size; ++i) {
      head += "<!ENTITY a" + std::to_string(i) + " '&a" + std::to_string(i - 1) + ";'>\n";
    }
    return head + "]>";
  };
  for (const int size : {256, 257, 24'000}) {
    const std::string last = "&a" + std::to_string(size - 1) + ";";
    const std::pair<std::string, const char*> rows[] = {{ProbeDocument("<A>" + last + "</A>"), "PROBE('1')"},
                                                        {InRoot("<PERSON rid='#" + last + "'/>"), "PERSON(0)"}};
    for (const auto& [body, instance] : rows) {
      const Outcome wanted = size <= 256 ? Outcome{0, {}, {instance}}
                                         : Outcome{-1, {"too many entities declared (line 258, column 15)"}, {}};
      EXPECT_EQ(ReadDocument(chain(size) + body), wanted) << size << ' ' << instance;
    }
  }
}

struct DeclarationRow {
  std::string name;   // of the attribute; a number follows
  const char* value;  // behind its name
  int count;
  const char* refusal;  // "" for none
};

// Every tag of an element lets the parser go through the attributes that are declared of it, with their names.
TEST_F(Documents, DeclaredAttributesHaveALimit) {
  const std::string name62(62, 'x');
  const std::string name63(63, 'x');
  const std::string prefix60 = "q:" + std::string(60, 'x');
  const std::string prefix61 = "q:" + std::string(61, 'x');
  const DeclarationRow rows[] = {
      {"b", "CDATA #IMPLIED", 1024, ""},
      {"b", "CDATA #IMPLIED", 1025, "too many attributes declared (line 1026, column 25)"},
      {"b", "CDATA 'x'", 8, ""},
      {"b", "CDATA 'x'", 9, "too many defaults of attributes declared (line 10, column 22)"},
      {"b", "CDATA #FIXED 'x'", 9, "too many defaults of attributes declared (line 10, column 29)"},
      {"xmlns:b", "CDATA 'x'", 9, "too many defaults of attributes declared (line 10, column 28)"},
      {name62, "CDATA 'x'", 1, ""},
      {name63, "CDATA #IMPLIED", 10, ""},
      {name63, "CDATA #IMPLIED", 11, "too long a name of an attribute declared (line 12, column 85)"},
      {prefix60, "CDATA 'x'", 1, ""},
      {prefix61, "CDATA 'x'", 1, ""},
      {prefix61 + "x", "CDATA 'x'", 1, "too long a name of an attribute declared (line 2, column 85)"},
  };
  for (const DeclarationRow& row : rows) {
    std::string head = "<!DOCTYPE PROJ [\n";
    for (int i = 0; i < row.count; ++i) {
      head += "<!ATTLIST a " + row.name + std::to_string(i) + " " + row.value + ">\n";
    }
    const Outcome wanted = *row.refusal ? Outcome{-1, {row.refusal}, {}} : Outcome{0, {}, {"PERSON(41)"}};
    head += "]>\n<PROJ xmlns:q='urn:q'><PERSON rid='#1'><Age>4<a/>1</Age></PERSON></PROJ>";
    EXPECT_EQ(ReadDocument(head), wanted) << row.name << ' ' << row.value << ' ' << row.count;
  }
}

TEST_F(Documents, ANestOfAMillionElementsIsRead) {
  constexpr int kMany = 1'000'000;
  std::string open;
  std::string close;
  for (int i = 0; i < kMany; ++i) {
    open += "<a>";
    close += "</a>";
  }
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>1" + open + "2" + close + "3</A>")), (Outcome{0, {}, {"PROBE('123')"}}));
  EXPECT_EQ(ReadDocument(open + InRoot(kPersonEntity) + close), (Outcome{0, {}, {"PERSON(41)"}}));
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>" + open)).result, -1);
}

TEST_F(Documents, ATextInAMillionPiecesIsWhole) {
  constexpr std::size_t kMany = 1'000'000;
  std::string pieces;
  for (std::size_t i = 0; i < kMany; ++i) pieces += i % 2 ? "&lt;" : "\n";
  const Outcome outcome = ReadDocument(ProbeDocument("<A>" + pieces + "</A>"));
  std::string text;
  for (std::size_t i = 0; i < kMany; ++i) text += i % 2 ? '<' : '\n';
  EXPECT_EQ(outcome.population, Texts{"PROBE('" + text + "')"});
}

// Texts of one unit in two and three bytes lie across the ends of all blocks.
TEST_F(Documents, BlocksEndAnywhere) {
  for (std::size_t shift = 0; shift < 7; ++shift) {
    std::string text(shift, 'x');
    std::string narrowed = text;
    for (int i = 0; i < 60'000; ++i) {
      text += "\xc3\xa9\xe2\x82\xac";
      narrowed += "\xe9\xac";
    }
    const std::string document = ProbeDocument("<A>" + text + "</A>");
    const Outcome wanted = {0, {}, {"PROBE('" + narrowed + "')"}};
    EXPECT_EQ(ReadDocument(document), wanted);
    EXPECT_EQ(ReadDocumentFile(document), wanted);
  }
}

// Where a text ends by a unit of low byte 0 does not depend on what stands in front of it in the document.
TEST_F(Documents, ATextThatIsEndedByItsUnitsEndsAlikeEverywhere) {
  const std::string probe = "<PROBE rid='#1'><A>ab\xe2\x80\x80<!-- c -->cd\ne&amp;f</A></PROBE>";
  for (std::size_t shift = 65'480; shift < 65'560; ++shift) {
    EXPECT_EQ(ReadDocument("<PROJ>" + std::string(shift, ' ') + probe + "</PROJ>").population, Texts{"PROBE('ab')"});
  }
}

// Each takes minutes when every tag lets the whole text be walked.
TEST_F(Documents, TextsThatEveryTagRepeatsAreNotWalkedEachTime) {
  const std::string text(10'000'000, 'x');
  std::string tags;
  for (int i = 0; i < 100'000; ++i) tags += "<a/>";
  const std::string defaults = "<!DOCTYPE PROJ [<!ATTLIST a b CDATA '" + text + "'>]>";
  EXPECT_EQ(ReadDocument(defaults + ProbeDocument("<A>" + tags + "</A>")), (Outcome{0, {}, {"PROBE('')"}}));
  std::string entities;
  for (int i = 0; i < 30'000; ++i) entities += "<DOOR/>";
  const std::string numbers = "<!DOCTYPE PROJ [<!ATTLIST DOOR rid CDATA '#1" + text + "'>]>";
  EXPECT_EQ(ReadDocument(numbers + InRoot(entities)).result, 29'999) << "each but the first has a number in use";
}

TEST_F(Documents, ANameOfANamespaceHasALimit) {
  const auto document = [](std::size_t size) {
    return "<PROJ xmlns='" + std::string(size, 'x') + "'>" + kPersonEntity + "</PROJ>";
  };
  EXPECT_EQ(ReadDocument(document(512)), (Outcome{0, {}, {"PERSON(41)"}}));
  EXPECT_EQ(ReadDocument(document(513)), (Outcome{-1, {"too long a name of a namespace (line 1, column 529)"}, {}}));
}

// Each takes minutes when every block of the file lets the whole token be scanned again.
TEST_F(Documents, LongTokensCostWhatTheirBytesCost) {
  const std::string many(10'000'000, 'x');
  EXPECT_EQ(ReadDocument("<!--" + many + "-->" + InRoot(kPersonEntity)), (Outcome{0, {}, {"PERSON(41)"}}));
  EXPECT_EQ(ReadDocument(InRoot("<PERSON rid='#1" + many + "'/>")), (Outcome{0, {}, {"PERSON(0)"}}));
  EXPECT_EQ(ReadDocument(InRoot("<PERSON rid='#1'><" + many + "/></PERSON>")), (Outcome{0, {}, {"PERSON(0)"}}));
  EXPECT_EQ(ReadDocumentFile("<?x " + many + "?>" + InRoot(kPersonEntity)), (Outcome{0, {}, {"PERSON(41)"}}));
}

}  // namespace
