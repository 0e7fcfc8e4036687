// The writers of scalar attributes.
#include "read/attribute.h"
#include "steprt/write.h"
#include "write/comma.h"
#include "write/values.h"

namespace {

using namespace steprt;

void KeywordToTokens(STEPtransfer* t, const char* keyword) {
  PutComma(t, TOK_ENUM);
  t->file.out->Put(keyword);
}

}  // namespace

void wSTEPtext(STEPtransfer* t, const char* /*name*/, const char* text) {
  PutComma(t, TOK_TEXT);
  PutQuoted(t, text);
}

void wSTEPint(STEPtransfer* t, const char* /*name*/, int value) {
  PutComma(t, TOK_INT);
  PutInt(t, value);
}

void wSTEPreal(STEPtransfer* t, const char* /*name*/, double value) {
  PutComma(t, TOK_REAL);
  PutReal(t, value);
}

void wSTEPbool(STEPtransfer* t, const char* /*name*/, bool value) { KeywordToTokens(t, kBoolKeywords[value]); }

void wSTEPlog(STEPtransfer* t, const char* /*name*/, int value) { KeywordToTokens(t, LogicalKeyword(value)); }

void wSTEPenum(STEPtransfer* t, const char* /*name*/, int value, const char** names) {
  KeywordToTokens(t, names[value]);
}
