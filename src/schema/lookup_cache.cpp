#include "schema/lookup_cache.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "schema/generation.h"
#include "schema/index.h"
#include "schema/lookup.h"
#include "schema/rows.h"
#include "support/ascii.h"
#include "support/eight_bytes.h"
#include "support/memory.h"

namespace steprt {
namespace {

std::size_t CountRows(APPobject0* schema) {
  std::size_t count = 0;
  ForEachRow(schema, [&](APPentity&) { ++count; });
  return count;
}

template <typename Action>
void ForEachNode(APPindexNode** index, Action action) {
  for (int bucket = 0; bucket < kIndexBuckets; ++bucket) {
    for (APPindexNode* node = index[bucket]; node; node = node->next) action(node->row, bucket);
  }
}

std::size_t CountNodes(APPindexNode** index) {
  std::size_t count = 0;
  ForEachNode(index, [&](APPentity*, int) { ++count; });
  return count;
}

}  // namespace

// Names of a schema often begin alike, so the place depends on characters further on.
std::size_t LookupCache::AnswerPlace(std::string_view name) {
  if (name.empty()) return 0;
  const std::size_t length = name.size();
  const auto at = [=](std::size_t i) { return static_cast<unsigned char>(name[i]); };
  return (31 * (31 * (31 * length + at(length - 1)) + at(length / 2)) + at(length / 4)) % kAnswers;
}

std::size_t LookupCache::AnswerPlace(int expected, int actual) {
  return (static_cast<std::uint32_t>(expected) * 0x9e3779b1u ^ static_cast<std::uint32_t>(actual)) % kAnswers;
}

bool LookupCache::IsSpelled(const Node& node, std::string_view name) {
  return node.length == name.size() && EqualBytes(node.row->name, name.data(), name.size());
}

// Nearly all records of a file spell the names of entities as the schema does. Remembered answers serve these: without
// them, a read takes 4 % more instructions.
APPentity* LookupCache::FindEntityByName(std::string_view name) {
  if (!IsCurrent() && !Build()) return steprt::FindEntityByName(name.data(), schema_);
  int& latest = nameAnswers_[AnswerPlace(name)];
  if (latest != kNone && IsSpelled(nodes_[latest], name)) return nodes_[latest].row;
  const int node = FindName(name.data());
  if (node == kNone) return nullptr;
  if (IsSpelled(nodes_[node], name)) latest = node;
  return nodes_[node].row;
}

APPentity* LookupCache::FindEntityByType(int type) {
  if (!IsCurrent() && !Build()) return steprt::FindEntityByType(type, schema_);
  int& latest = typeAnswers_[static_cast<std::uint32_t>(type) % kAnswers];
  if (latest != kNone && nodes_[latest].type == type) return nodes_[latest].row;
  const int node = FindType(type);
  if (node == kNone) return nullptr;
  latest = node;
  return nodes_[node].row;
}

bool LookupCache::IsTrueSubtype(int expected, int actual) {
  if (!IsCurrent() && !Build()) return steprt::IsSubtype(schema_, expected, actual);
  SubtypeAnswer& latest = subtypeAnswers_[AnswerPlace(expected, actual)];
  if (latest.expected != expected || latest.actual != actual) {
    latest = {expected, actual, FindSubtype(expected, actual)};
  }
  return latest.answer;
}

// The walk of lookup.cpp, over the nodes of the snapshot.
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

bool LookupCache::IsCurrent() const { return nodes_ && generation_ == schemaGeneration && index_ == schema_->index; }

// Builds the snapshot, unless what has changed since concerns other chains only. Returns false when memory runs out; it
// is not tried again before the chain or its index changes.
bool LookupCache::Build() {
  if (wasTried_ && index_ == schema_->index && !HasChanged(schema_, generation_)) {
    generation_ = schemaGeneration;
    return nodes_ != nullptr;
  }
  Forget();
  wasTried_ = true;
  generation_ = schemaGeneration;
  index_ = schema_->index;
  if (!Reserve(index_ ? CountNodes(index_) : CountRows(schema_))) {
    Forget();
    return false;
  }
  if (index_) {
    BuildIndexed();
  } else {
    BuildLinear();
  }
  return true;
}

// A name and a type of one row may have a node each.
bool LookupCache::Reserve(std::size_t rows) {
  const auto noneMoves = [](const auto&) { return std::uint64_t{0}; };
  nodes_ = MakeArrayOrNull<Node>(rows * 2 + 1);
  return nodes_ && names_.Reserve(rows, noneMoves) && types_.Reserve(rows, noneMoves);
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
  if (!slot->IsFree()) return;
  *slot = {static_cast<std::uint32_t>(HashNoCase(row->name, seed_)), bucket, PlaceOf(row)};
  names_.NoteTaken();
}

void LookupCache::AddType(APPentity* row) {
  TypeSlot* slot = TypeSlotOf(row->type);
  if (!slot->IsFree()) return;
  *slot = {row->type, PlaceOf(row)};
  types_.NoteTaken();
}

int LookupCache::PlaceOf(APPentity* row) {
  if (nodeCount_ == 0 || nodes_[nodeCount_ - 1].row != row) {
    nodes_[nodeCount_++] = {row, row->type, row->super ? kNotSought : kNone, std::strlen(row->name)};
  }
  return nodeCount_;
}

int LookupCache::FindName(const char* name) const { return NameSlotOf(name, index_ ? HashName(name) : 0)->place - 1; }

int LookupCache::FindType(int type) const { return TypeSlotOf(type)->place - 1; }

int LookupCache::ParentOf(Node& node) {
  if (node.parent == kNotSought) node.parent = FindName(node.row->super);
  return node.parent;
}

// The slot that holds the name, or the free one where it belongs.
LookupCache::NameSlot* LookupCache::NameSlotOf(const char* name, int bucket) const {
  const std::uint64_t hash = HashNoCase(name, seed_);
  return names_.Find(hash, [&](const NameSlot& slot) {
    if (slot.hash != static_cast<std::uint32_t>(hash) || slot.bucket != bucket) return false;
    return EqualNames(nodes_[slot.place - 1].row->name, name);
  });
}

LookupCache::TypeSlot* LookupCache::TypeSlotOf(int type) const {
  const std::uint64_t hash = HashNumber(static_cast<std::uint32_t>(type), seed_);
  return types_.Find(hash, [=](const TypeSlot& slot) { return slot.type == type; });
}

void LookupCache::Forget() {
  delete[] nodes_;
  nodes_ = nullptr;
  nodeCount_ = 0;
  names_.Clear(0);
  types_.Clear(0);
  std::fill(std::begin(nameAnswers_), std::end(nameAnswers_), kNone);
  std::fill(std::begin(typeAnswers_), std::end(typeAnswers_), kNone);
  for (SubtypeAnswer& answer : subtypeAnswers_) answer.expected = -1;
}

}  // namespace steprt
