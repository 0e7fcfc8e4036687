#include "source.h"

#include <algorithm>
#include <utility>

namespace express {

Source::Source(std::string name, std::string text) : name_(std::move(name)), text_(std::move(text)), lineStarts_{0} {
  for (std::size_t i = 0; i < text_.size(); ++i) {
    const bool pair = text_[i] == '\r' && i + 1 < text_.size() && text_[i + 1] == '\n';
    if (text_[i] == '\n' || (text_[i] == '\r' && !pair)) lineStarts_.push_back(i + 1);
  }
}

Position Source::PositionAt(std::size_t offset) const {
  offset = std::min(offset, text_.size());
  const auto next = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), offset);
  const std::string_view before = Text().substr(*(next - 1), offset - *(next - 1));
  const auto skipped = std::count_if(before.begin(), before.end(), ContinuesCharacter);
  return {static_cast<std::size_t>(next - lineStarts_.begin()), before.size() - static_cast<std::size_t>(skipped) + 1};
}

std::string Fold(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

}  // namespace express
