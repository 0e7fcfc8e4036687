// The input of a target as a row of small decisions. Behind its end everything is 0.
#ifndef STEPRT_FUZZ_BYTES_H
#define STEPRT_FUZZ_BYTES_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace fuzz {

class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool IsEmpty() const { return size_ == 0; }
  std::size_t Left() const { return size_; }

  std::uint8_t Byte() {
    if (size_ == 0) return 0;
    --size_;
    return *data_++;
  }

  // 0 to count - 1, for a count of 256 at most.
  int Below(int count) { return Byte() % count; }

  // Any bit pattern: of an integer, of a double.
  template <typename Number>
  Number Any() {
    Number number = {};
    const std::size_t taken = size_ < sizeof number ? size_ : sizeof number;
    if (taken > 0) std::memcpy(&number, data_, taken);
    data_ += taken;
    size_ -= taken;
    return number;
  }

  // A length and as many bytes, up to the first that is 0.
  std::string Text() {
    std::string text;
    for (int length = Byte(); length > 0; --length) {
      const char c = static_cast<char>(Byte());
      if (c == '\0') break;
      text += c;
    }
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace fuzz

#endif
