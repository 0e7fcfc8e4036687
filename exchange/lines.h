// From an offset to a line and a column.
#ifndef STEPRT_EXCHANGE_LINES_H
#define STEPRT_EXCHANGE_LINES_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace exchange {

// Both count from 1. A column is a character of UTF-8; a tab is one.
struct Position {
  std::size_t line = 1;
  std::size_t column = 1;
};

// The table has one entry for each 64 KiB and is built at the first lookup, so that a lookup is quick even in a line of
// many megabytes. Line feed, carriage return and the pair end a line.
class Lines {
 public:
  explicit Lines(std::string_view bytes) : bytes_(bytes) {}

  Position PositionAt(std::size_t offset);

 private:
  void Build();
  void Advance(Position& position, std::size_t from, std::size_t to) const;

  std::string_view bytes_;
  std::vector<Position> blocks_;  // where each block starts
};

// The piece of a line around `offset` that a report shows, and where in it the caret is, in characters. Control
// characters become blanks, and so do bytes above 7E that are no UTF-8.
struct Excerpt {
  std::string_view text;
  std::size_t caret = 0;
};
Excerpt ExcerptAt(std::string_view bytes, std::size_t offset);

}  // namespace exchange

#endif
