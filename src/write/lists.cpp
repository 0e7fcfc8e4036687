// The writers of aggregate attributes. Clear text has a list in brackets, whose items the writers of scalars and
// references write with their commas. XML has the items in one element, with a separator between them.
#include "steprt/aggregate.h"
#include "steprt/write.h"
#include "write/comma.h"
#include "write/element.h"
#include "write/values.h"
#include "write/wide_values.h"

namespace {

using namespace steprt;

// "(" items ")". `putItem` writes an item with its comma. A null aggregate is an empty one.
template <typename PutItem>
void ListToTokens(STEPtransfer* t, const STEPaggr* aggr, PutItem putItem) {
  PutComma(t, TOK_OPEN);
  t->file.out->Put('(');
  for (const STEPlist* node = aggr ? aggr->head : nullptr; node; node = node->next) putItem(*node);
  t->file.out->Put(')');
  t->lastToken = TOK_CLOSE;
}

// An element with the items between its tags. `putItem` writes an item alone.
template <typename PutItem>
void ListToElement(STEPtransfer* t, const char* name, const STEPaggr* aggr, char separator, PutItem putItem) {
  PutElement(t, name, [=] {
    for (const STEPlist* node = aggr ? aggr->head : nullptr; node; node = node->next) {
      putItem(*node);
      if (node->next) t->file.out->Put(separator);
    }
  });
}

void ReferencesToTokens(STEPtransfer* t, const STEPaggr* aggr) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { xwSTEPref(t, nullptr, node.value.object); });
}

void ReferencesToElement(STEPtransfer* t, const char* name, const STEPaggr* aggr) {
  ListToElement(t, name, aggr, ' ', [=](const STEPlist& node) { PutReference(t, node.value.object); });
}

void RealsToTokens(STEPtransfer* t, const STEPaggr* aggr) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { wSTEPreal(t, nullptr, node.value.real); });
}

void RealsToElement(STEPtransfer* t, const char* name, const STEPaggr* aggr) {
  ListToElement(t, name, aggr, ';', [=](const STEPlist& node) { PutReal(t, node.value.real); });
}

void EnumeratorsToTokens(STEPtransfer* t, const STEPaggr* aggr, const char** names) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { wSTEPenum(t, nullptr, node.value.integer, names); });
}

void TextsToTokens(STEPtransfer* t, const STEPaggr* aggr) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { wSTEPtext(t, nullptr, node.value.text); });
}

// A null text is a `$`, which no reader takes for a text.
void PutTextItem(STEPtransfer* t, const char* text) {
  if (!text) return t->file.out->Put('$');
  t->file.out->Put('\'');
  PutEscaped(t, text);
  t->file.out->Put('\'');
}

void TextsToElement(STEPtransfer* t, const char* name, const STEPaggr* aggr) {
  ListToElement(t, name, aggr, ';', [=](const STEPlist& node) { PutTextItem(t, node.value.text); });
}

}  // namespace

void xwSTEPaggr(STEPtransfer* t, const char* name, STEPaggr* aggr) {
  if (t->xml) return t->wideWrite ? WriteWideReferences(t, name, aggr) : ReferencesToElement(t, name, aggr);
  ReferencesToTokens(t, aggr);
}

void xwSTEPaggrPrim(STEPtransfer* t, const char* name, STEPaggr* aggr) {
  if (t->xml) return t->wideWrite ? WriteWideReals(t, name, aggr) : RealsToElement(t, name, aggr);
  RealsToTokens(t, aggr);
}

// The list has no name, so the library's own form of XML has no element for it.
void xwSTEPaggrEnum(STEPtransfer* t, STEPaggr* aggr, const char** names) {
  if (!t->xml) return EnumeratorsToTokens(t, aggr, names);
  if (t->wideWrite) WriteWideEnumerators(t, aggr, names);
}

void xwSTEPtextAggr(STEPtransfer* t, const char* name, STEPaggr* aggr) {
  if (t->xml) return t->wideWrite ? WriteWideTexts(t, name, aggr) : TextsToElement(t, name, aggr);
  TextsToTokens(t, aggr);
}
