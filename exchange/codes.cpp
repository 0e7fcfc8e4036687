#include "codes.h"

namespace exchange {

namespace {

struct Row {
  std::string_view name;
  Severity severity;
};

constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;

constexpr Row kRows[] = {
    {"syntax", kError},
    {"missing-part", kError},
    {"bad-character", kError},
    {"open-comment", kError},
    {"open-text", kError},
    {"bad-number", kError},
    {"large-name", kError},
    {"bad-enumerator", kError},
    {"bad-binary", kError},
    {"bad-directive", kError},
    {"header", kError},
    {"byte-order-mark", kWarning},
    {"lower-case", kWarning},
    {"raw-character", kWarning},
    {"header-omitted", kWarning},
    {"after-end", kWarning},
    {"doubled-name", kError},
    {"dangling-reference", kError},
    {"unknown-entity", kError},
    {"abstract-entity", kError},
    {"attribute-count", kError},
    {"wrong-kind", kError},
    {"wrong-reference", kError},
    {"wrong-select", kError},
    {"unknown-enumerator", kError},
    {"aggregate-size", kError},
    {"missing-value", kError},
    {"not-derived", kError},
    {"derived-value", kError},
    {"missing-supertype", kError},
    {"doubled-part", kError},
    {"wrong-combination", kError},
    {"part-order", kWarning},
    {"integer-for-real", kWarning},
    {"user-defined", kWarning},
    {"schema-differs", kWarning},
};
static_assert(sizeof kRows / sizeof kRows[0] == kCodes);

}  // namespace

std::string_view CodeName(Code code) { return kRows[static_cast<std::size_t>(code)].name; }
Severity SeverityOf(Code code) { return kRows[static_cast<std::size_t>(code)].severity; }
std::string_view SeverityName(Severity severity) { return severity == kError ? "error" : "warning"; }

}  // namespace exchange
