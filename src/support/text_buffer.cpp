#include "support/text_buffer.h"

#include <algorithm>
#include <cstring>

#include "support/memory.h"
#include "support/number_print.h"

namespace steprt {

TextBuffer& TextBuffer::Add(std::string_view text) {
  const bool hasSpace = Reserve(length_ + text.size() + 1);
  const std::size_t fits = hasSpace ? text.size() : std::min(text.size(), capacity_ - 1 - length_);
  char* start = heap_ ? heap_ : own_;
  if (fits > 0) std::memcpy(start + length_, text.data(), fits);
  length_ += fits;
  isCut_ = isCut_ || fits < text.size();
  start[length_] = '\0';
  return *this;
}

TextBuffer& TextBuffer::Add(int number) {
  char digits[kIntBuffer];
  const char* end = IntToText(digits, number);
  return Add(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

// Returns false, without a change, when memory runs out.
bool TextBuffer::Reserve(std::size_t size) {
  if (size <= capacity_) return true;
  char* larger = MakeLargerOrNull(Text(), length_ + 1, &capacity_, size);
  if (!larger) return false;
  delete[] heap_;
  heap_ = larger;
  return true;
}

}  // namespace steprt
