// Handlers that ignore every event and continue. A handler of some events derives from them.
#ifndef STEPRT_XML_HANDLERS_H
#define STEPRT_XML_HANDLERS_H

#include "platform/sax.h"

namespace steprt {

class SAXContentHandlerImpl : public SaxContentHandler {
 public:
  SaxResult PutDocumentLocator() override { return kSaxOk; }
  SaxResult StartDocument() override { return kSaxOk; }
  SaxResult EndDocument() override { return kSaxOk; }
  SaxResult StartPrefixMapping(std::u16string_view /*prefix*/, std::u16string_view /*address*/) override {
    return kSaxOk;
  }
  SaxResult EndPrefixMapping(std::u16string_view /*prefix*/) override { return kSaxOk; }
  SaxResult StartElement(std::u16string_view /*localName*/, SaxAttributes& /*attributes*/) override { return kSaxOk; }
  SaxResult EndElement() override { return kSaxOk; }
  SaxResult Characters(std::u16string_view /*text*/) override { return kSaxOk; }
  SaxResult IgnorableWhitespace(std::u16string_view /*text*/) override { return kSaxOk; }
  SaxResult ProcessingInstruction(std::u16string_view /*target*/, std::u16string_view /*text*/) override {
    return kSaxOk;
  }
  SaxResult SkippedEntity(std::u16string_view /*name*/) override { return kSaxOk; }
};

class SAXErrorHandlerImpl : public SaxErrorHandler {
 public:
  SaxResult Error(const char16_t* /*message*/) override { return kSaxOk; }
  SaxResult FatalError(const char16_t* /*message*/) override { return kSaxOk; }
  SaxResult IgnorableWarning(const char16_t* /*message*/) override { return kSaxOk; }
};

}  // namespace steprt

#endif
