#include "reports.h"

#include <algorithm>

namespace exchange {

bool Reports::Take(Code code) { return !muted_ && counts_[static_cast<std::size_t>(code)]++ < mostOfOne_; }

void Reports::Sort() {
  std::stable_sort(all_.begin(), all_.end(), [](const Report& a, const Report& b) { return a.offset < b.offset; });
}

std::size_t Reports::Dropped(Code code) const {
  const std::size_t count = Count(code);
  return count > mostOfOne_ ? count - mostOfOne_ : 0;
}

std::size_t Reports::Total(Severity severity) const {
  std::size_t total = 0;
  for (std::size_t i = 0; i < kCodes; ++i) {
    if (SeverityOf(static_cast<Code>(i)) == severity) total += counts_[i];
  }
  return total;
}

}  // namespace exchange
