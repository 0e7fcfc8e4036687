#include "read/list_appender.h"

#include <memory>

#include "read/transfer/references.h"
#include "read/transfer/report.h"
#include "support/memory.h"

namespace steprt {

bool ListAppender::Begin() {
  if (!out_) return true;
  if (!*out_) *out_ = MakeOrNull<STEPaggr>();
  if (!*out_) return Refuse(t_, kOutOfMemory, false);
  tail_ = &(*out_)->head;
  return true;
}

void ListAppender::AppendReal(double real) {
  STEPlist* node = MakeNode();
  if (!node) return;
  node->value.real = real;
  Link(node);
}

void ListAppender::AppendInteger(int integer) {
  STEPlist* node = MakeNode();
  if (!node) return;
  node->value.integer = integer;
  Link(node);
}

void ListAppender::AppendNull() {
  if (STEPlist* node = MakeNode()) Link(node);
}

void ListAppender::AppendText(const char* text) {
  std::unique_ptr<STEPlist> node(MakeNode());
  if (!node) return;
  node->value.text = CopyTextOrNull(text);
  if (node->value.text) Link(node.release());
}

void ListAppender::AppendReference(int number, int expected) {
  std::unique_ptr<STEPlist> node(MakeNode());
  if (!node) return;
  const StoredReference stored = StoreReference(t_, number, expected, &node->value.object);
  if (!stored.isKept) return;
  Link(node.release());
  CheckType(t_, stored, expected);
}

// Null if the items are dropped, and when memory runs out, which is reported.
STEPlist* ListAppender::MakeNode() {
  if (!tail_) return nullptr;
  STEPlist* node = MakeOrNull<STEPlist>();
  return node ? node : Refuse(t_, kOutOfMemory, node);
}

void ListAppender::Link(STEPlist* node) {
  *tail_ = node;
  tail_ = &node->next;
}

}  // namespace steprt
