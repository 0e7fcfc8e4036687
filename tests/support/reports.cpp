#include "support/reports.h"

#include <utility>

namespace steprt_test {
namespace {

Texts collected;

}  // namespace

void CollectReport(const char* text) { collected.emplace_back(text); }

Texts TakeReports(const std::string& path) {
  const std::string start = "STEP error: " + path + " ";
  Texts reports = std::exchange(collected, {});
  for (std::string& report : reports) {
    if (report.compare(0, start.size(), start) == 0) report.erase(0, start.size());
  }
  return reports;
}

}  // namespace steprt_test
