#include "read/transfer/report.h"

#include <charconv>
#include <climits>
#include <cstring>
#include <string_view>

#include "platform/message_box.h"
#include "read/transfer/codes.h"
#include "read/transfer/wide_read.h"
#include "support/text_buffer.h"

namespace steprt {
namespace {

// Returns false when memory runs out and the text is cut.
bool Compose(TextBuffer& text, int line, std::string_view where, const char* fileName, const char* message) {
  text.Add(kReportCaption).Add(": ").Add(fileName).Add(" (").Add(line).Add(") [").Add(where).Add("]").Add(message);
  return !text.IsCut();
}

void Tell(STEPtransfer* t, int line, std::string_view where, const char* message) {
  if (!t->errorProc) return;
  TextBuffer text;
  if (Compose(text, line, where, t->fileName, message)) return t->errorProc(text.Text());
  TextBuffer shorter;  // what happened matters more than a long name
  Compose(shorter, line, where, "...", message);
  t->errorProc(shorter.Text());
}

Place PlaceOfFault(STEPtransfer* t) {
  WideRead& wide = *t->wide;
  if (wide.from) return wide.from->place;
  const Place place = wide.noted ? *wide.noted : PlaceOfLastToken(t);
  wide.noted.reset();
  return place;
}

void Diagnose(STEPtransfer* t, const Place& place, const MessageCode& code, const char* message) {
  const WideRead& wide = *t->wide;
  if (!wide.options.diagnose) return;
  static constexpr RecordName kNone;
  const WideFixup* from = wide.from;
  const RecordName& record = !from ? wide.record : from->from ? *from->from : kNone;
  const char* attribute = from ? from->attribute : t->attribute;
  const STEPdiagnostic diagnostic = {code.severity, code.code,    message,         t->fileName,    place.line,
                                     place.column,  place.offset, record.instance, record.keyword, attribute};
  wide.options.diagnose(&diagnostic, wide.options.context);
}

// The entity or operation that a report is about.
std::string_view WhereOf(const STEPtransfer* t) {
  const WideFixup* from = t->wide->from;
  if (!from || !from->from || !from->from->keyword) return t->where;
  return std::string_view(from->from->keyword).substr(0, kWhereLimit);
}

// `message` is what `pattern` has become.
void ReportWide(STEPtransfer* t, const Place& place, const char* pattern, const char* message) {
  Tell(t, place.line, WhereOf(t), message);
  Diagnose(t, place, CodeOf(pattern), message);
}

bool CountError(STEPtransfer* t) {
  if (t->wide && t->wide->isMuted) return false;
  if (t->errors < INT_MAX) ++t->errors;
  return true;
}

void Report(STEPtransfer* t, const char* pattern, const char* message) {
  if (!CountError(t)) return;
  if (t->wide) return ReportWide(t, PlaceOfFault(t), pattern, message);
  Tell(t, t->line, t->where, message);
}

// Reports the message with its one conversion replaced by `value`.
template <typename Value>
void ReportFormatted(STEPtransfer* t, const char* message, Value value) {
  const char* conversion = std::strchr(message, '%');
  TextBuffer text;
  text.Add(std::string_view(message, static_cast<std::size_t>(conversion - message))).Add(value).Add(conversion + 2);
  Report(t, message, text.Text());
}

}  // namespace

void ReportError(STEPtransfer* t, const char* message) { Report(t, message, message); }

void ReportErrorAt(STEPtransfer* t, const Place& place, const char* message) {
  if (CountError(t)) ReportWide(t, place, message, message);
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
