// Where the labels of rooms go on the sheet, and how large they are.
#ifndef PLAN_ROOM_LABELS_H
#define PLAN_ROOM_LABELS_H

#include <cstddef>
#include <string>
#include <vector>

#include "region.h"

namespace plan {

// The lines of a label, the name before the rest.
struct LabelLines {
  std::vector<std::string> lines;
  std::size_t nameLines = 1;
};

// A room on the sheet, and what its label says. The last line is the most important one after the name.
struct LabelledRoom {
  Region region;
  LabelLines text;
};

struct PlacedLabel {
  LabelLines text;
  Box block;
  double size = 0;      // of the letters; 0 if there is no place at all
  bool covers = false;  // the block is over an obstacle
  bool turned = false;  // the lines run upwards
};

constexpr double kLineStep = 1.3;  // from line to line, in letter sizes

// The labels of all rooms of a plan, in their order and all lengths in those of the sheet. Each is in its room, near
// the middle and clear of the obstacles. All have one size, the largest at which most rooms take their labels. The
// others get fewer lines or, failing that, smaller letters or lines that run upwards; and if that does not help, the
// label covers as little of the obstacles as possible.
std::vector<PlacedLabel> PlaceLabels(const std::vector<LabelledRoom>& rooms, const std::vector<Box>& obstacles);

}  // namespace plan

#endif
