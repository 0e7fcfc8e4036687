// Members of STEPmodel that build and remove the index of its schema. A model removes it when it is destroyed, whoever
// has built it.
#include "schema/generation.h"
#include "schema/index.h"
#include "schema/rows.h"
#include "steprt/model.h"
#include "support/memory.h"

namespace {

using namespace steprt;

// The node of this row in the bucket of its name. FindIndexNode would return another one if two rows share the name.
// So each row is linked once, and siblings never form a ring.
APPindexNode* OwnNode(const APPentity& row, APPindexNode** table) {
  APPindexNode* node = table[HashName(row.name)];
  while (node && node->row != &row) node = node->next;
  return node;
}

// Each child becomes the first one, so siblings are in the reverse of row order.
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
