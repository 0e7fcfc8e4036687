// Eight bytes of a text at once, as a number whose lowest byte is the first of them on every machine.
//
// A search marks the bytes that it looks for by their highest bits. Only the first mark is sure: a byte after it may
// have one by mistake.
#ifndef STEPRT_SUPPORT_EIGHT_BYTES_H
#define STEPRT_SUPPORT_EIGHT_BYTES_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace steprt {

inline constexpr std::uint64_t kOneInEach = 0x0101010101010101;

inline std::uint64_t LoadEight(const char* p) {
  std::uint64_t bytes;
  std::memcpy(&bytes, p, sizeof bytes);
  return std::endian::native == std::endian::little ? bytes : __builtin_bswap64(bytes);
}

inline void StoreEight(char* p, std::uint64_t bytes) {
  if (std::endian::native != std::endian::little) bytes = __builtin_bswap64(bytes);
  std::memcpy(p, &bytes, sizeof bytes);
}

// For short texts, without a call. Where the length is no multiple of eight, the last eight bytes overlap the others.
inline bool EqualBytes(const char* a, const char* b, std::size_t length) {
  if (length < 8) return std::memcmp(a, b, length) == 0;
  const std::size_t last = length - 8;
  for (std::size_t i = 0; i < last; i += 8) {
    if (LoadEight(a + i) != LoadEight(b + i)) return false;
  }
  return LoadEight(a + last) == LoadEight(b + last);
}

// Marks the bytes below `limit`, which is at most 0x80.
constexpr std::uint64_t MarkBelow(std::uint64_t bytes, unsigned char limit) {
  return (bytes - limit * kOneInEach) & ~bytes & 0x80 * kOneInEach;
}

constexpr std::uint64_t MarkEqual(std::uint64_t bytes, char c) {
  return MarkBelow(bytes ^ static_cast<unsigned char>(c) * kOneInEach, 1);
}

// The place of the first mark, from 0 on; 8 if there is none.
constexpr int FirstMarked(std::uint64_t marks) { return std::countr_zero(marks) / 8; }

// The start of the line that `p` is on: after the last line feed before it, or `begin`.
inline const char* StartOfLine(const char* begin, const char* p) {
  while (p - begin >= 8 && MarkEqual(LoadEight(p - 8), '\n') == 0) p -= 8;
  while (p > begin && p[-1] != '\n') --p;
  return p;
}

}  // namespace steprt

#endif
