#include "read_reports.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "console.h"

namespace steprt_tools {
// A field of the header that the file lacks, as files in the library's own form do, gets its default. Nothing is lost.
bool ReadReports::IsMissingField(const STEPdiagnostic& diagnostic) const {
  if (diagnostic.instance != 0 || !std::string_view(diagnostic.code).starts_with("missing-text")) return false;
  const std::string_view there = bytes_.substr(std::min<std::size_t>(diagnostic.offset, bytes_.size()), 1);
  return there == "$" || there == ")";
}

void ReadReports::Add(const STEPdiagnostic& diagnostic) {
  if (diagnostic.code == ignored_) return;
  const bool isError = diagnostic.severity == STEP_ERROR && !IsMissingField(diagnostic);
  if (isError) ++errors_;
  if (++counts_[diagnostic.code] > kMostOfOne) return;
  kept_.push_back({isError ? exchange::Severity::kError : exchange::Severity::kWarning, diagnostic.code,
                   diagnostic.message, static_cast<std::size_t>(diagnostic.line),
                   static_cast<std::size_t>(diagnostic.column), diagnostic.offset, diagnostic.instance});
}

std::size_t ReadReports::Count(const std::string& code) const {
  const auto found = counts_.find(code);
  return found == counts_.end() ? 0 : found->second;
}

void ReadReports::Print(const exchange::Input& input) {
  std::stable_sort(kept_.begin(), kept_.end(), [](const Finding& a, const Finding& b) { return a.offset < b.offset; });
  for (const Finding& finding : kept_) PrintFinding(input, finding);
  for (const auto& [code, count] : counts_) {
    if (count <= kMostOfOne) continue;
    std::printf("%s: %zu more of [%s]\n", Harmless(input.Name()).c_str(), count - kMostOfOne, code.c_str());
  }
}

Json ReadReports::AsJson() const {
  Json list = Json::array();
  for (const Finding& finding : kept_) list.push_back(FindingAsJson(finding));
  return {{"reports", std::move(list)}, {"counts", counts_}};
}

}  // namespace steprt_tools
