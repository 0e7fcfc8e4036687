#include "read/sections.h"

#include "read/tokeniser.h"
#include "support/ascii.h"

namespace steprt {
namespace {

// Of two rows with one code, the first is the one that is written.
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

int NextSection(STEPtransfer* t) {
  for (;;) {
    const int token = NextToken(t);
    if (token == TOK_EOF) return SEC_NONE;
    const int code = token == TOK_NAME ? SectionCode(t->value.text) : SEC_NONE;
    if (code != SEC_NONE) return code;
  }
}

void SkipPastSemicolon(STEPtransfer* t) {
  int token;
  do {
    token = NextToken(t);
  } while (token != TOK_SEMI && token != TOK_EOF);
}

}  // namespace steprt
