// Passes the messages of the SAX service about a document to the transfer's error procedure.
#ifndef STEPRT_XML_ERROR_HANDLER_H
#define STEPRT_XML_ERROR_HANDLER_H

#include "read/transfer/record.h"
#include "xml/handlers.h"

namespace steprt {

class XmlErrorHandler : public SAXErrorHandlerImpl {
 public:
  SaxResult Error(const char16_t* message) override { return Deliver(message); }
  SaxResult FatalError(const char16_t* message) override { return Deliver(message); }

  STEPtransfer* transfer = nullptr;

 private:
  SaxResult Deliver(const char16_t* message);
};

}  // namespace steprt

#endif
