// Where the labels of rooms go on the sheet, and how large they are.
#ifndef PLAN_ROOM_LABELS_H
#define PLAN_ROOM_LABELS_H

#include <cstddef>
#include <string>
#include <vector>

#include "region.h"

namespace plan {

// The lines of a label, the name in front of the rest.
struct LabelLines {
  std::vector<std::string> lines;
  size_t nameLines = 1;
};

struct PlacedLabel {
  LabelLines text;
  Vec2 middle;          // of the whole block
  double size = 0;      // of the letters; 0 when there is no place at all
  bool covers = false;  // it may lie over an obstacle
};

constexpr double kLineStep = 1.3;  // from line to line, in letter sizes

// The largest block of lines that lies in the region and meets no obstacle, near to the middle. A name of several words
// may be broken. Where that is too narrow, obstacles are covered, or the name stands alone. All lengths are those of
// the sheet.
PlacedLabel PlaceLabel(const Region& region, const std::vector<Box>& obstacles, const LabelLines& text);

}  // namespace plan

#endif
