// From an offset to a line and a column.
#ifndef STEPRT_EXCHANGE_LINES_H
#define STEPRT_EXCHANGE_LINES_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "express/excerpt.h"

namespace exchange {

using express::Position;

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

}  // namespace exchange

#endif
