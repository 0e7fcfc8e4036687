#include "read/attribute.h"

#include "read/items.h"
#include "read/tokeniser.h"
#include "support/ascii.h"

namespace steprt {

int NextAttrToken(STEPtransfer* t) {
  if (t->lastToken == TOK_SEMI) return TOK_SEMI;
  int token = NextToken(t, ',', TOK_COMMA);
  if (token == TOK_COMMA) token = NextToken(t);
  if (token == TOK_SEMI) t->lastToken = TOK_SEMI;
  if (token != TOK_CLOSE || t->items.depth == 0) return token;
  t->pushedToken = TOK_CLOSE;  // for rSTEPclose: an opened value that ends early is like a record that does
  return TOK_SEMI;
}

void SkipAttribute(STEPtransfer* t, int token) {
  if (t->wide && token == TOK_OPEN) return SkipToClose(t, 1);
  if (token == TOK_OPEN) {
    do {
      token = NextToken(t);
    } while (token != TOK_CLOSE && token != TOK_SEMI && token != TOK_EOF);
  } else if (token == TOK_CLOSE) {
    token = NextToken(t);
  }
  if (token == TOK_SEMI) t->pushedToken = token;
}

int FindKeyword(const char* text, const char* const* names, int count) {
  for (int i = 0; i < count; ++i) {
    if (EqualNoCase(text, names[i])) return i;
  }
  return -1;
}

}  // namespace steprt
