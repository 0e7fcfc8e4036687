// A text that is being composed. It is in a buffer of its own at first and moves to the heap when it outgrows that.
// Only when memory runs out is it cut. It is always terminated.
#ifndef STEPRT_SUPPORT_TEXT_BUFFER_H
#define STEPRT_SUPPORT_TEXT_BUFFER_H

#include <cstddef>
#include <string_view>

namespace steprt {

class TextBuffer {
 public:
  TextBuffer() { own_[0] = '\0'; }
  ~TextBuffer() { delete[] heap_; }
  TextBuffer(const TextBuffer&) = delete;
  TextBuffer& operator=(const TextBuffer&) = delete;

  TextBuffer& Add(char c) { return Add(std::string_view(&c, 1)); }
  TextBuffer& Add(std::string_view text);
  TextBuffer& Add(int number);

  const char* Text() const { return heap_ ? heap_ : own_; }
  std::size_t Length() const { return length_; }
  bool IsCut() const { return isCut_; }

 private:
  bool Reserve(std::size_t length);

  char own_[512];
  char* heap_ = nullptr;
  std::size_t capacity_ = sizeof own_;  // the terminator included
  std::size_t length_ = 0;
  bool isCut_ = false;
};

}  // namespace steprt

#endif
