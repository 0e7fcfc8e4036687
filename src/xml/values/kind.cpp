#include "xml/values/kind.h"

#include "read/transfer/record.h"
#include "support/ascii.h"
#include "support/number_parse.h"

namespace steprt {
namespace {

constexpr char kBlank = ' ';

bool IsSign(char c) { return c == '+' || c == '-'; }

const char* SkipSign(const char* text) { return IsSign(*text) ? text + 1 : text; }

const char* SkipDigits(const char* text) {
  while (IsDigit(*text)) ++text;
  return text;
}

// The kind of a text without the blanks and signs before it.
int ClassifyBareText(const char* text) {
  if (*text == '#') return TOK_REF;
  if (*text == '$') return TOK_NULL;
  if (*text == '.' && IsLetter(text[1])) return TOK_ENUM;
  if (IsLetter(*text)) return TOK_NAME;
  if (IsIntegerText(text)) return TOK_INT;
  return IsRealText(text) ? TOK_REAL : TOK_TEXT;
}

}  // namespace

// text = {" "} {sign} value. Any number of signs may precede any value, but no blank may follow them.
int ClassifyText(const char* text) {
  while (*text == kBlank) ++text;
  while (IsSign(*text)) ++text;
  return *text == '\0' ? TOK_ERROR : ClassifyBareText(text);
}

bool IsRealText(const char* text) {
  text = SkipDigits(SkipSign(text));
  if (*text == '.') text = SkipDigits(text + 1);
  if (*text == '\0') return true;
  if (*text != 'e' && *text != 'E') return false;
  text = SkipDigits(SkipSign(text + 1));
  return *text == '\0' || *text == kBlank;
}

}  // namespace steprt
