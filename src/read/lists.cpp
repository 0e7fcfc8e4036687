// The readers of aggregate attributes.
#include "xml/values/lists.h"

#include "read/attribute.h"
#include "read/list_appender.h"
#include "read/tokeniser.h"
#include "read/transfer/report.h"
#include "steprt/read.h"
#include "xml/values/element.h"

namespace {

using namespace steprt;

int NextItemToken(STEPtransfer* t) {
  const int token = NextToken(t, ',', TOK_COMMA);
  return token == TOK_COMMA ? NextToken(t) : token;  // a `;` is not noted here
}

enum class NullList { kAccepted, kRefused };

// ( items ), each of which `takeItem` takes or refuses. One that is refused ends the list: the first skip reads through
// the next `)`, the second acts on the token itself, so that a list nested one deep is passed whole.
template <typename TakeItem>
void ListFromTokens(STEPtransfer* t, STEPaggr** out, NullList nullList, const char* message, TakeItem takeItem) {
  int token = NextAttrToken(t);
  if (token == TOK_SEMI) return;
  ListAppender list(t, out);
  if (!list.Begin()) return;
  if (token == TOK_NULL && nullList == NullList::kAccepted) return;
  if (token == TOK_OPEN) {
    do {
      token = NextItemToken(t);
      if (token == TOK_CLOSE) return;
    } while (takeItem(token, list));
    SkipAttribute(t, TOK_OPEN);
  }
  SkipAttribute(t, token);
  ReportError(t, message);
}

bool TakeReference(STEPtransfer* t, int token, ListAppender& list, int expected, bool allowNull) {
  if (token == TOK_REF) return list.AddReference(t->value.integer, expected), true;
  if (token == TOK_NULL && allowNull) return list.AddNull(), true;
  return false;
}

bool TakeReal(STEPtransfer* t, int token, ListAppender& list) {
  if (token == TOK_REAL) return list.AddReal(t->value.real), true;
  if (token == TOK_INT) return list.AddReal(t->value.integer), true;
  if (token == TOK_NULL) return list.AddReal(0.0), true;
  return false;
}

// An unknown name is reported and counts as the first one.
bool TakeEnumerator(STEPtransfer* t, int token, ListAppender& list, const char** names, int count) {
  if (token == TOK_NULL) return list.AddInteger(0), true;
  if (token != TOK_ENUM) return false;
  const int position = FindKeyword(t->value.text, names, count);
  if (position < 0) ReportError(t, kUnknownEnumeration, t->value.text);
  list.AddInteger(position < 0 ? 0 : position);
  return true;
}

bool TakeText(STEPtransfer* t, int token, ListAppender& list) {
  if (token != TOK_TEXT) return false;
  list.AddText(t->value.text);
  return true;
}

void ReferencesFromTokens(STEPtransfer* t, STEPaggr** out, int expected, bool allowNull) {
  ListFromTokens(t, out, NullList::kAccepted, kMissingReference,
                 [=](int token, ListAppender& list) { return TakeReference(t, token, list, expected, allowNull); });
}

// A null item that is not allowed is reported and left out, and the list goes on.
void ReferencesFromElement(STEPtransfer* t, const char* name, STEPaggr** out, int expected, bool allowNull) {
  const char* cursor = ElementValue(t, name);
  ListAppender list(t, out);
  if (!list.Begin()) return;
  for (int number = ScanRefItem(&cursor); number >= 0; number = ScanRefItem(&cursor)) {
    if (number > 0)
      list.AddReference(number, expected);
    else if (allowNull)
      list.AddNull();
    else
      ReportError(t, kMissingReference);
  }
}

void RealsFromTokens(STEPtransfer* t, STEPaggr** out) {
  ListFromTokens(t, out, NullList::kRefused, kMissingPrimitive,
                 [=](int token, ListAppender& list) { return TakeReal(t, token, list); });
}

// What is no number is 0, without a word.
void RealsFromElement(STEPtransfer* t, const char* name, STEPaggr** out) {
  const char* cursor = ElementValue(t, name);
  ListAppender list(t, out);
  if (!list.Begin()) return;
  ScannedReal last;
  for (double real = ScanRealItem(&cursor, &last); cursor; real = ScanRealItem(&cursor, &last)) list.AddReal(real);
}

void EnumeratorsFromTokens(STEPtransfer* t, STEPaggr** out, const char** names, int count) {
  ListFromTokens(t, out, NullList::kRefused, kMissingPrimitive,
                 [=](int token, ListAppender& list) { return TakeEnumerator(t, token, list, names, count); });
}

// The list has no name, so no element can hold it: what there is of it is an empty one.
void EnumeratorsFromElement(STEPtransfer* t, STEPaggr** out) { static_cast<void>(ListAppender(t, out).Begin()); }

void TextsFromTokens(STEPtransfer* t, STEPaggr** out) {
  ListFromTokens(t, out, NullList::kRefused, kMissingTextInList,
                 [=](int token, ListAppender& list) { return TakeText(t, token, list); });
}

// The scan cuts the element's text, without an `out` too.
void TextsFromElement(STEPtransfer* t, const char* name, STEPaggr** out) {
  char* cursor = ElementValue(t, name);
  ListAppender list(t, out);
  if (!list.Begin()) return;
  while (const char* item = ScanQuotedItem(&cursor)) list.AddText(item);
}

}  // namespace

void xrSTEPaggr(STEPtransfer* t, const char* name, STEPaggr** out, int expected, bool allowNull) {
  t->xml ? ReferencesFromElement(t, name, out, expected, allowNull) : ReferencesFromTokens(t, out, expected, allowNull);
}

void xrSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr** out) {
  t->xml ? RealsFromElement(t, name, out) : RealsFromTokens(t, out);
}

void xrSTEPaggrEnum(STEPtransfer* t, STEPaggr** out, const char** names, int count) {
  t->xml ? EnumeratorsFromElement(t, out) : EnumeratorsFromTokens(t, out, names, count);
}

void xrSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr** out) {
  t->xml ? TextsFromElement(t, name, out) : TextsFromTokens(t, out);
}
