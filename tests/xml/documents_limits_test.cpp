// Documents that are honest, however many names they declare, and documents that would cost the parser much more than
// their bytes are worth. The first are read and the second refused.
#include <gtest/gtest.h>

#include "support/repeat.h"
#include "xml/documents.h"

namespace {

using namespace steprt_test;

// A document with these declarations and, before the PERSON, these elements in the root.
std::string Document(const std::string& declarations, const std::string& elements) {
  return "<!DOCTYPE PROJ [" + declarations + "]><PROJ xmlns:q='u'><x rid='#2'>" + elements + "</x>" + kPersonEntity +
         "</PROJ>";
}

std::string Attributes(int count, const std::string& piece) { return "<!ATTLIST a " + Repeat(count, piece) + ">"; }

// Each but the first holds the one before it. Those that are for the document type only are declared and referred to by
// another mark.
std::string Chain(int size, bool ofParameters = false) {
  const std::string start = ofParameters ? "<!ENTITY % e" : "<!ENTITY e";
  const std::string reference = ofParameters ? " '&#37;e" : " '&e";
  return start + "0 ''>" + Repeat(size - 1, start + "^" + reference + "@;'>");
}

// Each but the last holds the one that follows it.
std::string ChainBackwards(int size) {
  return Repeat(size, "<!ENTITY e@ '&e^;'>") + "<!ENTITY e" + std::to_string(size) + " 'x'>";
}

// As many open elements, and in them elements in as many namespaces, whose names are as long as this.
std::string Nest(int depth, int namespaces, int length) {
  const std::string name(static_cast<std::size_t>(length), 'n');
  return Repeat(depth, "<b>") + "<c" + Repeat(namespaces, " xmlns:p@='u'") + ">" +
         Repeat(namespaces, "<p@:" + name + "/>") + "</c>" + Repeat(depth, "</b>");
}

TEST(DocumentLimits, HonestDocumentsAreRead) {
  const std::string longName(1'000, 'n');
  const std::string tags = Repeat(1'000, "<a/>");
  const struct {
    const char* what;
    std::string document;
  } rows[] = {
      {"an attribute of each of 5,000 elements", Document(Repeat(5'000, "<!ATTLIST e@ rid ID #REQUIRED>"), tags)},
      {"30 of each of 500", Document(Repeat(500, "<!ATTLIST e@" + Repeat(30, " b NMTOKEN #IMPLIED") + ">"), "<e1/>")},
      {"1,100 attributes of an element", Document(Attributes(1'100, "b@ CDATA #IMPLIED "), tags)},
      {"100 with defaults", Document(Attributes(100, "b@ CDATA 'x' "), tags)},
      {"10 with defaults in a namespace", Document(Attributes(10, "q:b@ CDATA 'x' "), tags)},
      {"10 namespaces by default", Document(Attributes(10, "xmlns:p@ CDATA 'u' "), tags)},
      {"long names of attributes", Document(Attributes(10, longName + "@ CDATA 'x' "), tags)},
      {"and in a namespace", Document("<!ATTLIST a q:" + longName + " CDATA 'x'>", tags)},
      {"2,000 entities", Document(Repeat(2'000, "<!ENTITY e@ 'x'>"), Repeat(2'000, "&e@;"))},
      {"2,000 with one in each, declared first",
       Document("<!ENTITY o 'x'>" + Repeat(2'000, "<!ENTITY e@ '&o;'>"), "&e7;")},
      {"2,000 with one in each, declared last",
       Document(Repeat(2'000, "<!ENTITY e@ '&o;'>") + "<!ENTITY o 'x'>", "&e7;")},
      {"a chain of 256 entities", Document(Chain(256), "<a b='&e255;'>&e255;</a>")},
      {"a chain of 256 in the document type", Document(Chain(256, true) + "%e255;", "")},
      {"a chain backwards", Document(ChainBackwards(255), "&e0;")},
      {"2,000 entities of references to characters", Document(Repeat(2'000, "<!ENTITY e@ '&#38;#38;&#38;#e0;'>"), "")},
      {"130,000 tags out of entities", Document("<!ENTITY e '" + tags + "'>", Repeat(129, "&e;"))},
      {"a long address of a namespace", Document("", "<x xmlns='" + Repeat(20, longName) + "'>" + tags + "</x>")},
      {"2,000 nested elements in a namespace", Document("", "<x xmlns='u'>" + Nest(2'000, 1, 40) + "</x>")},
      {"2,000 namespaces, nested", Document("", Repeat(2'000, "<" + longName.substr(960) + " xmlns='u'>") +
                                                    Repeat(2'000, "</" + longName.substr(960) + ">"))},
      {"100,000 namespaces, nested", Document("", Repeat(100'000, "<a xmlns='u'>") + Repeat(100'000, "</a>"))},
      {"500 prefixes in a nest of 500", Document("", Nest(500, 500, 40))},
  };
  for (const auto& row : rows) EXPECT_EQ(ReadDocument(row.document), kPerson41) << row.what;
}

TEST(DocumentLimits, HostileDocumentsAreRefused) {
  const std::string longName(10'000, 'n');
  const std::string tags = Repeat(20'000, "<a/>");
  const struct {
    const char* fault;
    std::string document;
  } rows[] = {
      {"too many tags in entities", Document("<!ENTITY e '" + tags + "'>", Repeat(100, "&e;"))},
      {"entities nested too deep", Document(Chain(257), "")},
      {"entities nested too deep", Document(ChainBackwards(256), "")},
      {"entities nested too deep", Document(ChainBackwards(24'000), "&e0;")},
      {"entities nested too deep", Document(Chain(257, true), "")},
      {"recursive entity reference", Document("<!ENTITY e '&f;'><!ENTITY f '&e;'>", "&e;")},
      {"entities nested too deep", Document(Chain(200) + "<!ENTITY c '&c;'>" + Repeat(60, "<!ENTITY d@ ''>"), "")},
      {"too many attributes declared", Document(Attributes(3'000, "b@ CDATA #IMPLIED "), tags + tags)},
      {"too many attributes declared", Document(Attributes(30'000, "b@ CDATA '' "), "")},
      {"too many attributes declared", Document(Attributes(30'000, "b@ NMTOKEN #IMPLIED "), "")},
      {"too many attributes declared",
       Document(Attributes(12'000, "b@ NMTOKEN #IMPLIED "), Repeat(100, "<a" + Repeat(500, " b@=' '") + "/>"))},
      {"too many attributes declared",
       Document("<!ENTITY % p \"" + Attributes(1'000, "b@ CDATA #IMPLIED ") + "\">" + Repeat(200, "%p;"), "")},
      {"too many defaults of attributes declared", Document(Attributes(1'000, "b@ CDATA 'x' "), tags)},
      {"too long names of attributes", Document(Attributes(8, "q:" + longName + "@ CDATA 'x' "), tags)},
      {"too long names of attributes", Document("<!ATTLIST a " + Repeat(20, longName) + " CDATA 'x'>", tags + tags)},
      {"too many or too long names of namespaces", Document(Attributes(1'000, "xmlns:p@ CDATA 'u' "), tags)},
      {"too many or too long names of namespaces", Document("<!ATTLIST a xmlns:p CDATA '" + longName + "'>", tags)},
      {"too long names of attributes",
       Document("<!ATTLIST a p:b CDATA 'x'>", "<x xmlns:p='" + longName + "'>" + tags + "</x>")},
      {"too much memory for a document of its length",
       Document("<!ATTLIST a" + Repeat(5'000, " p:b@ CDATA 'x'") + ">", "<a xmlns:p='" + Repeat(20, longName) + "'/>")},
      {"too deep in a namespace", Document("", Nest(20'000, 2'000, 30))},
      {"too much memory for a document of its length",
       Document("", "<a xmlns:p='" + Repeat(20, longName) + "'" + Repeat(20'000, " p:b@=''") + "/>")},
  };
  for (const auto& row : rows) {
    const Outcome outcome = ReadDocument(row.document);
    const std::string report = outcome.reports.empty() ? "(none)" : outcome.reports[0];
    EXPECT_EQ(outcome, (Outcome{-1, {report}, {}}));
    EXPECT_EQ(report.substr(0, report.find(" (line")), row.fault);
  }
}

}  // namespace
