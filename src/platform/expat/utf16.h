// Texts from Expat, which come in UTF-8 and are sound, as UTF-16.
#ifndef STEPRT_PLATFORM_EXPAT_UTF16_H
#define STEPRT_PLATFORM_EXPAT_UTF16_H

#include <cstddef>
#include <string_view>

namespace steprt {

// Puts the text into `buffer`, which must hold a unit for each byte. Returns the end of what it put.
char16_t* Utf8ToUtf16(char16_t* buffer, std::string_view utf8);

// The start of `utf8`, at most `limit` bytes, that ends between two characters.
std::string_view TruncateToBytes(std::string_view utf8, std::size_t limit);

// A buffer for one text after another. It grows and never shrinks.
class Utf16Buffer {
 public:
  static constexpr std::size_t kOwnUnits = 1200;  // fits without a Reserve

  Utf16Buffer() = default;
  ~Utf16Buffer() { delete[] heap_; }
  Utf16Buffer(const Utf16Buffer&) = delete;
  Utf16Buffer& operator=(const Utf16Buffer&) = delete;

  // Sees to it that a text of so many bytes fits. False, without a change, when memory is exhausted.
  [[nodiscard]] bool Reserve(std::size_t bytes) { return bytes <= capacity_ || Grow(bytes); }

  // Replaces the text by one that fits.
  std::u16string_view Put(std::string_view utf8) {
    return {units_, static_cast<std::size_t>(Utf8ToUtf16(units_, utf8) - units_)};
  }

  // Replaces it by the first units, at most `limit`, of one that is terminated; by fewer when memory is exhausted.
  std::u16string_view PutStart(const char* utf8, std::size_t limit);

  // Replaces it by the bytes as they are and a terminator, which must fit.
  const char16_t* PutBytes(std::string_view bytes);

 private:
  bool Grow(std::size_t bytes);

  char16_t own_[kOwnUnits];
  char16_t* heap_ = nullptr;
  char16_t* units_ = own_;
  std::size_t capacity_ = kOwnUnits;
};

}  // namespace steprt

#endif
