// What kinds of documents are taken, decoded and refused.
#include "xml/documents.h"

#include <gtest/gtest.h>

#include "support/repeat.h"
#include "support/soundness.h"
#include "support/table.h"

namespace {

using namespace steprt_test;

class Documents : public testing::Test {
 protected:
  Documents() { SetProbe({"t"}); }
};

Outcome Read(const std::string& text) { return {0, {}, {"PROBE('" + text + "')"}}; }
Outcome Refused(const std::string& words) { return {-1, {words}, {}}; }

// In memory as in a file.
TEST_F(Documents, GiveWhatTheirMarkupSays) {
  // document, population, reports
  const char* const rows = R"(
    // A root is named after the schema and may be anywhere.
    <OTHER><PERSON rid='#1'/></OTHER>
    <BASE><PERSON rid='#1'/></BASE>
    <PROJECT><PERSON rid='#1'/></PROJECT>
    <a><b/><proj><PERSON rid='#1'/></proj></a> | PERSON(0)
    <a><PROJ><PERSON rid='#1'/></PROJ><x><Proj><PERSON rid='#2'/></Proj></x></a> | PERSON(0) & PERSON(0)
    // Prefixes and declarations of namespaces do not matter.
    <p:PROJ xmlns:p='urn:x'><p:PERSON p:rid='#1'><p:Age>41</p:Age></p:PERSON></p:PROJ> | PERSON(41)
    <PROJ xmlns='urn:x'><PERSON xmlns:q='urn:y' rid='#1' xmlns:r='urn:z'><Age>41</Age></PERSON></PROJ> | PERSON(41)
    <PROJ xmlns='http://a/b;c?d=e#f'><PERSON rid='#1'><q:Age xmlns:q='urn:y'>41</q:Age></PERSON></PROJ> | PERSON(41)
    <PROJ><q:PERSON rid='#1'/></PROJ>          | | unbound prefix (line 1, column 7)
    <PROJ><PERSON xml:id='#1'/></PROJ>         | | Missing entity 'Rid'
    // Of two numbers the last counts.
    <PROJ><PROBE rid='#1' RID='#2'/><DOOR rid='#3'><Host>#2</Host></DOOR></PROJ> | PROBE('') & DOOR(@1) | (1) [DOOR]Reference to wrong object type ''
    // References and line ends are resolved.
    <PROJ><PROBE rid='&#35;7'><A>&lt;a&amp;b&gt;&quot;&apos;&#65;&#x42;</A></PROBE></PROJ> | PROBE('<a&b>"'AB')
    <!DOCTYPE PROJ [<!ENTITY e 'x&#38;#38;y'><!ENTITY f '[&e;]'>]><PROJ><PROBE rid='#1'><A>1&f;2</A></PROBE></PROJ> | PROBE('1[x&y]2')
    <PROJ><PROBE rid='#1'><A>1\r\n2\r3\n4&#13;5</A></PROBE></PROJ> | PROBE('1\n2\n3\n4\r5')
    // The service's words say what and where.
    abc                                        | | syntax error (line 1, column 1)
    <PROJ>\n <PERSON rid='#1'></b>\n</PROJ>    | | mismatched tag (line 2, column 21)
    <PROJ>                                     | | no element found (line 1, column 7)
    <PROJ/><PROJ/>                             | | junk after document element (line 1, column 8)
    <PROJ a='1' a='2'/>                        | | duplicate attribute (line 1, column 13)
    <PROJ>&x;</PROJ>                           | | undefined entity (line 1, column 7)
    <PROJ>&#0;</PROJ>                          | | reference to invalid character number (line 1, column 7)
    <PROJ>&#1;</PROJ>                          | | reference to invalid character number (line 1, column 7)
    <?xml version='1.0' encoding='EBCDIC'?><PROJ/> | | unknown encoding (line 1, column 31)
    <!DOCTYPE PROJ [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><PROJ>&a;</PROJ> | | recursive entity reference (line 1, column 59)
  )";
  for (const Texts& row : Table(rows, 3)) {
    const Texts reports = ItemsOf(row[2]);
    const Outcome wanted = {ResultOf(reports), reports, ItemsOf(row[1])};
    EXPECT_EQ(ReadDocument(row[0]), wanted) << row[0];
    EXPECT_EQ(ReadDocumentFile(row[0]), wanted) << row[0];
  }
}

// ---- encodings -----------------------------------------------------------------------------------------------------

std::string Declared(const std::string& encoding, const std::string& text) {
  const std::string head = encoding.empty() ? "" : "<?xml version='1.0' encoding='" + encoding + "'?>";
  return head + ProbeDocument("<A>" + text + "</A>");
}

TEST_F(Documents, AreDecodedByTheirDeclarationInMemoryAsInAFile) {
  // Each unit's low byte is what the attribute shows: U+0141 is 41, U+20AC is AC, U+0416 is 16, U+0161 is 61.
  const Texts rows[] = {{"", "\xc3\xa9\xc5\x81", "\xe9\x41"},
                        {"UTF-8", "\xc3\xa9\xc5\x81", "\xe9\x41"},
                        {"utf-8", "\xf0\x9f\x98\x80", "="},  // units D83D and DE00, the second of which ends the text
                        {"ISO-8859-1", "\xe9\x80\xff", "\xe9\x80\xff"},
                        {"iso-8859-1", "\xa4", "\xa4"},
                        {"US-ASCII", "abc", "abc"},
                        {"windows-1250", "\xa3\x9a\x80", "Aa\xac"},
                        {"windows-1251", "\xc6\xa8\x88", "\x16\x01\xac"},
                        {"windows-1252", "\xe9\x80\x8a\x81", "\xe9\xac`\x81"},
                        {"Windows-1252", "\x93", "\x1c"},
                        {"ISO-8859-2", "\xa3\xb9", "Aa"},
                        {"ISO-8859-5", "\xb6\xfd", "\x16\xa7"},
                        {"ISO-8859-15", "\xa4\xa6", "\xac`"}};
  for (const Texts& row : rows) {
    EXPECT_EQ(ReadDocument(Declared(row[0], row[1])), Read(row[2])) << row[0];
    EXPECT_EQ(ReadDocumentFile(Declared(row[0], row[1])), Read(row[2])) << row[0];
  }
  const Texts refused[] = {{"", "\xe9"},         {"UTF-8", "\xc3"}, {"UTF-8", "\xed\xa0\x80"},
                           {"US-ASCII", "\xe9"}, {"EBCDIC", "a"},   {"UTF-16", "a"}};
  for (const Texts& row : refused) {
    const Outcome outcome = ReadDocument(Declared(row[0], row[1]));
    EXPECT_EQ(outcome, (Outcome{-1, Texts(1, outcome.reports.at(0)), {}})) << row[0];
  }
}

TEST_F(Documents, MarksOfTheByteOrderCount) {
  const auto utf16 = [](const std::string& ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xfe\xff" : "\xff\xfe";
    for (const char c : ascii) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
  };
  EXPECT_EQ(ReadDocumentFile(utf16(Declared("UTF-16", "ab"), true)), Read("ab"));
  EXPECT_EQ(ReadDocumentFile(utf16(Declared("UTF-16", "ab"), false)), Read("ab"));
  EXPECT_EQ(ReadDocumentFile(utf16(Declared("", "ab"), false)), Read("ab"));
  EXPECT_EQ(ReadDocument("\xef\xbb\xbf" + Declared("", "ab")), Read("ab"));
  EXPECT_EQ(ReadDocumentFile(Declared("", std::string("a\0b", 3))).result, -1) << "a byte 0 is no mark";
}

// ---- hostile documents ---------------------------------------------------------------------------------------------

TEST_F(Documents, NothingIsLoadedFromOutside) {
  const std::string secret = MakeFile("secret.txt", "secret");
  const std::string dtd = MakeFile("evil.dtd", "<!ENTITY g 'grown'><!ATTLIST PROBE rid CDATA '#1'>");
  const std::string head = "<!DOCTYPE PROJ SYSTEM '" + dtd + "' [<!ENTITY x SYSTEM '" + secret + "'>";
  for (const std::string name : {"x", "g"}) {
    const Outcome outcome = ReadDocument(head + "]>" + ProbeDocument("<A>[&" + name + ";]<!--&c;--><?p &p;?></A>"));
    EXPECT_EQ(outcome, (Outcome{-1, {outcome.reports.at(0)}, {"PROBE('[]')"}})) << "the read goes on without it";
    EXPECT_EQ(outcome.reports[0].substr(0, 21), "entity not loaded: " + name + " ");
  }
  const std::string ands(3000, '&');  // in pieces, of which most begin with one
  EXPECT_EQ(ReadDocument("<?xml version='1.0' encoding='ISO-8859-1'?>" + head + "]>" +
                         ProbeDocument("<A>1<!--" + ands + "--><?p " + ands + "?></A>")),
            Read("1"));
  EXPECT_EQ(ReadDocument(head + "<!ENTITY % p SYSTEM '" + dtd + "'>%p;]>" + ProbeDocument("<A>1</A>")), Read("1"));
  EXPECT_EQ(
      ReadDocument("<!DOCTYPE PROJ [<!ENTITY % d \"<!ENTITY g 'grown'>\"> %d; ]>" + ProbeDocument("<A>[&g;]</A>")),
      Read("[grown]"))
      << "an entity that another one declares is known";
}

TEST_F(Documents, AnEntityBombIsRefused) {
  std::string head = "<!DOCTYPE PROJ [<!ENTITY a0 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i < 12; ++i) {
    head += "<!ENTITY a" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k) head += "&a" + std::to_string(i - 1) + ";";
    head += "'>";
  }
  for (const std::string& body : {ProbeDocument("<A>&a11;</A>"), InRoot("<PERSON rid='&a11;'/>")}) {
    const Outcome outcome = ReadDocument(head + "]>" + body);
    EXPECT_EQ(outcome, Refused(outcome.reports.at(0)));
    EXPECT_EQ(outcome.reports[0].substr(0, 40), "limit on input amplification factor (fro");
  }
}

