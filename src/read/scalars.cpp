// The readers of scalar attributes. Each reads a token in clear text (...FromTokens), or the text of the element of its
// name in XML (...FromElement). A `;` in place of the attribute is its neutral value without a report.
#include "read/attribute.h"
#include "read/tokeniser.h"
#include "read/transfer/keywords.h"
#include "read/transfer/report.h"
#include "steprt/read.h"
#include "support/empty_text.h"
#include "support/number_parse.h"
#include "xml/values/element.h"

namespace {

using namespace steprt;

// Reports a token that is no value of the attribute, skips the attribute, and returns the neutral value.
template <typename Value>
Value RefuseAttribute(STEPtransfer* t, const char* message, int token, Value neutral) {
  ReportError(t, message);
  SkipAttribute(t, token);
  return neutral;
}

// Reports a token that is no number and pushes it back, so each further number reader of the record reports it again.
// This is intended (Attributes.GiveWhatTheirRowsSay).
template <typename Value>
Value PushBack(STEPtransfer* t, const char* message, int token, Value neutral) {
  ReportError(t, message);
  t->pushedToken = token;
  t->items.isListAsked = false;
  return neutral;
}

char* TextFromTokens(STEPtransfer* t) {
  const int token = NextAttrToken(t);
  if (token == TOK_TEXT) return t->value.text;
  if (token == TOK_NULL || token == TOK_SEMI) return EmptyText();
  return RefuseAttribute(t, kMissingText, token, EmptyText());
}

// Returns the element's own text.
char* TextFromElement(STEPtransfer* t, const char* name) { return ElementValue(t, name); }

int IntFromTokens(STEPtransfer* t) {
  const int token = NextAttrToken(t);
  if (token == TOK_INT) return t->value.integer;
  if (token == TOK_SEMI) return 0;
  return PushBack(t, kMissingInteger, token, 0);
}

// No text is refused here: the number ends where its digits end.
int IntFromElement(STEPtransfer* t, const char* name) { return TextToInt(ElementValue(t, name)); }

double RealFromTokens(STEPtransfer* t) {
  const int token = NextAttrToken(t);
  if (token == TOK_REAL) return t->value.real;
  if (token == TOK_INT) return t->value.integer;
  if (token == TOK_SEMI) return 0.0;
  return PushBack(t, kMissingReal, token, 0.0);
}

double RealFromElement(STEPtransfer* t, const char* name) { return TextToReal(ElementValue(t, name)); }

// A family of keywords.
struct Keywords {
  const char* const* names;
  int count;
  int neutral;          // position of the value when there is none
  const char* missing;  // message for a token that is no keyword
  const char* unknown;  // message for a keyword that is not in `names`
};

constexpr Keywords kBools = {kBoolKeywords, 2, 0, kMissingBool, kUnknownBool};
constexpr Keywords kLogicals = {kLogicalKeywords, 3, 0, kMissingLogical, kUnknownLogical};

// Reports an unknown keyword. Its token is the whole attribute, so nothing is left to skip.
int MatchKeyword(STEPtransfer* t, const Keywords& keywords, const char* text) {
  const int position = FindKeyword(text, keywords.names, keywords.count);
  if (position >= 0) return position;
  ReportError(t, keywords.unknown, text);
  return keywords.neutral;
}

int KeywordFromTokens(STEPtransfer* t, const Keywords& keywords) {
  const int token = NextAttrToken(t);
  if (token == TOK_NULL || token == TOK_SEMI) return keywords.neutral;
  if (token != TOK_ENUM) return RefuseAttribute(t, keywords.missing, token, keywords.neutral);
  return MatchKeyword(t, keywords, t->value.text);
}

// `$` and a missing element are unknown keywords too.
int KeywordFromElement(STEPtransfer* t, const char* name, const Keywords& keywords) {
  return MatchKeyword(t, keywords, ElementValue(t, name));
}

int ReadKeyword(STEPtransfer* t, const char* name, const Keywords& keywords) {
  return TakesElement(t, name) ? KeywordFromElement(t, name, keywords) : KeywordFromTokens(t, keywords);
}

}  // namespace

char* rSTEPtext(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? TextFromElement(t, name) : TextFromTokens(t);
}

int rSTEPint(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? IntFromElement(t, name) : IntFromTokens(t);
}

double rSTEPreal(STEPtransfer* t, const char* name) {
  return TakesElement(t, name) ? RealFromElement(t, name) : RealFromTokens(t);
}

bool rSTEPbool(STEPtransfer* t, const char* name) { return ReadKeyword(t, name, kBools) != 0; }

int rSTEPlog(STEPtransfer* t, const char* name) { return ReadKeyword(t, name, kLogicals) - 1; }

int rSTEPenum(STEPtransfer* t, const char* name, const char** names, int count) {
  return ReadKeyword(t, name, {names, count, 0, kMissingEnumeration, kUnknownEnumeration});
}
