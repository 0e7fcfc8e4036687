#include "read/transfer/keywords.h"

#include "support/ascii.h"

namespace steprt {
namespace {

// Where two keywords have the same code, the first one is written.
constexpr struct {
  const char* keyword;
  int code;
} kSections[] = {
    {"ISO-10303-21", SEC_START}, {"STEP", SEC_START},           {"HEADER", SEC_HEADER}, {"DATA", SEC_DATA},
    {"ENDSEC", SEC_ENDSEC},      {"END-ISO-10303-21", SEC_END}, {"ENDSTEP", SEC_END},
};

}  // namespace

int SectionCode(const char* word) {
  for (const auto& section : kSections) {
    if (EqualNoCase(section.keyword, word)) return section.code;
  }
  return SEC_NONE;
}

const char* SectionKeyword(int code) {
  for (const auto& section : kSections) {
    if (section.code == code) return section.keyword;
  }
  return "";
}

}  // namespace steprt
