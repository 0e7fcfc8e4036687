#include "report.h"

#include <steprt/step.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

namespace plan {
namespace {

// The message of "STEP error: file (line) [context]message", with the numbers of instances left out, so that all
// references to unknown objects are one kind of message.
std::string KindOf(const char* text) {
  const char* context = std::strstr(text, ") [");
  const char* end = context ? std::strchr(context, ']') : nullptr;
  std::string kind;
  for (const char* c = end ? end + 1 : text; *c; ++c) {
    if (*c != '#') {
      kind += *c;
      continue;
    }
    kind += "#N";
    while (std::isdigit(static_cast<unsigned char>(c[1])) || c[1] == '-') ++c;
  }
  return kind;
}

}  // namespace

void ReportLog::Add(const char* text) {
  ++total;
  ++counts[KindOf(text)];
}

void ReportLog::Clear() {
  counts.clear();
  total = 0;
}

void ReportLog::Print(int limit) const {
  std::vector<std::pair<int, std::string>> rows;
  for (const auto& [kind, count] : counts) rows.emplace_back(-count, kind);
  std::sort(rows.begin(), rows.end());
  const size_t shown = std::min(rows.size(), static_cast<size_t>(limit));
  for (size_t i = 0; i < shown; ++i) std::printf("  %7d  %s\n", -rows[i].first, rows[i].second.c_str());
  if (shown < rows.size()) std::printf("           and %zu more kinds of message\n", rows.size() - shown);
}

ReportLog& Reports() {
  static ReportLog log;
  return log;
}

void TakeReport(const char* text) {
  Reports().Add(text);
  STEPmodel* model = CurrentModel();
  if (model && model->ErrShow()) std::printf("  %s\n", text);
}

}  // namespace plan
