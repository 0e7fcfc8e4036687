// The writers of aggregate attributes.
#include "steprt/aggregate.h"
#include "steprt/write.h"
#include "write/comma.h"
#include "write/values.h"

namespace {

using namespace steprt;

// ( items ). The items bring their own commas; a null aggregate is an empty one.
template <typename PutItem>
void ListToTokens(STEPtransfer* t, const STEPaggr* aggr, PutItem putItem) {
  PutComma(t, TOK_OPEN);
  t->file.out->Put('(');
  for (const STEPlist* node = aggr ? aggr->head : nullptr; node; node = node->next) putItem(*node);
  t->file.out->Put(')');
  t->lastToken = TOK_CLOSE;
}

}  // namespace

void xwSTEPaggr(STEPtransfer* t, const char* /*name*/, STEPaggr* aggr) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { xwSTEPref(t, nullptr, node.value.object); });
}

void xwSTEPaggrPrim(STEPtransfer* t, const char* /*name*/, STEPaggr* aggr) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { wSTEPreal(t, nullptr, node.value.real); });
}

void xwSTEPaggrEnum(STEPtransfer* t, STEPaggr* aggr, const char** names) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { wSTEPenum(t, nullptr, node.value.integer, names); });
}

void xwSTEPtextAggr(STEPtransfer* t, const char* /*name*/, STEPaggr* aggr) {
  ListToTokens(t, aggr, [=](const STEPlist& node) { wSTEPtext(t, nullptr, node.value.text); });
}
