// One parse: what Expat calls back becomes events for the handlers.
#ifndef STEPRT_PLATFORM_EXPAT_PARSE_H
#define STEPRT_PLATFORM_EXPAT_PARSE_H

#include <expat.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <string_view>

#include "platform/expat/byte_source.h"
#include "platform/expat/limits.h"
#include "platform/expat/memory.h"
#include "platform/expat/utf16.h"
#include "platform/sax.h"
#include "support/text_buffer.h"

namespace steprt {

// The attributes of the current start tag.
class ExpatAttributes final : public SaxAttributes {
 public:
  // Takes pairs of name and value that a null ends. A pair is converted only when it is requested.
  void Bind(const XML_Char** pairs) { pairs_ = pairs; }

  int Length() override;
  std::u16string_view LocalName(int index, std::size_t limit) override;
  std::u16string_view Value(int index, std::size_t limit) override;

 private:
  const XML_Char** pairs_ = nullptr;
  Utf16Buffer buffer_;
};

class ExpatParse {
 public:
  ExpatParse(SaxContentHandler& content, SaxErrorHandler& errors) : content_(content), errors_(errors) {}
  ExpatParse(const ExpatParse&) = delete;
  ExpatParse& operator=(const ExpatParse&) = delete;

  // Parses the whole source. A fault, which is reported, or the failure of a handler, which is not, ends it earlier.
  void Run(ByteSource& source);

  // Expat's callbacks.
  void StartElement(const XML_Char* name, const XML_Char** attributes);
  void EndElement();
  void StartNamespace(const XML_Char* address);
  void DeclareEntity(const XML_Char* name, std::string_view text, bool isParameter);
  void DeclareAttribute(const XML_Char* element, const XML_Char* type, bool hasDefault);
  void EndDocumentType();
  void Markup(std::string_view utf8);      // for which there is no other callback
  void SkipEntity(std::string_view name);  // reports an entity that was not loaded, and continues
  void Text(std::string_view utf8);

 private:
  struct ParserDeleter {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };

  template <typename Event>
  void Send(Event event);
  void SendText();
  void Stop();
  bool MakeParser();
  bool Feed(ByteSource& source);
  void ReportFault();
  void AddPlace(TextBuffer& message) const;
  void Refuse(const char* fault);

  SaxContentHandler& content_;
  SaxErrorHandler& errors_;
  ExpatMemoryLimit memory_;  // outlives the parser
  std::unique_ptr<XML_ParserStruct, ParserDeleter> parser_;
  std::exception_ptr thrown_;    // by a handler; an exception must not pass through Expat, which is C
  bool stopped_ = false;         // no further event is sent
  const char* fault_ = nullptr;  // of ours, for which Expat was stopped
  DocumentLimits limits_;
  ExpatAttributes attributes_;
  Utf16Buffer name_;

  // Character data is collected up to the next tag, or until the block is full, so that the calls of a handler do not
  // depend on the blocks of the file.
  static constexpr std::size_t kTextBlock = 4096;
  std::size_t used_ = 0;
  char16_t text_[kTextBlock];
};

// Reports a fatal error; each byte of the message becomes a unit.
void ReportFatal(SaxErrorHandler& errors, std::string_view message);

}  // namespace steprt

#endif
