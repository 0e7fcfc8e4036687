#include "reports.h"

#include <string>
#include <string_view>

#include "check.h"

namespace fuzz {
namespace {

// A file name, a line, a context of 63 characters and a token of 256 fit with every message around them.
constexpr std::size_t kLongestReport = 1024;

constexpr std::string_view kExpectedInTame[] = {"Reference to wrong object type", "Too long element, truncated"};

struct {
  std::string head;
  std::string texts;
  Speaker speaker = Speaker::kLibrary;
  int count = 0;
  int surprising = 0;
} reports;

// Where the message begins; npos for a report that is not of the library's form.
std::size_t MessageOf(std::string_view text) {
  if (text.substr(0, reports.head.size()) != reports.head) return std::string_view::npos;
  std::size_t i = reports.head.size();
  while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
  if (i == reports.head.size() || text.substr(i, 3) != ") [") return std::string_view::npos;
  const std::size_t close = text.find(']', i);
  return close == std::string_view::npos ? close : close + 1;
}

bool IsExpectedInTame(std::string_view text) {
  for (const std::string_view expected : kExpectedInTame) {
    if (text.find(expected) != std::string_view::npos) return true;
  }
  return false;
}

}  // namespace

void Report(const char* text) {
  ++reports.count;
  reports.texts.append(text).append("\n");
  const std::string_view report = text;
  const std::size_t message = MessageOf(report);
  if (reports.speaker == Speaker::kLibrary) {
    STEPRT_CHECK(message != std::string_view::npos && message < report.size());
    STEPRT_CHECK(report.size() < kLongestReport);
  }
  if (!IsExpectedInTame(report)) ++reports.surprising;
}

void ExpectReports(const char* fileName, Speaker speaker) {
  reports.head = std::string("STEP error: ") + fileName + " (";
  reports.texts.clear();
  reports.speaker = speaker;
  reports.count = reports.surprising = 0;
}

int ReportCount() { return reports.count; }

const std::string& ReportTexts() { return reports.texts; }

int SurprisingReportCount() { return reports.surprising; }

}  // namespace fuzz
