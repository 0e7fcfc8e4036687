// The writers of items: typed values, lists and tokens as they are.
//
// In XML the outermost value is the text of an element. While it is open, `xml` is false, so that every writer prints
// clear text, and markup in that text is escaped.
#include "write/items.h"

#include "steprt/items.h"
#include "write/comma.h"
#include "write/element.h"
#include "write/values.h"
#include "write/wide_values.h"

namespace {

using namespace steprt;

void BeginElement(STEPtransfer* t, const char* name) {
  PutTag(*t->file.out, "<", name);
  t->items.element = name;
  t->items.lastToken = t->lastToken;
  t->items.isInElement = true;
  t->xml = false;
  t->lastToken = TOK_OPEN;
}

void EndElement(STEPtransfer* t) {
  t->xml = true;
  t->items.isInElement = false;
  t->lastToken = t->items.lastToken;
  PutTag(*t->file.out, "</", t->items.element);
}

}  // namespace

void wSTEPopen(STEPtransfer* t, const char* name, const char* keyword) {
  if (t->xml && t->wideWrite) return OpenWide(t, name, keyword);
  if (t->xml) BeginElement(t, name);
  PutComma(t, TOK_OPEN);
  if (keyword) PutWord(t, keyword);
  t->file.out->Put('(');
  ++t->items.depth;
}

void wSTEPclose(STEPtransfer* t) {
  if (t->items.depth == 0) return;
  if (t->wideWrite) return CloseWide(t);
  t->file.out->Put(')');
  t->lastToken = TOK_CLOSE;
  if (--t->items.depth == 0 && t->items.isInElement) EndElement(t);
}

void wSTEPtoken(STEPtransfer* t, const char* name, const char* token) {
  if (t->xml && t->wideWrite) return WriteWideToken(t, name, token);
  if (t->xml) return PutElement(t, name, [=] { PutEscaped(t, token); });
  PutComma(t, TOK_NAME);
  PutWord(t, token ? token : "$");
}

void steprt::EndAllItems(STEPtransfer* t) {
  while (t->items.depth > 0) wSTEPclose(t);
}
