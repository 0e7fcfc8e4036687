// The index of a model's schema: built on demand, dropped with the model.
#include "schema/generation.h"
#include "schema/index.h"
#include "schema/rows.h"
#include "steprt/model.h"
#include "support/memory.h"

namespace {

using namespace steprt;

// The node of the name's bucket that stands for this very row. It is the one that FindIndexNode gives unless another
// row bears the name too; so each row is linked once, and siblings never form a ring.
APPindexNode* OwnNode(const APPentity& row, APPindexNode** table) {
  APPindexNode* node = table[HashName(row.name)];
  while (node && node->row != &row) node = node->next;
  return node;
}

// Each child goes to the front, so that siblings stand in the reverse of row order.
void LinkToParent(const APPentity& row, APPindexNode** table) {
  if (!row.super) return;
  APPindexNode* parent = FindIndexNode(row.super, table);
  APPindexNode* child = OwnNode(row, table);
  if (!parent || !child) return;
  child->sibling = parent->children;
  parent->children = child;
}

}  // namespace

void STEPmodel::PrepareHash() {
  if (!schema || schema->index) return;
  schema->index = MakeArrayOrNull<APPindexNode*>(kIndexBuckets);
  if (!schema->index) return;
  NoteChange(schema);
  ForEachRow(schema, [&](APPentity& row) {
    AddIndexNode(&schema->index[HashName(row.name)], &row);
    AddIndexNode(&schema->index[TypeBucket(row.type)], &row);
  });
  ForEachRow(schema, [&](APPentity& row) { LinkToParent(row, schema->index); });
}

void STEPmodel::RemoveHash() {
  if (!schema || !schema->index) return;
  for (int bucket = 0; bucket < kIndexBuckets; ++bucket) {
    while (APPindexNode* node = schema->index[bucket]) {
      schema->index[bucket] = node->next;
      delete node;
    }
  }
  delete[] schema->index;
  schema->index = nullptr;
  NoteChange(schema);
}
