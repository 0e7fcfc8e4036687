// Letters, digits, and the comparison of names without regard to case. hash.h has the hash that belongs to it.
//
// Keywords and names of entities are ASCII, and the host may have any locale. So only ASCII letters fold. All other
// bytes, also those of another alphabet, compare as unsigned numbers.
#ifndef STEPRT_SUPPORT_ASCII_H
#define STEPRT_SUPPORT_ASCII_H

#include <cstring>

namespace steprt {

constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
constexpr char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

// Returns a negative number, 0 or a positive number.
inline int CompareNoCase(const char* a, const char* b) {
  for (;; ++a, ++b) {
    const int x = static_cast<unsigned char>(ToLower(*a));
    const int y = static_cast<unsigned char>(ToLower(*b));
    if (x != y || x == 0) return x - y;
  }
}

inline bool EqualNoCase(const char* a, const char* b) { return CompareNoCase(a, b) == 0; }

// The same for two names of one hash, which are nearly always spelled alike: that is quicker to see.
inline bool EqualNames(const char* a, const char* b) { return std::strcmp(a, b) == 0 || EqualNoCase(a, b); }

}  // namespace steprt

#endif
