#include "xml/error_handler.h"

namespace steprt {
namespace {

constexpr int kMessageLimit = 127;  // characters
constexpr int kBadDocument = -1;

}  // namespace

// The service's words go out as they are, without the head of a report, and the count becomes -1 whatever it was. It is
// meant: reports that follow count up from there.
SaxResult XmlErrorHandler::Deliver(const char16_t* message) {
  char text[kMessageLimit + 1];
  int length = 0;
  for (; length < kMessageLimit; ++length) {
    text[length] = static_cast<char>(message[length]);
    if (text[length] == '\0') break;
  }
  text[length] = '\0';
  transfer->errorProc(text);
  transfer->errors = kBadDocument;
  return kSaxOk;
}

}  // namespace steprt
