#include "room_labels.h"

#include <algorithm>
#include <cstddef>

namespace plan {
namespace {

constexpr double kLargest = 2.6, kSmallest = 1.2, kStep = 0.2;  // letter sizes, millimetres
constexpr double kLeastBesideObstacles = 1.6;
constexpr double kLetterWidth = 0.68;  // of a letter size
constexpr double kAir = 1;             // around the block
constexpr int kGrid = 20;              // places that are tried, each way

// Characters, not bytes: the bytes that continue a UTF-8 character do not count.
size_t CharactersIn(const std::string& text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

// The block's size for letters of size 1.
Vec2 BlockOf(const std::vector<std::string>& lines) {
  size_t longest = 0;
  for (const std::string& line : lines) longest = std::max(longest, CharactersIn(line));
  return {kLetterWidth * static_cast<double>(longest), kLineStep * static_cast<double>(lines.size())};
}

Box BoxAround(Vec2 middle, Vec2 size) {
  Box box;
  box.Take(middle - size * 0.5);
  box.Take(middle + size * 0.5);
  return box;
}

bool IsFree(const Region& region, const std::vector<Box>& obstacles, const Box& box) {
  if (!Contains(region, box.Centre())) return false;
  for (const Box& obstacle : obstacles) {
    if (obstacle.Meets(box)) return false;
  }
  return !Crosses(region, {box.low, {box.high.x, box.low.y}, box.high, {box.low.x, box.high.y}});
}

// The free place for a block that is nearest to the middle of the region; false if there is none.
bool FindPlace(const Region& region, const std::vector<Box>& obstacles, Vec2 block, Vec2* place) {
  Box bounds;
  bounds.Take(region);
  double nearest = 1e9;
  for (int i = 0; i <= kGrid; ++i) {
    for (int k = 0; k <= kGrid; ++k) {
      const Vec2 share{static_cast<double>(i) / kGrid, static_cast<double>(k) / kGrid};
      const Vec2 middle = bounds.low + Vec2{bounds.Size().x * share.x, bounds.Size().y * share.y};
      const double distance = Length(middle - bounds.Centre());
      if (distance >= nearest || !IsFree(region, obstacles, BoxAround(middle, block))) continue;
      nearest = distance;
      *place = middle;
    }
  }
  return nearest < 1e9;
}

PlacedLabel Place(const Region& region, const std::vector<Box>& obstacles, const LabelLines& text, double smallest) {
  PlacedLabel label;
  label.text = text;
  label.covers = obstacles.empty();
  const Vec2 block = BlockOf(text.lines);
  for (double size = kLargest; size > smallest - kStep / 2; size -= kStep) {
    if (!FindPlace(region, obstacles, block * size + Vec2{kAir, kAir}, &label.middle)) continue;
    label.size = size;
    break;
  }
  return label;
}

// The name broken at the blank that is nearest to its middle.
LabelLines Broken(LabelLines text) {
  const std::string name = text.lines[0];
  const auto offMiddle = [&](size_t at) { return std::max(at, name.size() - at); };
  size_t best = std::string::npos;
  for (size_t at = name.find(' '); at != std::string::npos; at = name.find(' ', at + 1)) {
    if (best == std::string::npos || offMiddle(at) < offMiddle(best)) best = at;
  }
  if (best == std::string::npos) return text;
  text.lines[0] = name.substr(0, best);
  text.lines.insert(text.lines.begin() + 1, name.substr(best + 1));
  text.nameLines = 2;
  return text;
}

// The larger of the two ways to write the name; unbroken when it makes no difference.
PlacedLabel PlaceEither(const Region& region, const std::vector<Box>& obstacles, const LabelLines& text,
                        double smallest) {
  PlacedLabel whole = Place(region, obstacles, text, smallest);
  PlacedLabel broken = Place(region, obstacles, Broken(text), smallest);
  return broken.size > whole.size + kStep / 2 ? broken : whole;
}

}  // namespace

PlacedLabel PlaceLabel(const Region& region, const std::vector<Box>& obstacles, const LabelLines& text) {
  PlacedLabel label = PlaceEither(region, obstacles, text, kLeastBesideObstacles);
  if (label.size <= 0) label = PlaceEither(region, {}, text, kSmallest);
  if (label.size <= 0) label = PlaceEither(region, {}, {{text.lines[0]}, 1}, kSmallest);
  return label;
}

}  // namespace plan
