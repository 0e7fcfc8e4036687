#include "excerpt.h"

#include <algorithm>

namespace express {

namespace {

constexpr std::size_t kExcerpt = 120;       // bytes of a line that are shown
constexpr std::size_t kExcerptBefore = 80;  // at most so many of them before the caret

}  // namespace

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

}  // namespace express
