// What the error procedure of the client's schema has received.
#ifndef STEPRT_FUZZ_REPORTS_H
#define STEPRT_FUZZ_REPORTS_H

#include <string>

namespace fuzz {

// The XML service has words of its own, beside the library's.
enum class Speaker { kLibrary, kXmlService };

// The error procedure. It ends the program at a report that is not "STEP error: <file> (<line>) [<where>]<message>"
// with the name of the file at hand, unless the XML service may speak as well.
void Report(const char* text);

// Starts the counts anew.
void ExpectReports(const char* fileName, Speaker speaker);

int ReportCount();
const std::string& ReportTexts();  // one on a line

// Those that speak of something else than what a tamed population may have: references to the wrong type, and texts of
// the very length that is reported.
int SurprisingReportCount();

}  // namespace fuzz

#endif
