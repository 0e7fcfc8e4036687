// The index of a model's schema: built on demand, dropped with the model.
#include "schema/generation.h"
#include "schema/index.h"
#include "schema/rows.h"
#include "steprt/model.h"
#include "support/memory.h"

namespace {

using namespace steprt;

// Each child goes to the front, so that siblings stand in the reverse of row order. A row that has a parent already, or
// is its own, would make the tree a ring: two rows of one name bring that about, and the second is passed over.
void LinkToParent(APPentity& row, APPindexNode** table) {
  if (!row.super) return;
  APPindexNode* parent = FindIndexNode(row.super, table);
  APPindexNode* child = FindIndexNode(row.name, table);
  if (!parent || !child || child->row != &row) return;
  child->sibling = parent->children;
  parent->children = child;
}

}  // namespace

void STEPmodel::PrepareHash() {
  if (!schema || schema->index) return;
  schema->index = MakeArrayOrNull<APPindexNode*>(kIndexBuckets);
  if (!schema->index) return;
  ++schemaGeneration;
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
  ++schemaGeneration;
}
