// The writers of scalar attributes. Each writes a comma and the value in clear text (...ToTokens), or the value
// between its tags in XML (...ToElement).
#include "read/transfer/keywords.h"
#include "steprt/write.h"
#include "write/comma.h"
#include "write/element.h"
#include "write/values.h"
#include "write/wide_values.h"

namespace {

using namespace steprt;

void TextToTokens(STEPtransfer* t, const char* text) {
  PutComma(t, TOK_TEXT);
  PutQuoted(t, text);
}

void TextToElement(STEPtransfer* t, const char* name, const char* text) {
  PutElement(t, name, [=] { PutEscaped(t, text); });
}

void IntToTokens(STEPtransfer* t, int value) {
  PutComma(t, TOK_INT);
  PutInt(t, value);
}

void IntToElement(STEPtransfer* t, const char* name, int value) {
  PutElement(t, name, [=] { PutInt(t, value); });
}

void RealToTokens(STEPtransfer* t, double value) {
  PutComma(t, TOK_REAL);
  PutReal(t, value);
}

void RealToElement(STEPtransfer* t, const char* name, double value) {
  PutElement(t, name, [=] { PutReal(t, value); });
}

void KeywordToTokens(STEPtransfer* t, const char* keyword) {
  PutComma(t, TOK_ENUM);
  PutWord(t, keyword);
}

void KeywordToElement(STEPtransfer* t, const char* name, const char* keyword) {
  PutElement(t, name, [=] { t->file.out->Put(keyword); });
}

void WriteKeyword(STEPtransfer* t, const char* name, const char* keyword) {
  if (t->xml) return t->wideWrite ? WriteWideKeyword(t, name, keyword) : KeywordToElement(t, name, keyword);
  KeywordToTokens(t, keyword);
}

// A number without a name has no element in XML either. There it is written as in clear text, which readers ignore.
bool HasElement(const STEPtransfer* t, const char* name) { return t->xml && name; }

}  // namespace

void wSTEPtext(STEPtransfer* t, const char* name, const char* text) {
  if (t->xml) return t->wideWrite ? WriteWideText(t, name, text) : TextToElement(t, name, text);
  TextToTokens(t, text);
}

void wSTEPint(STEPtransfer* t, const char* name, int value) {
  if (t->xml && t->wideWrite) return WriteWideInt(t, name, value);
  if (HasElement(t, name)) return IntToElement(t, name, value);
  IntToTokens(t, value);
}

void wSTEPreal(STEPtransfer* t, const char* name, double value) {
  if (t->xml && t->wideWrite) return WriteWideReal(t, name, value);
  if (HasElement(t, name)) return RealToElement(t, name, value);
  RealToTokens(t, value);
}

void wSTEPbool(STEPtransfer* t, const char* name, bool value) { WriteKeyword(t, name, kBoolKeywords[value]); }

void wSTEPlog(STEPtransfer* t, const char* name, int value) { WriteKeyword(t, name, LogicalKeyword(value)); }

void wSTEPenum(STEPtransfer* t, const char* name, int value, const char** names) {
  WriteKeyword(t, name, names[value]);
}
