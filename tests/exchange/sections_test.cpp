// The frame of a file: its first and last line, its sections, its header.
#include <gtest/gtest.h>

#include <string>

#include "surveys.h"

namespace exchange::testing {
namespace {

struct Row {
  std::string text;
  std::string reports;
};

void Expect(const Row& row) {
  SCOPED_TRACE(row.text);
  EXPECT_EQ(SurveyLines(row.text), row.reports);
}

const std::string kFrame(kHead);
const std::string kEnd(kTail);

TEST(Sections, AllOfEditionThreeAreTaken) {
  const std::string level4 =
      "ISO-10303-21;HEADER;FILE_DESCRIPTION((''),'4;1');FILE_NAME('','',(''),(''),'','','');FILE_SCHEMA(('S'));ENDSEC;";
  const Row rows[] = {
      {kFrame + "DATA;" + kEnd, ""},
      {kFrame + "DATA('one',('S'));#1=A(#2);ENDSEC;\nDATA('two',('S'));#2=A(#1);" + kEnd, ""},
      {kFrame + "ANCHOR;<a>=#1;<b>=$;ENDSEC;REFERENCE;#7=<other.stp#x>;@8=<y#z>;ENDSEC;DATA;#1=A(#7,@8);" + kEnd, ""},
      {kFrame + "ANCHOR;<a>=#1{T:5}{u:('}',#1)};ENDSEC;DATA;#1=A();" + kEnd, ""},
      {kFrame + "DATA;" + kEnd + "SIGNATURE; MIIG'(+/= ENDSEC;\n", ""},
      {level4 + "DATA;#1=A('\xC3\xA9\xF0\x9F\x98\x80');" + kEnd, ""},
      {kFrame + "ANCHOR;<a>=#3;ENDSEC;DATA;" + kEnd,
       "1:123 dangling-reference: expected the name of a record, no record is called #3\n"},
      {kFrame + "ANCHOR;<a>=1{T:#3};ENDSEC;DATA;" + kEnd,
       "1:127 dangling-reference: expected the name of a record, no record is called #3\n"},
      {kFrame + "REFERENCE;#1=<a>{T:5};ENDSEC;DATA;" + kEnd,
       "1:128 bad-character: expected a token, found a character that starts none\n"
       "1:130 bad-character: expected a token, found a character that starts none\n"
       "1:132 bad-character: expected a token, found a character that starts none\n"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Sections, WhatIsMissingIsReportedOnce) {
  const std::string noHeader = "ISO-10303-21;";
  const Row rows[] = {
      {"",
       "1:1 missing-part: expected ISO-10303-21; at the start of the file\n"
       "1:1 missing-part: expected a DATA section\n"
       "1:1 missing-part: expected END-ISO-10303-21; before the end of the file\n"
       "1:1 header: expected FILE_DESCRIPTION in the header\n"},
      {"\xEF\xBB\xBF" + kFrame + "DATA;" + kEnd,
       "1:1 byte-order-mark: expected ISO-10303-21; first, found a byte order mark\n"},
      {kFrame.substr(13) + "DATA;" + kEnd, "1:1 missing-part: expected ISO-10303-21; at the start of the file\n"},
      {kFrame + "DATA;#1=A();END-ISO-10303-21;",
       "1:124 missing-part: expected ENDSEC; at the end of the section DATA\n"},
      {kFrame + "DATA;#1=A();ENDSEC;", "1:131 missing-part: expected END-ISO-10303-21; before the end of the file\n"},
      {kFrame + "DATA;#1=A();DATA;#2=A();" + kEnd,
       "1:124 missing-part: expected ENDSEC; at the end of the section DATA\n"},
      {kFrame + "#1=A();" + kEnd, "1:112 missing-part: expected DATA; before the first record\n"},
      {noHeader + "DATA;#1=A();" + kEnd,
       "1:14 missing-part: expected a HEADER section before DATA\n"
       "1:19 header: expected FILE_DESCRIPTION in the header\n"},
      {kFrame + kFrame.substr(13) + "DATA;" + kEnd,
       "1:112 missing-part: expected one HEADER section, before all others\n"
       "1:119 header: expected FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA, in this order and each once\n"},
      {kFrame + "DATA;" + kEnd + "\n\nmore", "3:1 after-end: expected nothing after END-ISO-10303-21;\n"},
      {"?;" + kFrame.substr(13) + "DATA;" + kEnd,
       "1:1 bad-character: expected a token, found a character that starts none\n"
       "1:1 missing-part: expected ISO-10303-21; at the start of the file\n"},
      {kFrame + "DATA?;" + kEnd, "1:116 bad-character: expected a token, found a character that starts none\n"},
      {kFrame + "OTHER;DATA;" + kEnd, "1:112 syntax: expected HEADER, DATA or another section, found a keyword\n"},
      {kFrame + "DATA #1=A();" + kEnd, "1:117 syntax: expected ';', found a reference\n"},
      {kFrame + "ANCHOR;<a>#1;<b>='x;",
       "1:122 syntax: expected '=', found a reference\n1:129 open-text: expected ' at the end of this text\n"
       "1:132 missing-part: expected ENDSEC; at the end of the section ANCHOR\n"
       "1:132 missing-part: expected a DATA section\n"
       "1:132 missing-part: expected END-ISO-10303-21; before the end of the file\n"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Sections, TheHeaderIsChecked) {
  const auto file = [](const std::string& header) {
    return "ISO-10303-21;\nHEADER;" + header + "ENDSEC;\nDATA;#1=A();" + kEnd;
  };
  const std::string description = "FILE_DESCRIPTION((''),'2;1');";
  const std::string name = "FILE_NAME('','',(''),(''),'','','');";
  const std::string schema = "FILE_SCHEMA(('S'));";
  const Row rows[] = {
      {file(description + name + schema + "SECTION_LANGUAGE($,'en');!MORE(1);"), ""},
      {file(description + name), "3:6 header: expected FILE_SCHEMA in the header\n"},
      {file(name + description + schema),
       "2:8 header: expected FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA, in this order and each once\n"
       "2:44 header: expected FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA, in this order and each once\n"
       "2:73 header: expected FILE_DESCRIPTION, FILE_NAME and FILE_SCHEMA, in this order and each once\n"},
      {file("FILE_DESCRIPTION((''));" + name + schema),
       "2:8 header: expected 2 attributes in FILE_DESCRIPTION, found 1\n"},
      {file("FILE_DESCRIPTION(('',1),2);" + name + schema),
       "2:29 header: expected a text, found an integer\n2:32 header: expected a text, found an integer\n"},
      {file("FILE_DESCRIPTION((),$);" + name + schema),
       "2:26 header: expected a text, found ')'\n2:28 header-omitted: expected a text, found '$'\n"},
      {file(description + "FILE_NAME('','','','','','','');" + schema),
       "2:53 header: expected a list of texts, found a text\n2:56 header: expected a list of texts, found a text\n"},
  };
  for (const Row& row : rows) Expect(row);
}

TEST(Sections, TheHeaderArrivesDecoded) {
  Reports reports;
  const auto input = Input::FromText("text",
                                     "ISO-10303-21;HEADER;FILE_DESCRIPTION(('a','it''s \\X\\E9'),'2;1');"
                                     "FILE_NAME('n','2026-01-02T03:04:05',('A','B'),('O'),'p\\\\q','s','z');"
                                     "FILE_SCHEMA(('AP_X { 1 0 10303 442 }','T'));ENDSEC;DATA;" +
                                         kEnd);
  const Header header = TakeSurvey(*input, {}, reports).header;
  using Texts = std::vector<std::string>;
  EXPECT_EQ(header.description, (Texts{"a", "it's \xC3\xA9"}));
  EXPECT_EQ(header.implementationLevel, "2;1");
  EXPECT_EQ(header.name, "n");
  EXPECT_EQ(header.timeStamp, "2026-01-02T03:04:05");
  EXPECT_EQ(header.author, (Texts{"A", "B"}));
  EXPECT_EQ(header.organization, Texts{"O"});
  EXPECT_EQ(header.preprocessorVersion, "p\\q");
  EXPECT_EQ(header.originatingSystem, "s");
  EXPECT_EQ(header.authorization, "z");
  EXPECT_EQ(header.schemas, (Texts{"AP_X { 1 0 10303 442 }", "T"}));
  EXPECT_EQ(SchemaName(header.schemas[0]), "AP_X");
  EXPECT_TRUE(reports.All().empty());
}

}  // namespace
}  // namespace exchange::testing
