#include "xml/error_handler.h"

namespace steprt {
namespace {

constexpr int kMessageLimit = 127;  // characters
constexpr int kBadDocument = -1;

}  // namespace

// The message is passed on unchanged, without the head of a report, and the count becomes -1 whatever it was. Both are
// intended: later reports count up from -1.
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
