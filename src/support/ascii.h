// Letters, digits and comparison without case, for bytes and whatever the host's locale: ASCII letters fold, all other
// bytes compare as unsigned.
#ifndef STEPRT_SUPPORT_ASCII_H
#define STEPRT_SUPPORT_ASCII_H

namespace steprt {

constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
constexpr char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

// Negative, 0 or positive.
inline int CompareNoCase(const char* a, const char* b) {
  for (;; ++a, ++b) {
    const int x = static_cast<unsigned char>(ToLower(*a));
    const int y = static_cast<unsigned char>(ToLower(*b));
    if (x != y || x == 0) return x - y;
  }
}

inline bool EqualNoCase(const char* a, const char* b) { return CompareNoCase(a, b) == 0; }

}  // namespace steprt

#endif
