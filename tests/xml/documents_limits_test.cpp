// Documents that are honest, however many names they declare, and documents that would cost the parser much more than
// their bytes are worth. The first are read and the second refused.
#include <gtest/gtest.h>

#include "xml/documents.h"

namespace {

using namespace steprt_test;

// A PERSON, so that the tests see whether a document was read.
const char kPersonEntity[] = "<PERSON rid=\"#1\"><Age>41</Age></PERSON>";

const Outcome kPerson41 = {0, {}, {"PERSON(41)"}};

std::string Times(int count, const std::string& piece) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

// The piece so many times, with the numbers from 0 in place of each @.
std::string Numbered(int count, const std::string& piece) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    for (const char c : piece) c == '@' ? text += std::to_string(i) : text += c;
  }
  return text;
}

// A document with these declarations and, in front of the PERSON, these elements in the root.
std::string Document(const std::string& declarations, const std::string& elements) {
  return "<!DOCTYPE PROJ [" + declarations + "]><PROJ xmlns:q='u'><x rid='#2'>" + elements + "</x>" + kPersonEntity +
         "</PROJ>";
}

std::string Attributes(int count, const std::string& piece) { return "<!ATTLIST a " + Numbered(count, piece) + ">"; }

// Each but the first holds the one before it. Those that are for the document type only are declared and referred to by
// another mark.
std::string Chain(int size, bool ofParameters = false) {
  const std::string start = ofParameters ? "<!ENTITY % e" : "<!ENTITY e";
  const std::string reference = ofParameters ? " '&#37;e" : " '&e";
  std::string text = start + "0 ''>";
  for (int i = 1; i < size; ++i) text += start + std::to_string(i) + reference + std::to_string(i - 1) + ";'>";
  return text;
}

// Each but the last holds the one that follows it.
std::string ChainBackwards(int size) {
  std::string text;
  for (int i = 0; i < size; ++i) {
    text += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i + 1) + ";'>";
  }
  return text + "<!ENTITY e" + std::to_string(size) + " 'x'>";
}

// As many open elements, and in them elements in as many namespaces, whose names are as long as this.
std::string Nest(int depth, int namespaces, int length) {
  const std::string name(static_cast<std::size_t>(length), 'n');
  return Times(depth, "<b>") + "<c" + Numbered(namespaces, " xmlns:p@='u'") + ">" +
         Numbered(namespaces, "<p@:" + name + "/>") + "</c>" + Times(depth, "</b>");
}

