#include "lines.h"

#include <algorithm>

namespace exchange {

namespace {

constexpr std::size_t kBlock = 1 << 16;

bool EndsLine(std::string_view bytes, std::size_t i) {
  if (bytes[i] == '\n') return true;
  return bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n');
}

}  // namespace

void Lines::Advance(Position& position, std::size_t from, std::size_t to) const {
  for (std::size_t i = from; i < to; ++i) {
    if (EndsLine(bytes_, i)) {
      ++position.line;
      position.column = 1;
    } else if (!express::ContinuesCharacter(bytes_[i])) {
      ++position.column;
    }
  }
}

void Lines::Build() {
  Position position;
  for (std::size_t from = 0; from <= bytes_.size(); from += kBlock) {
    blocks_.push_back(position);
    Advance(position, from, std::min(from + kBlock, bytes_.size()));
  }
}

Position Lines::PositionAt(std::size_t offset) {
  if (blocks_.empty()) Build();
  offset = std::min(offset, bytes_.size());
  Position position = blocks_[offset / kBlock];
  Advance(position, offset / kBlock * kBlock, offset);
  return position;
}

}  // namespace exchange
