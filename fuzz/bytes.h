// The input of a check as a row of small decisions. After its end everything is 0.
#ifndef STEPRT_FUZZ_BYTES_H
#define STEPRT_FUZZ_BYTES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace fuzz {

class Bytes {
 public:
  explicit Bytes(const std::string& all) : data_(all.data()), size_(all.size()) {}

  bool IsEmpty() const { return size_ == 0; }

  std::uint8_t Byte() {
    if (size_ == 0) return 0;
    --size_;
    return static_cast<std::uint8_t>(*data_++);
  }

  // 0 to count - 1, for a count of 256 at most.
  int Below(int count) { return Byte() % count; }

  // Any bit pattern: of an integer, of a double.
  template <typename Number>
  Number Any() {
    Number number = {};
    const std::size_t taken = std::min(size_, sizeof number);
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

  // All that is left, up to the first byte that is 0.
  std::string Rest() {
    const std::string rest(data_, size_);
    size_ = 0;
    return rest.c_str();
  }

 private:
  const char* data_;
  std::size_t size_;
};

}  // namespace fuzz

#endif
