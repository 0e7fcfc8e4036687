#include "platform/sax.h"

#include <memory>

#include "platform/expat/parse.h"
#include "platform/input_file.h"
#include "support/text_buffer.h"

namespace steprt {
namespace {

void Parse(const char* document, SaxContentHandler& content, SaxErrorHandler& errors) {
  MemoryBytes source(document);
  ExpatParse(content, errors).Run(source);
}

void ParseFile(const char* name, SaxContentHandler& content, SaxErrorHandler& errors) {
  const std::unique_ptr<InputFile> file(InputFile::OpenOrNull(name));
  if (!file) {
    TextBuffer message;
    return ReportFatal(errors, message.Add("Can't open file ").Add(name).Text());
  }
  FileBytes source(file.get());
  ExpatParse(content, errors).Run(source);
}

constexpr SaxService kExpatService = {Parse, ParseFile};

}  // namespace

constinit const SaxService* saxService = &kExpatService;

}  // namespace steprt
