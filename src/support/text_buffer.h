// A text under construction. It lies in a room of its own at first and moves to the heap when it outgrows that; only
// when the heap gives nothing is it cut. It is always terminated.
#ifndef STEPRT_SUPPORT_TEXT_BUFFER_H
#define STEPRT_SUPPORT_TEXT_BUFFER_H

#include <cstddef>
#include <string_view>

namespace steprt {

class TextBuffer {
 public:
  TextBuffer() { room_[0] = '\0'; }
  ~TextBuffer() { delete[] heap_; }
  TextBuffer(const TextBuffer&) = delete;
  TextBuffer& operator=(const TextBuffer&) = delete;

  TextBuffer& Add(char c) { return Add(std::string_view(&c, 1)); }
  TextBuffer& Add(std::string_view text);
  TextBuffer& Add(int number);

  const char* Text() const { return heap_ ? heap_ : room_; }
  std::size_t Length() const { return length_; }
  bool IsCut() const { return isCut_; }

 private:
  bool Reserve(std::size_t length);

  char room_[512];
  char* heap_ = nullptr;
  std::size_t capacity_ = sizeof room_ - 1;
  std::size_t length_ = 0;
  bool isCut_ = false;
};

}  // namespace steprt

#endif
