#include "read/list_appender.h"

#include <memory>

#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "support/memory.h"

namespace steprt {

STEPaggr* NewAggr() { return MakeOrNull<STEPaggr>(); }

STEPlist* NewListNode() { return MakeOrNull<STEPlist>(); }

bool ListAppender::Begin() {
  if (!out_) return true;
  if (!*out_) *out_ = NewAggr();
  if (!*out_) return Refuse(t_, kOutOfMemory, false);
  tail_ = &(*out_)->head;
  return true;
}

void ListAppender::AddReal(double real) {
  STEPlist* node = MakeNode();
  if (!node) return;
  node->value.real = real;
  Link(node);
}

void ListAppender::AddInteger(int integer) {
  STEPlist* node = MakeNode();
  if (!node) return;
  node->value.integer = integer;
  Link(node);
}

void ListAppender::AddNull() {
  if (STEPlist* node = MakeNode()) Link(node);
}

void ListAppender::AddText(const char* text) {
  std::unique_ptr<STEPlist> node(MakeNode());
  if (!node) return;
  node->value.text = CopyTextOrNull(text);
  if (node->value.text) Link(node.release());
}

void ListAppender::AddReference(int number, int expected) {
  std::unique_ptr<STEPlist> node(MakeNode());
  if (!node) return;
  const StoredReference stored = StoreReference(t_, number, expected, &node->value.object);
  if (!stored.isKept) return;
  Link(node.release());
  CheckType(t_, stored, expected);
}

// Null without an `out`, and when memory is exhausted.
STEPlist* ListAppender::MakeNode() {
  if (!tail_) return nullptr;
  STEPlist* node = NewListNode();
  return node ? node : Refuse(t_, kOutOfMemory, node);
}

void ListAppender::Link(STEPlist* node) {
  *tail_ = node;
  tail_ = &node->next;
}

}  // namespace steprt
