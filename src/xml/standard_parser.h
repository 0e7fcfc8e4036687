// Builds instances from the events of a standard file in XML (write/wide_document.cpp), or of the library's own form.
#ifndef STEPRT_XML_STANDARD_PARSER_H
#define STEPRT_XML_STANDARD_PARSER_H

#include "read/transfer/wide_read.h"
#include "xml/parser.h"

namespace steprt {

// An entity may be a complex instance, whose elements are its parts. In the library's own form, which the root tells,
// all is left to XmlParser.
class StandardXmlParser final : public XmlParser {
 public:
  SaxResult StartDocument() override;
  SaxResult StartElement(std::u16string_view localName, SaxAttributes& attributes) override;
  SaxResult EndElement() override;

 private:
  enum class Kind { kRecord, kComplex, kHeader, kSkipped };

  SaxResult StartRoot(SaxAttributes& attributes);
  void StartRecord(char* keyword, SaxAttributes& attributes);
  void StartComplex();
  void StartValue(std::u16string_view localName);
  void EndRecord();
  char* Keyword(std::u16string_view localName);
  bool ReadNumber(SaxAttributes& attributes);
  void EnterEntity(char* keyword);

  bool isOwnForm_ = true;
  Kind kind_ = Kind::kRecord;
  int valueDepth_ = kInEntity;  // where the start tags of values are
  STEPcomplex* complex_ = nullptr;
  const APPentity* reader_ = nullptr;  // of the record or part; null: it has been reported
};

}  // namespace steprt

#endif
