// The SAX2 service: it parses a document and hands its events to two handlers. Texts are UTF-16 and live for the call
// they are given to.
#ifndef STEPRT_PLATFORM_SAX_H
#define STEPRT_PLATFORM_SAX_H

#include <cstddef>
#include <string_view>

namespace steprt {

// What a handler answers; one below 0 is a failure and stops the parse.
using SaxResult = int;
inline constexpr SaxResult kSaxOk = 0;
inline constexpr SaxResult kSaxFailure = static_cast<SaxResult>(0x80004005u);

// The attributes of one start tag. Declarations of namespaces do not count. Of a text the first units are given, at
// most `limit`, so that one that the document type repeats for every tag costs no more than is wanted of it. It lives
// until the next one is asked for.
class SaxAttributes {
 public:
  virtual ~SaxAttributes() = default;
  virtual int Length() = 0;
  virtual std::u16string_view LocalName(int index, std::size_t limit) = 0;  // without its prefix
  virtual std::u16string_view Value(int index, std::size_t limit) = 0;      // with references resolved
};

// The events of SAX2 in its order, and the destructor last, so that each has the slot that other senders of events
// expect. A handler belongs to whoever makes it, so nothing counts references. The service sends the events that the
// library listens to.
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

// Both parse all of a document, decoded by its own declaration, before they return. Nothing outside of the document is
// loaded. What a handler throws comes out of them when the parser is gone.
struct SaxService {
  void (*parse)(const char* document, SaxContentHandler& content, SaxErrorHandler& errors);
  void (*parseFile)(const char* name, SaxContentHandler& content, SaxErrorHandler& errors);
};

// Null where the library is built without one. A variable, so that a test can put another in its place.
extern const SaxService* saxService;

}  // namespace steprt

#endif
