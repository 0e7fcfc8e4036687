#include "read/transfer/report.h"

#include <charconv>
#include <climits>
#include <cstring>
#include <string_view>

#include "platform/message_box.h"
#include "read/transfer/wide_read.h"
#include "support/text_buffer.h"

namespace steprt {
namespace {

// Reports the message with its one conversion replaced by `value`.
template <typename Value>
void ReportFormatted(STEPtransfer* t, const char* message, Value value) {
  const char* conversion = std::strchr(message, '%');
  TextBuffer text;
  text.Add(std::string_view(message, static_cast<std::size_t>(conversion - message))).Add(value).Add(conversion + 2);
  ReportError(t, text.Text());
}

// Returns false when memory runs out and the text is cut.
bool Compose(TextBuffer& text, const STEPtransfer* t, const char* fileName, const char* message) {
  text.Add(kReportCaption)
      .Add(": ")
      .Add(fileName)
      .Add(" (")
      .Add(t->line)
      .Add(") [")
      .Add(t->where)
      .Add("]")
      .Add(message);
  return !text.IsCut();
}

}  // namespace

void ReportError(STEPtransfer* t, const char* message) {
  if (t->errors < INT_MAX) ++t->errors;
  if (!t->errorProc) return;
  TextBuffer text;
  if (Compose(text, t, t->fileName, message)) return t->errorProc(text.Text());
  TextBuffer shorter;  // what happened matters more than a long name
  Compose(shorter, t, "...", message);
  t->errorProc(shorter.Text());
}

void ReportError(STEPtransfer* t, const char* message, const char* text) { ReportFormatted(t, message, text); }

void ReportError(STEPtransfer* t, const char* message, int number) {
  if (!t->wide || number >= 0) return ReportFormatted(t, message, number);
  char digits[24];
  *std::to_chars(digits, digits + sizeof digits - 1, t->wide->bigNames.NameOf(number)).ptr = '\0';
  ReportFormatted(t, message, static_cast<const char*>(digits));
}

STEPerrorProc ErrorProcOf(APPobject0* schema) {
  for (; schema; schema = schema->next) {
    if (schema->errorProc) return schema->errorProc;
  }
  return DefaultErrorProc;
}

void DefaultErrorProc(const char* text) { ShowMessage(kReportCaption, text); }

}  // namespace steprt
