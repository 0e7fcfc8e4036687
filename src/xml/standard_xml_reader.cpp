// STEPreadStandard: clear text or XML, as the file begins.
#include <memory>

#include "platform/sax.h"
#include "read/standard_reader.h"
#include "read/transfer/report.h"
#include "steprt/standard.h"
#include "support/memory.h"
#include "support/text_buffer.h"
#include "xml/handlers.h"
#include "xml/standard_parser.h"

namespace {

using namespace steprt;

// A fault of the document is a report like any other, so that it counts as one.
class ErrorHandler final : public SAXErrorHandlerImpl {
 public:
  explicit ErrorHandler(STEPtransfer* t) : t_(t) {}
  SaxResult Error(const char16_t* message) override { return Report(message); }
  SaxResult FatalError(const char16_t* message) override { return Report(message); }

 private:
  SaxResult Report(const char16_t* message) {
    TextBuffer text;
    for (; *message != 0; ++message) text.Add(static_cast<char>(*message));
    ReportError(t_, kNotWellFormed, text.Text());
    return kSaxOk;
  }
  STEPtransfer* const t_;
};

// The service reads the file itself, so the transfer's input is free for the values of elements.
void ReadDocument(STEPtransfer* t, const char* bytes, std::size_t size) {
  if (!saxService) return ReportError(t, kNoXmlService);
  const std::unique_ptr<char[]> copy(bytes ? CopyTextOrNull({bytes, size}) : nullptr);
  t->items.input.reset(InputFile::MemoryOrNull());
  if (!t->items.input || (bytes && !copy)) return ReportError(t, kOutOfMemory);
  StandardXmlParser parser;
  parser.transfer = t;
  parser.schema = t->schema;
  ErrorHandler errors(t);
  t->xml = true;
  if (bytes) {
    saxService->parse(copy.get(), parser, errors);
  } else {
    saxService->parseFile(t->fileName, parser, errors);
  }
  t->xml = false;
  t->file.in = t->items.input.get();
}

}  // namespace

int STEPreadStandard(const char* name, const char* bytes, std::size_t size, APPobject0* schema,
                     const STEPreadOptions* options) {
  return ReadStandardFile(name, bytes ? std::string_view(bytes, size) : std::string_view(), bytes != nullptr, schema,
                          options, ReadDocument);
}
