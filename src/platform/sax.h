// The SAX2 service: it parses a document and passes its events to two handlers. Texts are UTF-16 and valid only during
// the call that receives them.
#ifndef STEPRT_PLATFORM_SAX_H
#define STEPRT_PLATFORM_SAX_H

#include <cstddef>
#include <string_view>

namespace steprt {

// The result of a handler. A negative one is a failure and stops the parse.
using SaxResult = int;
inline constexpr SaxResult kSaxOk = 0;
inline constexpr SaxResult kSaxFailure = static_cast<SaxResult>(0x80004005u);

// The attributes of one start tag, without declarations of namespaces. The functions return at most the first `limit`
// units of a text: a default value may be long, and a document type repeats it for every tag. A text is valid until the
// next call.
class SaxAttributes {
 public:
  virtual ~SaxAttributes() = default;
  virtual int Length() = 0;
  virtual std::u16string_view LocalName(int index, std::size_t limit) = 0;  // without its prefix
  virtual std::u16string_view Value(int index, std::size_t limit) = 0;      // with references resolved
};

// The events of SAX2 in its order, and the destructor last, so that each has the slot that other senders of events
// expect. The code that creates a handler owns it, so nothing counts references. The service sends the events that the
// library uses.
class SaxContentHandler {
 public:
  virtual SaxResult PutDocumentLocator() = 0;
  virtual SaxResult StartDocument() = 0;
  virtual SaxResult EndDocument() = 0;  // of a document without a fault
  virtual SaxResult StartPrefixMapping(std::u16string_view prefix, std::u16string_view address) = 0;
  virtual SaxResult EndPrefixMapping(std::u16string_view prefix) = 0;
  virtual SaxResult StartElement(std::u16string_view localName, SaxAttributes& attributes) = 0;
  virtual SaxResult EndElement() = 0;
  virtual SaxResult Characters(std::u16string_view text) = 0;  // a text may arrive in several calls
  virtual SaxResult IgnorableWhitespace(std::u16string_view text) = 0;
  virtual SaxResult ProcessingInstruction(std::u16string_view target, std::u16string_view text) = 0;
  virtual SaxResult SkippedEntity(std::u16string_view name) = 0;
  virtual ~SaxContentHandler() = default;
};

// The messages are terminated. A fatal error ends the parse.
class SaxErrorHandler {
 public:
  virtual SaxResult Error(const char16_t* message) = 0;
  virtual SaxResult FatalError(const char16_t* message) = 0;
  virtual SaxResult IgnorableWarning(const char16_t* message) = 0;
  virtual ~SaxErrorHandler() = default;
};

// Both functions parse the whole document before they return. Its declaration says how it is encoded. They load nothing
// outside the document. An exception of a handler leaves them after the parser has been freed.
struct SaxService {
  void (*parse)(const char* document, SaxContentHandler& content, SaxErrorHandler& errors);
  void (*parseFile)(const char* name, SaxContentHandler& content, SaxErrorHandler& errors);
};

// Null if the library is built without a service. It is a variable, so that a test can replace it.
extern const SaxService* saxService;

}  // namespace steprt

#endif
