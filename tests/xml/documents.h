// Short ways to read and to write XML documents of the tests' schema.
#ifndef STEPRT_TESTS_XML_DOCUMENTS_H
#define STEPRT_TESTS_XML_DOCUMENTS_H

#include <string>

#include "support/proj_schema.h"
#include "support/temp_files.h"

namespace steprt_test {

// The document read from memory, into a model of its own.
inline Outcome ReadDocument(const std::string& document) {
  ProjModel model;
  model.Name("doc");
  const int result = model.ReadXml(document.c_str());
  return {result, TakeReports("doc.stp"), Population(model)};
}

// The same from a file, so that it may hold a byte 0.
inline Outcome ReadDocumentFile(const std::string& document) {
  ProjModel model;
  const std::string path = MakeFile("read.xml", document);
  model.Name(path.c_str());
  const int result = model.ReadXml(nullptr);
  return {result, TakeReports(path), Population(model)};
}

inline std::string InRoot(const std::string& entities) { return "<PROJ>" + entities + "</PROJ>"; }

// A PERSON, so that a test sees whether a document was read.
inline const char kPersonEntity[] = "<PERSON rid=\"#1\"><Age>41</Age></PERSON>";
inline const Outcome kPerson41 = {0, {}, {"PERSON(41)"}};

// A document of one PROBE, with these child elements.
inline std::string ProbeDocument(const std::string& children) {
  return InRoot("<PROBE rid=\"#1\">" + children + "</PROBE>");
}

// The model as a document, with its path and the date masked.
inline std::string WrittenDocument(STEPmodel& model, const char* remark = nullptr) {
  std::string path = TempPath("written.xml");
  model.WriteXml(path.data(), remark);
  return MaskedBytesOf(path);
}

// The line of the first entity of such a document, without its tab.
inline std::string FirstEntity(const std::string& document) {
  const std::size_t tab = document.find("\t");
  return tab == std::string::npos ? "(none)" : document.substr(tab + 1, document.find("\n", tab) - tab - 1);
}

}  // namespace steprt_test

#endif
