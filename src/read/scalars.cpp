// The readers of scalar attributes.
#include "read/attribute.h"
#include "read/report.h"
#include "read/tokeniser.h"
#include "steprt/read.h"

namespace {

using namespace steprt;

// Reports a token that is no value of the attribute, gets past it, and gives the neutral value.
template <typename Value>
Value RefuseAttribute(STEPtransfer* t, const char* message, int token, Value neutral) {
  ReportError(t, message);
  SkipAttribute(t, token);
  return neutral;
}

// A number's token stays for the next reader: each further number reader of the record reports it once more.
template <typename Value>
Value GiveBack(STEPtransfer* t, const char* message, int token, Value neutral) {
  ReportError(t, message);
  t->pushedToken = token;
  return neutral;
}

char* TextFromTokens(STEPtransfer* t) {
  const int token = NextAttrToken(t);
  if (token == TOK_TEXT) return t->value.text;
  if (token == TOK_NULL || token == TOK_SEMI) return EmptyText();
  return RefuseAttribute(t, kMissingText, token, EmptyText());
}

int IntFromTokens(STEPtransfer* t) {
  const int token = NextAttrToken(t);
  if (token == TOK_INT) return t->value.integer;
  if (token == TOK_SEMI) return 0;
  return GiveBack(t, kMissingInteger, token, 0);
}

double RealFromTokens(STEPtransfer* t) {
  const int token = NextAttrToken(t);
  if (token == TOK_REAL) return t->value.real;
  if (token == TOK_INT) return t->value.integer;
  if (token == TOK_SEMI) return 0.0;
  return GiveBack(t, kMissingReal, token, 0.0);
}

// A family of keywords: their texts and count, the position that stands for a value that is not there, and what is said
// about a token that is no keyword at all, or an unknown one.
struct Keywords {
  const char* const* names;
  int count;
  int neutral;
  const char* missing;
  const char* unknown;
};

constexpr Keywords kBools = {kBoolKeywords, 2, 0, kMissingBool, kUnknownBool};
constexpr Keywords kLogicals = {kLogicalKeywords, 3, 0, kMissingLogical, kUnknownLogical};

int KeywordFromTokens(STEPtransfer* t, const Keywords& keywords) {
  const int token = NextAttrToken(t);
  if (token == TOK_NULL || token == TOK_SEMI) return keywords.neutral;
  if (token != TOK_ENUM) return RefuseAttribute(t, keywords.missing, token, keywords.neutral);
  const int position = FindKeyword(t->value.text, keywords.names, keywords.count);
  if (position >= 0) return position;
  ReportError(t, keywords.unknown, t->value.text);
  return keywords.neutral;
}

}  // namespace

char* rSTEPtext(STEPtransfer* t, const char* /*name*/) { return TextFromTokens(t); }

int rSTEPint(STEPtransfer* t, const char* /*name*/) { return IntFromTokens(t); }

double rSTEPreal(STEPtransfer* t, const char* /*name*/) { return RealFromTokens(t); }

bool rSTEPbool(STEPtransfer* t, const char* /*name*/) { return KeywordFromTokens(t, kBools) != 0; }

int rSTEPlog(STEPtransfer* t, const char* /*name*/) { return KeywordFromTokens(t, kLogicals) - 1; }

int rSTEPenum(STEPtransfer* t, const char* /*name*/, const char** names, int count) {
  return KeywordFromTokens(t, {names, count, 0, kMissingEnumeration, kUnknownEnumeration});
}
