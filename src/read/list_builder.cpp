#include "read/list_builder.h"

#include <memory>

#include "read/reference.h"
#include "read/report.h"
#include "support/memory.h"

namespace steprt {

STEPaggr* NewAggr() { return MakeOrNull<STEPaggr>(); }

STEPlist* NewListNode() { return MakeOrNull<STEPlist>(); }

bool ListBuilder::Begin() {
  if (!out_) return true;
  if (!*out_) *out_ = NewAggr();
  if (!*out_) return Refuse(t_, kOutOfMemory, false);
  tail_ = &(*out_)->head;
  return true;
}

void ListBuilder::AddReal(double real) {
  STEPlist* node = MakeNode();
  if (!node) return;
  node->value.real = real;
  Link(node);
}

void ListBuilder::AddInteger(int integer) {
  STEPlist* node = MakeNode();
  if (!node) return;
  node->value.integer = integer;
  Link(node);
}

void ListBuilder::AddNull() {
  if (STEPlist* node = MakeNode()) Link(node);
}

void ListBuilder::AddText(const char* text) {
  std::unique_ptr<STEPlist> node(MakeNode());
  if (!node) return;
  node->value.text = CopyTextOrNull(text);
  if (node->value.text) Link(node.release());
}

void ListBuilder::AddReference(int number, int expected) {
  std::unique_ptr<STEPlist> node(MakeNode());
  if (!node) return;
  const Settled settled = SettleReference(t_, number, expected, &node->value.object);
  if (settled == Settled::kKnown || settled == Settled::kLater) Link(node.release());
}

// Null without an `out`, and when memory is exhausted.
STEPlist* ListBuilder::MakeNode() {
  if (!tail_) return nullptr;
  STEPlist* node = NewListNode();
  return node ? node : Refuse(t_, kOutOfMemory, node);
}

void ListBuilder::Link(STEPlist* node) {
  *tail_ = node;
  tail_ = &node->next;
}

}  // namespace steprt
