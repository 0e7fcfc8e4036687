#include "support/text_buffer.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "support/memory.h"

namespace steprt {

TextBuffer& TextBuffer::Add(std::string_view text) {
  const std::size_t fits = Reserve(length_ + text.size()) ? text.size() : std::min(text.size(), capacity_ - length_);
  char* start = heap_ ? heap_ : room_;
  if (fits > 0) std::memcpy(start + length_, text.data(), fits);
  length_ += fits;
  isCut_ = isCut_ || fits < text.size();
  start[length_] = '\0';
  return *this;
}

TextBuffer& TextBuffer::Add(int number) {
  char digits[12];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  return Add(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

// Makes room for `length` characters. On failure the room stays as it is.
bool TextBuffer::Reserve(std::size_t length) {
  if (length <= capacity_) return true;
  const std::size_t wanted = std::max(length, capacity_ * 2);
  char* larger = MakeBufferOrNull(wanted + 1);
  if (!larger) return false;
  std::memcpy(larger, Text(), length_ + 1);
  delete[] heap_;
  heap_ = larger;
  capacity_ = wanted;
  return true;
}

}  // namespace steprt
