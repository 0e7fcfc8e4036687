#include "names.h"

#include <algorithm>

#include "hash.h"

namespace exchange {

namespace {

constexpr std::size_t kFirstSize = 64;  // a power of two, and so are all sizes

unsigned BitOf(std::uint64_t name) { return 1U << (name & 7U); }

}  // namespace

Names::Names() : blocks_(kFirstSize), seed_(HashSeed()) {}

// Where the block is, or would be.
std::size_t Names::SlotOf(std::uint64_t key) const {
  const std::size_t mask = blocks_.size() - 1;
  std::size_t slot = static_cast<std::size_t>(HashNumber(key, seed_)) & mask;
  while (blocks_[slot].key != key && blocks_[slot].key != kFree) slot = (slot + 1) & mask;
  return slot;
}

Names::Block& Names::BlockOf(std::uint64_t name) {
  const std::uint64_t key = name / 8;
  if (blocks_[last_].key == key) return blocks_[last_];
  last_ = SlotOf(key);
  if (blocks_[last_].key == key) return blocks_[last_];
  if (used_ >= blocks_.size() / 8 * 7) {
    Grow();
    last_ = SlotOf(key);
  }
  ++used_;
  blocks_[last_].key = key;
  return blocks_[last_];
}

const Names::Block* Names::Find(std::uint64_t name) const {
  const Block& block = blocks_[SlotOf(name / 8)];
  return block.key == kFree ? nullptr : &block;
}

void Names::Grow() {
  std::vector<Block> old(blocks_.size() * 2);
  old.swap(blocks_);
  for (const Block& block : old) {
    if (block.key != kFree) blocks_[SlotOf(block.key)] = block;
  }
}

bool Names::Define(std::uint64_t name, std::uint16_t type) {
  Block& block = BlockOf(name);
  if ((block.defined & BitOf(name)) != 0) return false;
  block.defined = static_cast<std::uint8_t>(block.defined | BitOf(name));
  block.types[name & 7U] = type;
  return true;
}

void Names::Refer(std::uint64_t name) {
  Block& block = BlockOf(name);
  block.referred = static_cast<std::uint8_t>(block.referred | BitOf(name));
}

bool Names::IsDefined(std::uint64_t name) const {
  const Block* const block = Find(name);
  return block != nullptr && (block->defined & BitOf(name)) != 0;
}

std::uint16_t Names::TypeOf(std::uint64_t name) const {
  const Block* const block = Find(name);
  return block == nullptr ? kUnknownType : block->types[name & 7U];
}

bool Names::AnyDangling() const {
  return std::any_of(blocks_.begin(), blocks_.end(), [](const Block& b) { return (b.referred & ~b.defined) != 0; });
}

}  // namespace exchange
