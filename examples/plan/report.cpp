#include "report.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdio>
#include <utility>
#include <vector>

namespace plan {
namespace {

// A report is "STEP error: file (line) [context]message", or a message alone.
struct Report {
  std::string line, message;
};

Report Parse(const std::string& text) {
  const std::size_t context = text.find(") [");
  const std::size_t end = text.find(']', context);
  const std::size_t open = text.rfind('(', context);
  if (context == std::string::npos || end == std::string::npos || open == std::string::npos) return {"", text};
  return {text.substr(open + 1, context - open - 1), text.substr(end + 1)};
}

// The message without the numbers of instances, so that all references to unknown objects are of one kind.
std::string KindOf(const std::string& message) {
  std::string kind;
  for (std::size_t i = 0; i < message.size(); ++i) {
    kind += message[i];
    if (message[i] != '#') continue;
    kind += 'N';
    while (i + 1 < message.size() &&
           (std::isdigit(static_cast<unsigned char>(message[i + 1])) || message[i + 1] == '-')) {
      ++i;
    }
  }
  return kind;
}

}  // namespace

void ReportLog::Add(const char* text) {
  const Report report = Parse(text);
  if (++total == 1) first = report.message;
  Kind& kind = kinds[KindOf(report.message)];
  if (++kind.count == 1) kind.line = report.line;
}

void ReportLog::Print(int limit) const {
  std::vector<std::pair<int, std::string>> rows;
  for (const auto& [message, kind] : kinds) {
    rows.emplace_back(-kind.count, message + (kind.line.empty() ? "" : ", first in line " + kind.line));
  }
  std::sort(rows.begin(), rows.end());
  const std::size_t shown = std::min(rows.size(), static_cast<std::size_t>(limit));
  for (std::size_t i = 0; i < shown; ++i) std::printf("  %7d  %s\n", -rows[i].first, rows[i].second.c_str());
  if (shown < rows.size()) std::printf("           and %zu more kinds of message\n", rows.size() - shown);
}

ReportLog& Reports() {
  static ReportLog log;
  return log;
}

void TakeReport(const char* text) { Reports().Add(text); }

}  // namespace plan
