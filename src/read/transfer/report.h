// The one form of a report, and who receives it.
#ifndef STEPRT_READ_TRANSFER_REPORT_H
#define STEPRT_READ_TRANSFER_REPORT_H

#include "read/transfer/messages.h"
#include "read/transfer/record.h"

namespace steprt {

// Counts an error and hands "STEP error: <file> (<line>) [<where>]" with the message directly behind it to the
// transfer's error procedure. The text is as long as it takes.
void ReportError(STEPtransfer* t, const char* message);

// The same for a message with one %s or %d in it.
void ReportError(STEPtransfer* t, const char* message, const char* text);
void ReportError(STEPtransfer* t, const char* message, int number);

// Reports, and gives a neutral value back.
template <typename Value>
Value Refuse(STEPtransfer* t, const char* message, Value neutral) {
  ReportError(t, message);
  return neutral;
}

// The first error procedure along the chain, DefaultErrorProc if there is none.
STEPerrorProc ErrorProcOf(APPobject0* schema);

// Shows the text in a message box.
void DefaultErrorProc(const char* text);

}  // namespace steprt

#endif
