#include "type_table.h"

#include <algorithm>
#include <iterator>

#include "client.h"

namespace fuzz {
namespace {

constexpr int kNone = -1;

struct Row {
  int type;
  int super;
  const char* name;
};

// In the order of the chain.
constexpr Row kTypes[] = {
    {kScalars, kItem, "SCALARS"}, {kLinks, kItem, "LINKS"},   {kLists, kLinks, "LISTS"},
    {kDropped, kNone, "DROPPED"}, {kEmpty, kNone, "EMPTY"},   {kStrayRow, kNone, "STRAY"},
    {kItem, kNone, "ITEM"},       {kShadow, kItem, "SHADOW"}, {kOutline, kItem, "OUTLINE"},
};

const Row* Find(int type) {
  const auto* row =
      std::find_if(std::begin(kTypes), std::end(kTypes), [=](const Row& each) { return each.type == type; });
  return row == std::end(kTypes) ? nullptr : row;
}

void Collect(int type, int depth, bool indexed, std::vector<int>& types) {
  types.push_back(type);
  if (depth <= 0) return;
  std::vector<int> children;
  for (const Row& row : kTypes) {
    if (row.super == type) children.push_back(row.type);
  }
  if (indexed) std::reverse(children.begin(), children.end());
  for (const int child : children) Collect(child, depth - 1, indexed, types);
}

}  // namespace

const char* NameOf(int type) {
  const Row* row = Find(type);
  return row ? row->name : nullptr;
}

bool IsBelow(int ancestor, int type) {
  if (ancestor < 0 || ancestor == type) return true;
  const Row* row = Find(type);
  return row && row->super != kNone && IsBelow(ancestor, row->super);
}

std::vector<int> TypesBelow(int type, int depth, bool indexed) {
  std::vector<int> types;
  if (Find(type)) Collect(type, depth, indexed, types);
  return types;
}

}  // namespace fuzz
