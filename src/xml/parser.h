// Builds instances from the events of an XML document.
#ifndef STEPRT_XML_PARSER_H
#define STEPRT_XML_PARSER_H

#include <cstddef>
#include <string_view>

#include "read/transfer/record.h"
#include "xml/handlers.h"

namespace steprt {

// The document is a root element named after the schema, in it an element for each instance, with the instance's number
// in its one attribute, `rid`, and in that an element for each attribute. At an instance's end tag the read function of
// its row is called, which finds the child elements in the transfer.
class XmlParser : public SAXContentHandlerImpl {
 public:
  SaxResult StartDocument() override;
  SaxResult StartElement(std::u16string_view localName, SaxAttributes& attributes) override;
  SaxResult EndElement() override;
  SaxResult Characters(std::u16string_view units) override;

  // Where the next start tag stands. What lies above kInChild is nested in a child element.
  enum Depth { kOutside = 0, kInRoot = 1, kInEntity = 2, kInChild = 3 };
  static constexpr int kTextLimit = 260;

  STEPtransfer* transfer = nullptr;  // set by the driver
  STEPentry* entry = nullptr;        // of the instance at hand
  APPobject0* schema = nullptr;      // set by the driver
  APPentity* row = nullptr;          // of the instance at hand; null when the schema does not know its name
  STEPelement* element = nullptr;    // the newest child element, which character data is appended to
  char text[kTextLimit + 1];         // the name or value at hand
  int depth = kOutside;

 private:
  SaxResult StartEntity(SaxAttributes& attributes);
  SaxResult RefuseEntity();
  void BeginInstance(int number);
  void StartChild(std::size_t nameLength);
  void ReadInstance();
  std::size_t NarrowText(std::u16string_view units);  // into `text`; gives its length
};

}  // namespace steprt

#endif
