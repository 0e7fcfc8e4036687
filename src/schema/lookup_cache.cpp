#include "schema/lookup_cache.h"

#include <cstring>

#include "schema/generation.h"
#include "schema/index.h"
#include "schema/lookup.h"
#include "schema/rows.h"
#include "support/ascii.h"
#include "support/memory.h"

namespace steprt {
namespace {

constexpr std::uint64_t kMixer = 0x9e3779b97f4a7c15ull;

// The same for names that differ in case alone; setting one bit of every byte folds more than letters, which does not
// matter to a hash.
std::uint32_t HashFolded(const char* name) {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020ull;
  std::size_t length = std::strlen(name);
  std::uint64_t sum = length;
  while (length > 0) {
    const std::size_t count = length < 8 ? length : 8;
    std::uint64_t word = 0;
    std::memcpy(&word, name, count);
    sum = (sum ^ (word | kCaseBits)) * kMixer;
    sum ^= sum >> 32;
    name += count;
    length -= count;
  }
  return static_cast<std::uint32_t>(sum * kMixer >> 32);  // in which every character counts
}

std::uint32_t HashType(int type) { return static_cast<std::uint32_t>(static_cast<std::uint32_t>(type) * kMixer >> 32); }

// A place for a name or a pair of types among `count` of them, a power of two. Of a name it sees the length and both
// ends, eight characters each.
std::size_t PlaceOf(const char* name, std::size_t length, int count) {
  std::uint64_t head = 0;
  std::uint64_t tail = 0;
  if (length >= sizeof head) {
    std::memcpy(&head, name, sizeof head);
    std::memcpy(&tail, name + length - sizeof tail, sizeof tail);
  } else {
    std::memcpy(&head, name, length);
  }
  return ((head ^ tail * 3) + length) * kMixer >> 32 & static_cast<std::size_t>(count - 1);
}

std::size_t PlaceOf(int expected, int actual, int count) {
  const auto pair = static_cast<std::uint64_t>(static_cast<std::uint32_t>(expected)) << 32;
  return (pair | static_cast<std::uint32_t>(actual)) * kMixer >> 32 & static_cast<std::size_t>(count - 1);
}

int CountRows(APPobject0* schema) {
  int count = 0;
  ForEachRow(schema, [&](APPentity&) { ++count; });
  return count;
}

template <typename Action>
void ForEachNode(APPindexNode** index, Action action) {
  for (int bucket = 0; bucket < kIndexBuckets; ++bucket) {
    for (APPindexNode* node = index[bucket]; node; node = node->next) action(node->row, bucket);
  }
}

int CountNodes(APPindexNode** index) {
  int count = 0;
  ForEachNode(index, [&](APPentity*, int) { ++count; });
  return count;
}

}  // namespace

APPentity* LookupCache::FindEntityByName(const char* name) {
  if (!IsCurrent() && !Build()) return steprt::FindEntityByName(name, schema_);
  const std::size_t length = std::strlen(name);
  NameAnswer& answer = nameAnswers_[PlaceOf(name, length, kAnswers)];
  if (answer.row && answer.length == length && std::memcmp(answer.row->name, name, length) == 0) return answer.row;
  const int node = FindName(name);
  if (node == kNone) return nullptr;
  APPentity* row = nodes_[node].row;
  if (std::strcmp(row->name, name) == 0) answer = {row, length};
  return row;
}

APPentity* LookupCache::FindEntityByType(int type) {
  if (!IsCurrent() && !Build()) return steprt::FindEntityByType(type, schema_);
  const int node = FindType(type);
  return node == kNone ? nullptr : nodes_[node].row;
}

bool LookupCache::IsSubtype(int expected, int actual) {
  if (expected < 0 || expected == actual) return true;
  if (!IsCurrent() && !Build()) return steprt::IsSubtype(schema_, expected, actual);
  SubtypeAnswer& latest = subtypeAnswers_[PlaceOf(expected, actual, kAnswers)];
  if (latest.expected != expected || latest.actual != actual) {
    latest = {expected, actual, FindSubtype(expected, actual)};
  }
  return latest.answer;
}

// The walk of lookup.cpp, over nodes.
bool LookupCache::FindSubtype(int expected, int actual) {
  int node = FindType(actual);
  int mark = kNone;
  for (unsigned step = 1; node != kNone; ++step) {
    if (nodes_[node].type == expected) return true;
    if (node == mark) return false;
    if ((step & (step - 1)) == 0) mark = node;
    node = ParentOf(nodes_[node]);
  }
  return false;
}

bool LookupCache::IsCurrent() const { return names_ && generation_ == schemaGeneration && index_ == schema_->index; }

// A change that concerns other chains leaves the picture as it is, or as impossible as it is.
bool LookupCache::Build() {
  if (built_ && index_ == schema_->index && !HasChanged(schema_, generation_)) {
    generation_ = schemaGeneration;
    return names_ != nullptr;
  }
  Forget();
  built_ = true;
  generation_ = schemaGeneration;
  index_ = schema_->index;
  const int count = index_ ? CountNodes(index_) : CountRows(schema_);
  std::uint32_t size = 16;
  while (size < 2u * static_cast<unsigned>(count)) size *= 2;
  mask_ = size - 1;
  nodes_ = MakeArrayOrNull<Node>(static_cast<std::size_t>(count) * 2 + 1);
  names_ = MakeArrayOrNull<NameSlot>(size);
  types_ = MakeArrayOrNull<int>(size);
  if (!nodes_ || !names_ || !types_) return Forget(), false;
  for (std::uint32_t i = 0; i < size; ++i) names_[i].node = types_[i] = kNone;
  index_ ? BuildIndexed() : BuildLinear();
  return true;
}

void LookupCache::BuildLinear() {
  ForEachRow(schema_, [&](APPentity& row) {
    AddName(&row, 0);
    AddType(&row);
  });
}

void LookupCache::BuildIndexed() {
  ForEachNode(index_, [&](APPentity* row, int bucket) {
    AddName(row, bucket);
    if (TypeBucket(row->type) == bucket) AddType(row);
  });
}

// The first row of a name or of a type wins, as it does in the walks.
void LookupCache::AddName(APPentity* row, int bucket) {
  NameSlot* slot = NameSlotOf(row->name, bucket);
  if (slot->node == kNone) *slot = {HashFolded(row->name), bucket, NodeOf(row)};
}

void LookupCache::AddType(APPentity* row) {
  int* slot = TypeSlotOf(row->type);
  if (*slot == kNone) *slot = NodeOf(row);
}

int LookupCache::NodeOf(APPentity* row) {
  if (nodeCount_ > 0 && nodes_[nodeCount_ - 1].row == row) return nodeCount_ - 1;
  nodes_[nodeCount_] = {row, row->type, row->super ? kNotSought : kNone};
  return nodeCount_++;
}

int LookupCache::FindName(const char* name) { return NameSlotOf(name, index_ ? HashName(name) : 0)->node; }

int LookupCache::FindType(int type) const { return *TypeSlotOf(type); }

int LookupCache::ParentOf(Node& node) {
  if (node.parent == kNotSought) node.parent = FindName(node.row->super);
  return node.parent;
}

// The slot that holds the name, or the free one where it belongs.
LookupCache::NameSlot* LookupCache::NameSlotOf(const char* name, int bucket) const {
  const std::uint32_t hash = HashFolded(name);
  for (std::uint32_t i = (hash + static_cast<std::uint32_t>(bucket)) & mask_;; i = (i + 1) & mask_) {
    NameSlot& slot = names_[i];
    if (slot.node == kNone) return &slot;
    if (slot.hash != hash || slot.bucket != bucket) continue;
    const char* held = nodes_[slot.node].row->name;
    if (std::strcmp(held, name) == 0 || EqualNoCase(held, name)) return &slot;
  }
}

int* LookupCache::TypeSlotOf(int type) const {
  for (std::uint32_t i = HashType(type) & mask_;; i = (i + 1) & mask_) {
    if (types_[i] == kNone || nodes_[types_[i]].type == type) return &types_[i];
  }
}

void LookupCache::Forget() {
  delete[] nodes_;
  delete[] names_;
  delete[] types_;
  nodes_ = nullptr;
  names_ = nullptr;
  types_ = nullptr;
  nodeCount_ = 0;
  for (NameAnswer& answer : nameAnswers_) answer.row = nullptr;
  for (SubtypeAnswer& answer : subtypeAnswers_) answer.expected = -1;
}

}  // namespace steprt
