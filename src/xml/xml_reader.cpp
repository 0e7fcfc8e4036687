#include "xml/xml_reader.h"

#include "platform/message_box.h"
#include "platform/sax.h"
#include "read/transfer/messages.h"
#include "read/transfer/references.h"
#include "read/transfer/transfer.h"
#include "xml/error_handler.h"
#include "xml/parser.h"

namespace steprt {
namespace {

constexpr int kNoSchema = 1;
constexpr int kNoTransfer = 0;

void Parse(STEPtransfer* t, const SaxService& service, const char* text) {
  XmlParser parser;
  parser.transfer = t;
  parser.schema = t->schema;
  XmlErrorHandler errors;
  errors.transfer = t;
  if (text) {
    service.parse(text, parser, errors);
  } else {
    service.parseFile(t->fileName, parser, errors);
  }
}

void ReadDocument(STEPtransfer* t, const char* text) {
  if (!saxService) return ShowMessage("", kNoXmlService);
  Parse(t, *saxService, text);
  ResolveFixups(t);  // even after a fault of the document
}

}  // namespace

int STEPreadXml(char* fileName, APPobject0* schema, const char* text) {
  if (!schema) return kNoSchema;
  const TransferOwner t = BeginRead(fileName, schema, true);
  if (!t) return kNoTransfer;
  ReadDocument(t.get(), text);
  return t->errors;
}

}  // namespace steprt
