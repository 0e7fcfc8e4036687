// Reports: their only form, and who receives them.
#ifndef STEPRT_READ_TRANSFER_REPORT_H
#define STEPRT_READ_TRANSFER_REPORT_H

#include "read/transfer/messages.h"
#include "read/transfer/place.h"
#include "read/transfer/record.h"

namespace steprt {

// Counts an error and passes "STEP error: <file> (<line>) [<where>]", with the message directly after it, to the
// transfer's error procedure. The text has no limit. When memory runs out for it, "..." replaces the file's name.
void ReportError(STEPtransfer* t, const char* message);

// In a standard read the report is about the last token, about what NoteFault has noted, or about the reference that is
// resolved, and the diagnose function of the options receives it too. `place` tells another place.
void ReportErrorAt(STEPtransfer* t, const Place& place, const char* message);

// The same for a message with one %s or %d in it.
void ReportError(STEPtransfer* t, const char* message, const char* text);
void ReportError(STEPtransfer* t, const char* message, int number);

// Reports an error and returns the neutral value.
template <typename Value>
Value Refuse(STEPtransfer* t, const char* message, Value neutral) {
  ReportError(t, message);
  return neutral;
}

// Returns the first error procedure of the chain, or DefaultErrorProc if there is none.
STEPerrorProc ErrorProcOf(APPobject0* schema);

// Shows the text in a message box.
void DefaultErrorProc(const char* text);

}  // namespace steprt

#endif
