#include "lines.h"

#include <algorithm>

namespace exchange {

namespace {

constexpr std::size_t kBlock = 1 << 16;
constexpr std::size_t kExcerpt = 120;       // bytes of a line that are shown
constexpr std::size_t kExcerptBefore = 80;  // at most so many of them before the caret

bool EndsLine(std::string_view bytes, std::size_t i) {
  if (bytes[i] == '\n') return true;
  return bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n');
}

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

void Lines::Advance(Position& position, std::size_t from, std::size_t to) const {
  for (std::size_t i = from; i < to; ++i) {
    if (EndsLine(bytes_, i)) {
      ++position.line;
      position.column = 1;
    } else if (!ContinuesCharacter(bytes_[i])) {
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

Excerpt ExcerptAt(std::string_view bytes, std::size_t offset) {
  offset = std::min(offset, bytes.size());
  const auto inLine = [&](std::size_t i) { return bytes[i] != '\n' && bytes[i] != '\r'; };
  std::size_t from = offset;
  while (from > 0 && offset - from < kExcerptBefore && inLine(from - 1)) --from;
  while (from < offset && ContinuesCharacter(bytes[from])) ++from;
  std::size_t to = offset;
  while (to < bytes.size() && to - from < kExcerpt && inLine(to)) ++to;
  while (to < bytes.size() && ContinuesCharacter(bytes[to]) && to - from < kExcerpt + 3) ++to;
  const std::string_view before = bytes.substr(from, offset - from);
  const auto skipped = std::count_if(before.begin(), before.end(), ContinuesCharacter);
  return {bytes.substr(from, to - from), before.size() - static_cast<std::size_t>(skipped)};
}

}  // namespace exchange
