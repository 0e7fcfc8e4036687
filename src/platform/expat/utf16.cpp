#include "platform/expat/utf16.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "support/memory.h"

namespace steprt {
namespace {

constexpr std::size_t kStride = 8;  // bytes that are looked at as one word

bool IsAscii(const char* stride) {
  std::uint64_t word;
  std::memcpy(&word, stride, kStride);
  return (word & 0x8080808080808080u) == 0;
}

constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }
constexpr unsigned Tail(char c) { return Byte(c) & 0x3f; }

// One character: a lead byte that says how many bytes follow, each with six bits. Those of four bytes become a pair.
const char* CharacterToUtf16(char16_t** buffer, const char* p) {
  char16_t*& out = *buffer;
  const unsigned lead = Byte(*p);
  if (lead < 0x80) {
    *out++ = static_cast<char16_t>(lead);
    return p + 1;
  }
  if (lead < 0xe0) {
    *out++ = static_cast<char16_t>((lead & 0x1f) << 6 | Tail(p[1]));
    return p + 2;
  }
  if (lead < 0xf0) {
    *out++ = static_cast<char16_t>((lead & 0x0f) << 12 | Tail(p[1]) << 6 | Tail(p[2]));
    return p + 3;
  }
  const unsigned above = ((lead & 0x07) << 18 | Tail(p[1]) << 12 | Tail(p[2]) << 6 | Tail(p[3])) - 0x10000;
  *out++ = static_cast<char16_t>(0xd800 | above >> 10);
  *out++ = static_cast<char16_t>(0xdc00 | (above & 0x3ff));
  return p + 4;
}

}  // namespace

char16_t* Utf8ToUtf16(char16_t* buffer, std::string_view utf8) {
  const char* p = utf8.data();
  const char* const end = p + utf8.size();
  while (p != end) {
    for (; static_cast<std::size_t>(end - p) >= kStride && IsAscii(p); p += kStride, buffer += kStride) {
      for (std::size_t i = 0; i < kStride; ++i) buffer[i] = static_cast<char16_t>(Byte(p[i]));
    }
    if (p != end) p = CharacterToUtf16(&buffer, p);
  }
  return buffer;
}

std::string_view TruncateToBytes(std::string_view utf8, std::size_t limit) {
  if (utf8.size() <= limit) return utf8;
  while (limit > 0 && (Byte(utf8[limit]) & 0xc0) == 0x80) --limit;
  return utf8.substr(0, limit);
}

std::u16string_view Utf16Buffer::PutStart(const char* utf8, std::size_t limit) {
  constexpr std::size_t kMostBytes = 4;  // of one character
  const std::size_t bytes = Reserve(limit * kMostBytes) ? limit * kMostBytes : capacity_;
  const void* end = std::memchr(utf8, '\0', bytes);
  const std::size_t size = end ? static_cast<std::size_t>(static_cast<const char*>(end) - utf8) : bytes;
  return Put(end ? std::string_view(utf8, size) : TruncateToBytes({utf8, size + 1}, size)).substr(0, limit);
}

const char16_t* Utf16Buffer::PutBytes(std::string_view bytes) {
  char16_t* end =
      std::transform(bytes.begin(), bytes.end(), units_, [](char c) { return static_cast<char16_t>(Byte(c)); });
  *end = u'\0';
  return units_;
}

bool Utf16Buffer::Grow(std::size_t bytes) {
  char16_t* larger = MakeLargerOrNull(units_, 0, &capacity_, bytes);
  if (!larger) return false;
  delete[] heap_;
  heap_ = units_ = larger;
  return true;
}

}  // namespace steprt
