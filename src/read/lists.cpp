// The readers of aggregate attributes. Each takes the items from tokens in clear text (...FromTokens), or from the text
// of the element of its name in XML (...FromElement). A ListAppender makes the nodes for both.
#include "xml/values/lists.h"

#include <algorithm>

#include "read/attribute.h"
#include "read/items.h"
#include "read/list_appender.h"
#include "read/tokeniser.h"
#include "read/transfer/place.h"
#include "read/transfer/report.h"
#include "steprt/read.h"
#include "xml/values/element.h"

namespace {

using namespace steprt;

int NextItemToken(STEPtransfer* t) {
  const int token = NextToken(t, ',', TOK_COMMA);
  return token == TOK_COMMA ? NextToken(t) : token;  // unlike NextAttrToken, a `;` does not close the record
}

// Passes over the rest of a list after the token of a refused item. If the client has asked for its kind, all brackets
// count. Otherwise the first skip reads through the next `)`, and the second acts on the refused token: so a list that
// is nested one deep is skipped whole.
void SkipRestOfList(STEPtransfer* t, int token, bool isAsked) {
  if (!isAsked) {
    SkipAttribute(t, TOK_OPEN);
    return SkipAttribute(t, token);
  }
  if (token == TOK_SEMI) t->lastToken = TOK_SEMI;
  if (token != TOK_SEMI && token != TOK_EOF) SkipToClose(t, token == TOK_OPEN ? 2 : 1);
}

enum class NullList { kAccepted, kRefused };

// list = "$" | "(" { [","] item } ")"
//
// `appendItem` appends an item or refuses it, which ends the list.
template <typename AppendItem>
void ListFromTokens(STEPtransfer* t, STEPaggr** out, NullList nullList, const char* message, AppendItem appendItem) {
  const bool isAsked = t->pushedToken == TOK_OPEN && t->items.isListAsked;
  int token = NextAttrToken(t);
  if (token == TOK_SEMI) return;
  ListAppender list(t, out);
  if (!list.Begin()) return;
  if (token == TOK_NULL && nullList == NullList::kAccepted) return;
  if (token == TOK_OPEN) {
    do {
      token = NextItemToken(t);
      if (token == TOK_CLOSE) return;
    } while (appendItem(token, list));
    NoteFault(t);
    SkipRestOfList(t, token, isAsked);
  } else {
    NoteFault(t);
    SkipAttribute(t, token);
  }
  ReportError(t, message);
}

bool AppendReference(STEPtransfer* t, int token, ListAppender& list, int expected, bool allowNull) {
  if (token == TOK_REF) {
    list.AppendReference(t->value.integer, expected);
    return true;
  }
  if (token != TOK_NULL || !allowNull) return false;
  list.AppendNull();
  return true;
}

// A `$` is 0.0 here.
bool AppendReal(STEPtransfer* t, int token, ListAppender& list) {
  switch (token) {
    case TOK_REAL:
      list.AppendReal(t->value.real);
      return true;
    case TOK_INT:
      list.AppendReal(t->value.integer);
      return true;
    case TOK_NULL:
      list.AppendReal(0.0);
      return true;
    default:
      return false;
  }
}

// A `$` counts as the first name. So does an unknown name, which is reported.
bool AppendEnumerator(STEPtransfer* t, int token, ListAppender& list, const char** names, int count) {
  if (token != TOK_NULL && token != TOK_ENUM) return false;
  int position = 0;
  if (token == TOK_ENUM) position = FindKeyword(t->value.text, names, count);
  if (position < 0) ReportError(t, kUnknownEnumeration, t->value.text);
  list.AppendInteger(std::max(position, 0));
  return true;
}

bool AppendText(STEPtransfer* t, int token, ListAppender& list) {
  if (token != TOK_TEXT) return false;
  list.AppendText(t->value.text);
  return true;
}

void ReferencesFromTokens(STEPtransfer* t, STEPaggr** out, int expected, bool allowNull) {
  ListFromTokens(t, out, NullList::kAccepted, kMissingReference,
                 [=](int token, ListAppender& list) { return AppendReference(t, token, list, expected, allowNull); });
}

// A null item that is not allowed is reported and left out. Unlike in clear text, the list goes on.
void ReferencesFromElement(STEPtransfer* t, const char* name, STEPaggr** out, int expected, bool allowNull) {
  const char* cursor = ElementValue(t, name);
  ListAppender list(t, out);
  if (!list.Begin()) return;
  for (int number = ScanRefItem(&cursor); number >= 0; number = ScanRefItem(&cursor)) {
    if (number > 0) {
      list.AppendReference(number, expected);
    } else if (allowNull) {
      list.AppendNull();
    } else {
      ReportError(t, kMissingReference);
    }
  }
}

void RealsFromTokens(STEPtransfer* t, STEPaggr** out) {
  ListFromTokens(t, out, NullList::kRefused, kMissingPrimitive,
                 [=](int token, ListAppender& list) { return AppendReal(t, token, list); });
}

// An item that is no number is 0, without a report.
void RealsFromElement(STEPtransfer* t, const char* name, STEPaggr** out) {
  const char* cursor = ElementValue(t, name);
  ListAppender list(t, out);
  if (!list.Begin()) return;
  ScannedReal last;
  for (double real = ScanRealItem(&cursor, &last); cursor; real = ScanRealItem(&cursor, &last)) list.AppendReal(real);
}

void EnumeratorsFromTokens(STEPtransfer* t, STEPaggr** out, const char** names, int count) {
  ListFromTokens(t, out, NullList::kRefused, kMissingPrimitive,
                 [=](int token, ListAppender& list) { return AppendEnumerator(t, token, list, names, count); });
}

// The list has no name, so no element can hold it. The result is an empty list.
void EnumeratorsFromElement(STEPtransfer* t, STEPaggr** out) { static_cast<void>(ListAppender(t, out).Begin()); }

void TextsFromTokens(STEPtransfer* t, STEPaggr** out) {
  ListFromTokens(t, out, NullList::kRefused, kMissingTextInList,
                 [=](int token, ListAppender& list) { return AppendText(t, token, list); });
}

// The scan cuts the element's text, even if `out` is null.
void TextsFromElement(STEPtransfer* t, const char* name, STEPaggr** out) {
  char* cursor = ElementValue(t, name);
  ListAppender list(t, out);
  if (!list.Begin()) return;
  while (const char* item = ScanQuotedItem(&cursor)) list.AppendText(item);
}

}  // namespace

void xrSTEPaggr(STEPtransfer* t, const char* name, STEPaggr** out, int expected, bool allowNull) {
  if (TakesElement(t, name)) return ReferencesFromElement(t, name, out, expected, allowNull);
  ReferencesFromTokens(t, out, expected, allowNull);
}

void xrSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr** out) {
  if (TakesElement(t, name)) return RealsFromElement(t, name, out);
  RealsFromTokens(t, out);
}

void xrSTEPaggrEnum(STEPtransfer* t, STEPaggr** out, const char** names, int count) {
  if (TakesElement(t, nullptr)) return EnumeratorsFromElement(t, out);
  EnumeratorsFromTokens(t, out, names, count);
}

void xrSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr** out) {
  if (TakesElement(t, name)) return TextsFromElement(t, name, out);
  TextsFromTokens(t, out);
}
