#include "xml/values/lists.h"

#include <climits>
#include <cstring>

#include "support/ascii.h"
#include "support/number_parse.h"

namespace steprt {
namespace {

bool IsSeparator(char c) { return c == ' ' || c == ';'; }  // of numbers

// Returns the end of the digits. A number that is too large is the largest int.
const char* ScanNumber(const char* text, int* number) {
  long long value = 0;
  for (; IsDigit(*text); ++text) {
    if (value <= INT_MAX) value = value * 10 + (*text - '0');
  }
  *number = value > INT_MAX ? INT_MAX : static_cast<int>(value);
  return text;
}

}  // namespace

int ScanRefItem(const char** cursor) {
  const char* item = *cursor;
  if (!item) return -1;
  while (*item != '\0' && *item != '#' && *item != '$') ++item;
  if (*item == '\0') return -1;
  int number = 0;
  *cursor = *item == '#' ? ScanNumber(item + 1, &number) : item + 1;
  return number;
}

// The conversion skips white space that is no separator, such as a tab, and so reaches into later items. An item of
// nothing but such white space is therefore the number that follows it. That number is converted only once, however
// many such items precede it: otherwise the time would grow with the square of their count.
double ScanRealItem(const char** cursor, ScannedReal* last) {
  if (!*cursor) return 0.0;
  const char* item = *cursor;
  while (IsSeparator(*item)) ++item;
  if (*item == '\0') {
    *cursor = nullptr;
    return 0.0;
  }
  const char* end = item;
  while (*end != '\0' && !IsSeparator(*end)) ++end;
  *cursor = end;
  if (last->text && item <= last->text) return last->value;
  last->text = SkipSpaces(item);
  last->value = TextToReal(last->text);
  return last->value;
}

char* ScanQuotedItem(char** cursor) {
  if (!*cursor) return nullptr;
  char* const opening = std::strchr(*cursor, '\'');
  if (!opening) return nullptr;
  char* const item = opening + 1;
  char* const closing = std::strchr(item, '\'');
  if (closing) *closing = '\0';
  *cursor = closing ? closing + 1 : item + std::strlen(item);
  return item;
}

}  // namespace steprt
