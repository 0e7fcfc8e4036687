#include "surveys.h"

#include "exchange/lines.h"

namespace exchange::testing {

std::string File(std::string_view records) {
  return std::string(kHead) + "\nDATA;\n" + std::string(records) + "\n" + std::string(kTail);
}

std::string ReportLines(std::string_view text, const Reports& reports) {
  Lines places(text);
  std::string lines;
  for (const Report& report : reports.All()) {
    const Position at = places.PositionAt(report.offset);
    lines += std::to_string(at.line) + ":" + std::to_string(at.column) + " " + std::string(CodeName(report.code)) +
             ": " + report.message + "\n";
  }
  return lines;
}

std::string SurveyLines(const std::string& text) {
  Reports reports;
  const auto input = Input::FromText("text", text);
  const Totals totals = TakeSurvey(*input, {}, reports).totals;
  std::string lines = ReportLines(input->Bytes(), reports);
  if (totals.read < totals.records) lines += std::to_string(totals.read) + "/" + std::to_string(totals.records) + "\n";
  return lines;
}

}  // namespace exchange::testing