TEST_F(Documents, ANestOfAMillionElementsAndATextInAMillionPiecesAreRead) {
  constexpr int kMany = 1'000'000;
  const std::string open = Repeat(kMany, "<a>");
  const std::string close = Repeat(kMany, "</a>");
  EXPECT_EQ(ReadDocument(Declared("", "1" + open + "2" + close + "3")), Read("123"));
  EXPECT_EQ(ReadDocument(open + InRoot(kPersonEntity) + close), kPerson41);
  EXPECT_EQ(ReadDocument(ProbeDocument("<A>" + open)).result, -1);
  EXPECT_EQ(ReadDocument(Declared("", Repeat(kMany, "\n&lt;"))), Read(Repeat(kMany, "\n<")));
}

// Texts of one unit in two and three bytes lie across the ends of all blocks.
TEST_F(Documents, BlocksEndAnywhere) {
  for (std::size_t shift = 0; shift < 7; ++shift) {
    const std::string start(shift, 'x');
    const std::string document = Declared("", start + Repeat(60'000, "\xc3\xa9\xe2\x82\xac"));
    const Outcome wanted = Read(start + Repeat(60'000, "\xe9\xac"));
    EXPECT_EQ(ReadDocument(document), wanted);
    EXPECT_EQ(ReadDocumentFile(document), wanted);
  }
}

// Where a text ends by a unit of low byte 0 does not depend on what comes before it in the document.
TEST_F(Documents, ATextThatIsEndedByItsUnitsEndsAlikeEverywhere) {
  const std::string probe = "<PROBE rid='#1'><A>ab\xe2\x80\x80<!-- c -->cd\ne&amp;f</A></PROBE>";
  for (std::size_t shift = 65'480; shift < 65'560; ++shift) {
    EXPECT_EQ(ReadDocument("<PROJ>" + std::string(shift, ' ') + probe + "</PROJ>"), Read("ab"));
  }
}

// Each takes minutes when every tag lets the whole text be walked, or every block of the file the whole token.
TEST_F(Documents, LongTextsAndTokensCostWhatTheirBytesCost) {
  const std::string many(10'000'000, 'x');
  const std::string defaults = "<!DOCTYPE PROJ [<!ATTLIST a b CDATA '" + many + "'>]>";
  EXPECT_EQ(ReadDocument(defaults + Declared("", Repeat(100'000, "<a/>"))), Read(""));
  const std::string numbers = "<!DOCTYPE PROJ [<!ATTLIST DOOR rid CDATA '#1" + many + "'>]>";
  EXPECT_EQ(ReadDocument(numbers + InRoot(Repeat(30'000, "<DOOR/>"))).result, 29'999)
      << "each but the first has a number in use";
  EXPECT_EQ(ReadDocument("<!--" + many + "-->" + InRoot(kPersonEntity)), kPerson41);
  EXPECT_EQ(ReadDocument(InRoot("<PERSON rid='#1" + many + "'/>")), (Outcome{0, {}, {"PERSON(0)"}}));
  EXPECT_EQ(ReadDocument(InRoot("<PERSON rid='#1'><" + many + "/></PERSON>")), (Outcome{0, {}, {"PERSON(0)"}}));
  EXPECT_EQ(ReadDocumentFile("<?x " + many + "?>" + InRoot(kPersonEntity)), kPerson41);
}

}  // namespace
