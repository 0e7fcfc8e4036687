// The classes of bytes by which the tokeniser scans. They do not depend on a locale.
#ifndef STEPRT_READ_CHAR_CLASS_H
#define STEPRT_READ_CHAR_CLASS_H

#include <array>
#include <string_view>

namespace steprt {

// A word ends before one of these. Star, dot, slash, signs, double quote and underscore belong to words.
inline constexpr std::string_view kDelimiters = "' ()\n;=,\r$\t#";
inline constexpr std::string_view kBlanks = " \t\r";  // a line feed is a blank too, but it counts a line

using ByteSet = std::array<bool, 256>;

constexpr ByteSet MakeByteSet(std::string_view bytes) {
  ByteSet set = {};
  for (const char c : bytes) set[static_cast<unsigned char>(c)] = true;
  return set;
}

inline constexpr ByteSet kIsDelimiter = MakeByteSet(kDelimiters);
inline constexpr ByteSet kIsBlank = MakeByteSet(kBlanks);
inline constexpr ByteSet kStopsWord = MakeByteSet("' ()\n;=,\r$\t#\"/");  // what may end a word of a standard file
inline constexpr ByteSet kStopsText = MakeByteSet("'\r\n");
inline constexpr ByteSet kStartsNumber = MakeByteSet("#.+-0123456789");

constexpr bool IsIn(const ByteSet& set, char c) { return set[static_cast<unsigned char>(c)]; }

}  // namespace steprt

#endif
