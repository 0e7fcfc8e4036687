// Places in a text as a person sees them: line and column, and the piece of a line that a diagnostic shows.
#ifndef STEPRT_EXPRESS_EXCERPT_H
#define STEPRT_EXPRESS_EXCERPT_H

#include <cstddef>
#include <string_view>

namespace express {

// Both count from 1. A column is a character of UTF-8; a tab is one.
struct Position {
  std::size_t line = 1;
  std::size_t column = 1;
};

// True for the bytes of a character of UTF-8 after its first.
constexpr bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// The piece of a line around `offset`, as it is in the text, and where in it the caret is, in characters.
struct Excerpt {
  std::string_view text;
  std::size_t caret = 0;
};
Excerpt ExcerptAt(std::string_view bytes, std::size_t offset);

}  // namespace express

#endif