TEST(DocumentLimits, HonestDocumentsAreRead) {
  const std::string longName(1'000, 'n');
  const std::string tags = Times(1'000, "<a/>");
  const struct {
    const char* what;
    std::string document;
  } rows[] = {
      {"an attribute of each of 5,000 elements", Document(Numbered(5'000, "<!ATTLIST e@ rid ID #REQUIRED>"), tags)},
      {"30 of each of 500", Document(Numbered(500, "<!ATTLIST e@" + Times(30, " b NMTOKEN #IMPLIED") + ">"), "<e1/>")},
      {"1,100 attributes of an element", Document(Attributes(1'100, "b@ CDATA #IMPLIED "), tags)},
      {"100 with defaults", Document(Attributes(100, "b@ CDATA 'x' "), tags)},
      {"10 with defaults in a namespace", Document(Attributes(10, "q:b@ CDATA 'x' "), tags)},
      {"10 namespaces by default", Document(Attributes(10, "xmlns:p@ CDATA 'u' "), tags)},
      {"long names of attributes", Document(Attributes(10, longName + "@ CDATA 'x' "), tags)},
      {"and in a namespace", Document("<!ATTLIST a q:" + longName + " CDATA 'x'>", tags)},
      {"2,000 entities", Document(Numbered(2'000, "<!ENTITY e@ 'x'>"), Numbered(2'000, "&e@;"))},
      {"2,000 with one in each, declared first",
       Document("<!ENTITY o 'x'>" + Numbered(2'000, "<!ENTITY e@ '&o;'>"), "&e7;")},
      {"2,000 with one in each, declared last",
       Document(Numbered(2'000, "<!ENTITY e@ '&o;'>") + "<!ENTITY o 'x'>", "&e7;")},
      {"a chain of 256 entities", Document(Chain(256), "<a b='&e255;'>&e255;</a>")},
      {"a chain of 256 in the document type", Document(Chain(256, true) + "%e255;", "")},
      {"a chain backwards", Document(ChainBackwards(255), "&e0;")},
      {"2,000 entities of references to characters",
       Document(Numbered(2'000, "<!ENTITY e@ '&#38;#38;&#38;#e0;'>"), "")},
      {"130,000 tags out of entities", Document("<!ENTITY e '" + tags + "'>", Times(129, "&e;"))},
      {"a long address of a namespace", Document("", "<x xmlns='" + Times(20, longName) + "'>" + tags + "</x>")},
      {"2,000 nested elements in a namespace", Document("", "<x xmlns='u'>" + Nest(2'000, 1, 40) + "</x>")},
      {"2,000 namespaces, nested", Document("", Times(2'000, "<" + longName.substr(960) + " xmlns='u'>") +
                                                    Times(2'000, "</" + longName.substr(960) + ">"))},
      {"100,000 namespaces, nested", Document("", Times(100'000, "<a xmlns='u'>") + Times(100'000, "</a>"))},
      {"500 prefixes in a nest of 500", Document("", Nest(500, 500, 40))},
  };
  for (const auto& row : rows) EXPECT_EQ(ReadDocument(row.document), kPerson41) << row.what;
}

TEST(DocumentLimits, HostileDocumentsAreRefused) {
  const std::string longName(10'000, 'n');
  const std::string tags = Times(20'000, "<a/>");
  const struct {
    const char* fault;
    std::string document;
  } rows[] = {
      {"too many tags in entities", Document("<!ENTITY e '" + tags + "'>", Times(100, "&e;"))},
      {"entities nested too deep", Document(Chain(257), "")},
      {"entities nested too deep", Document(ChainBackwards(256), "")},
      {"entities nested too deep", Document(ChainBackwards(24'000), "&e0;")},
      {"entities nested too deep", Document(Chain(257, true), "")},
      {"recursive entity reference", Document("<!ENTITY e '&f;'><!ENTITY f '&e;'>", "&e;")},
      {"entities nested too deep", Document(Chain(200) + "<!ENTITY c '&c;'>" + Numbered(60, "<!ENTITY d@ ''>"), "")},
      {"too many attributes declared", Document(Attributes(3'000, "b@ CDATA #IMPLIED "), tags + tags)},
      {"too many attributes declared", Document(Attributes(30'000, "b@ CDATA '' "), "")},
      {"too many attributes declared", Document(Attributes(30'000, "b@ NMTOKEN #IMPLIED "), "")},
      {"too many attributes declared",
       Document(Attributes(12'000, "b@ NMTOKEN #IMPLIED "), Times(100, "<a" + Numbered(500, " b@=' '") + "/>"))},
      {"too many attributes declared",
       Document("<!ENTITY % p \"" + Attributes(1'000, "b@ CDATA #IMPLIED ") + "\">" + Times(200, "%p;"), "")},
      {"too many defaults of attributes declared", Document(Attributes(1'000, "b@ CDATA 'x' "), tags)},
      {"too long names of attributes", Document(Attributes(8, "q:" + longName + "@ CDATA 'x' "), tags)},
      {"too long names of attributes", Document("<!ATTLIST a " + Times(20, longName) + " CDATA 'x'>", tags + tags)},
      {"too many or too long names of namespaces", Document(Attributes(1'000, "xmlns:p@ CDATA 'u' "), tags)},
      {"too many or too long names of namespaces", Document("<!ATTLIST a xmlns:p CDATA '" + longName + "'>", tags)},
      {"too long names of attributes",
       Document("<!ATTLIST a p:b CDATA 'x'>", "<x xmlns:p='" + longName + "'>" + tags + "</x>")},
      {"too much memory for a document of its length",
       Document("<!ATTLIST a" + Numbered(5'000, " p:b@ CDATA 'x'") + ">",
                "<a xmlns:p='" + Times(20, longName) + "'/>")},
      {"too deep in a namespace", Document("", Nest(20'000, 2'000, 30))},
      {"too much memory for a document of its length",
       Document("", "<a xmlns:p='" + Times(20, longName) + "'" + Numbered(20'000, " p:b@=''") + "/>")},
  };
  for (const auto& row : rows) {
    const Outcome outcome = ReadDocument(row.document);
    const std::string report = outcome.reports.empty() ? "(none)" : outcome.reports[0];
    EXPECT_EQ(outcome, (Outcome{-1, {report}, {}}));
    EXPECT_EQ(report.substr(0, report.find(" (line")), row.fault);
  }
}

}  // namespace
