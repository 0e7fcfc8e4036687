#include "xml/xml_reader.h"

#include "platform/message_box.h"
#include "platform/sax.h"
#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "read/transfer/transfer.h"
#include "steprt/text.h"
#include "support/file_name.h"
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
  text ? service.parse(text, parser, errors) : service.parseFile(t->fileName, parser, errors);
}

}  // namespace

int STEPreadXml(char* fileName, APPobject0* schema, const char* text) {
  if (!schema) return kNoSchema;
  TextBuffer room;
  const TransferOwner t = NewTransfer(DefaultFileName(room, fileName), ErrorProcOf(schema), schema, true);
  if (!t) return kNoTransfer;
  Copy(t->where, "Read", kWhereLimit);
  if (!saxService) return ShowMessage("", kNoXmlService), t->errors;
  Parse(t.get(), *saxService, text);
  ResolveFixups(t.get());
  return t->errors;
}

}  // namespace steprt
