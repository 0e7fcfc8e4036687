#include "schema/index.h"

#include <cstdint>

#include "support/ascii.h"
#include "support/memory.h"

namespace steprt {

// The weights are 1, 2, 4 ... 64, again and again. The sum is unsigned, so it may wrap; its last seven bits count.
int HashName(const char* name) {
  std::uint32_t sum = 0;
  std::uint32_t weight = 1;
  for (; *name; ++name) {
    sum += static_cast<std::uint32_t>(static_cast<signed char>(*name)) * weight;
    weight = weight == 64 ? 1 : weight * 2;
  }
  return static_cast<int>(sum & (kIndexBuckets - 1));
}

APPindexNode* AddIndexNode(APPindexNode** bucket, APPentity* row) {
  auto* node = MakeOrNull<APPindexNode>(APPindexNode{*bucket, nullptr, nullptr, row});
  if (node) *bucket = node;
  return node;
}

APPindexNode* FindIndexNode(const char* name, APPindexNode** table) {
  for (APPindexNode* node = table[HashName(name)]; node; node = node->next) {
    if (EqualNoCase(node->row->name, name)) return node;
  }
  return nullptr;
}

APPentity* FindIndexRow(const char* name, APPindexNode** table) {
  APPindexNode* node = FindIndexNode(name, table);
  return node ? node->row : nullptr;
}

APPentity* FindIndexType(int type, APPindexNode** table) {
  for (APPindexNode* node = table[TypeBucket(type)]; node; node = node->next) {
    if (node->row->type == type) return node->row;
  }
  return nullptr;
}

}  // namespace steprt
