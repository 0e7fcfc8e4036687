#include "read/sections.h"

#include "read/tokeniser.h"

namespace steprt {

int NextSection(STEPtransfer* t) {
  for (;;) {
    const int token = NextToken(t);
    if (token == TOK_EOF) return SEC_NONE;
    const int code = token == TOK_NAME ? SectionCode(t->value.text) : SEC_NONE;
    if (code != SEC_NONE) return code;
  }
}

int SkipToSemicolon(STEPtransfer* t) {
  int token;
  do {
    token = NextToken(t);
  } while (token != TOK_SEMI && token != TOK_EOF);
  return token;
}

}  // namespace steprt
