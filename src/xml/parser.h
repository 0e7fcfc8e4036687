// Builds instances from the events of an XML document.
#ifndef STEPRT_XML_PARSER_H
#define STEPRT_XML_PARSER_H

#include <cstddef>
#include <string_view>

#include "read/transfer/record.h"
#include "xml/handlers.h"

namespace steprt {

// A document has a root element with the name of the schema. The root has an element for each instance, whose only
// attribute `rid` is the instance's number. An instance has an element for each attribute. At the end tag of an
// instance the parser calls the read function of its row, which finds the child elements in the transfer.
class XmlParser : public SAXContentHandlerImpl {
 public:
  SaxResult StartDocument() override;
  SaxResult StartElement(std::u16string_view localName, SaxAttributes& attributes) override;
  SaxResult EndElement() override;
  SaxResult Characters(std::u16string_view units) override;

  // Where the next start tag is. A depth above kInChild is inside a child element.
  enum Depth { kOutside = 0, kInRoot = 1, kInEntity = 2, kInChild = 3 };
  static constexpr int kTextLimit = 260;

  STEPtransfer* transfer = nullptr;  // set by the driver
  STEPentry* entry = nullptr;        // of the current instance
  APPobject0* schema = nullptr;      // set by the driver
  APPentity* row = nullptr;          // of the current instance; null if the schema has no row of its name
  STEPelement* element = nullptr;    // the latest child element, which receives character data
  char text[kTextLimit + 1];         // the current name or value
  int depth = kOutside;

 protected:
  std::size_t NarrowText(std::u16string_view units);  // into `text`; returns its length

 private:
  SaxResult StartEntity(SaxAttributes& attributes);
  SaxResult RefuseEntity();
  void BeginInstance(int number);
  void StartChild(std::size_t nameLength);
  void ReadInstance();
};

}  // namespace steprt

#endif
