#include "schema/expand.h"

#include "schema/index.h"
#include "schema/lookup.h"
#include "support/ascii.h"
#include "support/stack.h"

namespace steprt {
namespace {

constexpr int kLevels = 32;  // that need no heap; few schemas have more

// Walks through the subtypes of one name along a chain.
struct ChainLevel {
  const APPentity* Next() {
    for (; schema; schema = schema->next, row = schema ? schema->entities : nullptr) {
      while (row->name) {
        const APPentity& each = *row++;
        if (each.super && EqualNoCase(each.super, name)) return &each;
      }
    }
    return nullptr;
  }
  ChainLevel Below(const APPentity& subtype) const { return {head, subtype.name, head, head->entities}; }

  APPobject0* head;
  const char* name;
  APPobject0* schema;    // at which the walk is,
  const APPentity* row;  // and its next row
};

// The same in the tree of an index. It goes by name, too: if two rows share a name, each leads to all subtypes of that
// name.
struct TreeLevel {
  const APPentity* Next() {
    if (!node) return nullptr;
    const APPentity* row = node->row;
    node = node->sibling;
    return row;
  }
  TreeLevel Below(const APPentity& subtype) const { return SubtypesOf(subtype.name, table); }

  static TreeLevel SubtypesOf(const char* name, APPindexNode** table) {
    const APPindexNode* parent = FindIndexNode(name, table);
    return {table, parent ? parent->children : nullptr};
  }

  APPindexNode** table;
  const APPindexNode* node;
};

// Uses a stack of levels instead of recursion, because a ring of supertypes is as deep as the caller's capacity.
template <typename Level>
int Expand(const Level& first, int* out, int capacity, int depth) {
  Stack<Level, kLevels> levels;
  bool deeper = levels.Push(first);
  while (capacity > 0 && levels.Count() > 0) {
    const APPentity* subtype = levels.Top().Next();
    if (!subtype) {
      levels.Pop();
      continue;
    }
    *out++ = subtype->type;
    --capacity;
    if (deeper && levels.Count() < depth) deeper = levels.Push(levels.Top().Below(*subtype));
  }
  return capacity;
}

}  // namespace

int ExpandSubtypes(APPobject0* schema, const char* name, int* out, int capacity, int depth) {
  if (schema->index) return ExpandIndexedSubtypes(schema->index, name, out, capacity, depth);
  return Expand(ChainLevel{schema, name, schema, schema->entities}, out, capacity, depth);
}

int ExpandIndexedSubtypes(APPindexNode** table, const char* name, int* out, int capacity, int depth) {
  return Expand(TreeLevel::SubtypesOf(name, table), out, capacity, depth);
}

}  // namespace steprt

int ExtractTypes(APPobject0* schema, int type, int* out, int capacity, int depth) {
  const APPentity* row = steprt::FindEntityByType(type, schema);
  if (!row || capacity <= 0) return 0;
  *out = row->type;
  int left = capacity - 1;
  if (depth > 0) left = steprt::ExpandSubtypes(schema, row->name, out + 1, left, depth);
  return capacity - left;
}
