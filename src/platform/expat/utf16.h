// Texts from Expat, which are valid UTF-8, as UTF-16.
#ifndef STEPRT_PLATFORM_EXPAT_UTF16_H
#define STEPRT_PLATFORM_EXPAT_UTF16_H

#include <cstddef>
#include <string_view>

namespace steprt {

// Writes the text to `buffer`, which must hold a unit for each byte. Returns the end of what it wrote.
char16_t* Utf8ToUtf16(char16_t* buffer, std::string_view utf8);

// Returns the longest start of `utf8` that has at most `limit` bytes and ends between two characters.
std::string_view TruncateToBytes(std::string_view utf8, std::size_t limit);

// A buffer for one text after another. It grows and never shrinks.
class Utf16Buffer {
 public:
  static constexpr std::size_t kOwnUnits = 1200;  // fits without a Reserve

  Utf16Buffer() = default;
  ~Utf16Buffer() { delete[] heap_; }
  Utf16Buffer(const Utf16Buffer&) = delete;
  Utf16Buffer& operator=(const Utf16Buffer&) = delete;

  // Makes sure that a text of so many bytes fits. Returns false, without a change, when memory runs out.
  [[nodiscard]] bool Reserve(std::size_t bytes) { return bytes <= capacity_ || Grow(bytes); }

  // Replaces the text by one that fits.
  std::u16string_view Put(std::string_view utf8) {
    return {units_, static_cast<std::size_t>(Utf8ToUtf16(units_, utf8) - units_)};
  }

  // Replaces the text by at most the first `limit` units of a terminated one; by fewer when memory runs out.
  std::u16string_view PutStart(const char* utf8, std::size_t limit);

  // Replaces the text by these bytes, one a unit, and a terminator, which must fit.
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
