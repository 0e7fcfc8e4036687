#include "steprt/text.h"

char* Copy(char* destination, const char* source, int limit) {
  char* end = destination;
  for (int i = 0; source && i < limit && source[i]; ++i) *end++ = source[i];
  *end = '\0';
  return destination;
}
