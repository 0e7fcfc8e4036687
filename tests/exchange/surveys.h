// Surveys of texts, and their reports as lines.
#ifndef STEPRT_TESTS_EXCHANGE_SURVEYS_H
#define STEPRT_TESTS_EXCHANGE_SURVEYS_H

#include <string>
#include <string_view>

#include "exchange/reports.h"
#include "exchange/survey.h"

namespace exchange::testing {

// The smallest header, on one line.
inline constexpr std::string_view kHead =
    "ISO-10303-21;HEADER;FILE_DESCRIPTION((''),'2;1');FILE_NAME('','',(''),(''),'','','');FILE_SCHEMA(('S'));ENDSEC;";
inline constexpr std::string_view kTail = "ENDSEC;END-ISO-10303-21;";

// A whole file: kHead, then on the second line "DATA;", then the records from the third line on, then kTail.
std::string File(std::string_view records);

// "LINE:COLUMN CODE: MESSAGE\n" for each report.
std::string ReportLines(std::string_view text, const Reports& reports);

// Of the survey of a text: the reports, and then "read/records" unless all are read.
std::string SurveyLines(const std::string& text);

}  // namespace exchange::testing

#endif
