#include "room_labels.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "labels.h"

namespace plan {
namespace {

constexpr double kSizes[] = {2.6, 2.4, 2.2, 2.0, 1.8, 1.6, 1.3};  // letter sizes in millimetres
constexpr double kLegible = 1.6;
constexpr double kSmallest = 1.3;  // where nothing else helps
constexpr double kBold = 1.08;     // bold letters are so much wider
constexpr double kAir = 1.5;       // around the block
constexpr std::size_t kMost = 10;  // one label in so many may need less
constexpr int kGrid = 24;          // places that are tried, each way
constexpr double kNever = 1e9;

// The block's size for letters of size 1.
Vec2 BlockOf(const LabelLines& text) {
  double width = 0;
  for (std::size_t i = 0; i < text.lines.size(); ++i) {
    width = std::max(width, TextWidth(text.lines[i], i < text.nameLines ? kBold : 1));
  }
  return {width, kLineStep * static_cast<double>(text.lines.size())};
}

Box BoxAround(Vec2 middle, Vec2 size) {
  Box box;
  box.Take(middle - size * 0.5);
  box.Take(middle + size * 0.5);
  return box;
}

double Overlap(const Box& a, const Box& b) {
  const double x = std::min(a.high.x, b.high.x) - std::max(a.low.x, b.low.x);
  const double y = std::min(a.high.y, b.high.y) - std::max(a.low.y, b.low.y);
  return x > 0 && y > 0 ? x * y : 0;
}

bool IsInside(const Region& region, const Box& box) {
  return Contains(region, box.Centre()) &&
         !Crosses(region, {box.low, {box.high.x, box.low.y}, box.high, {box.low.x, box.high.y}});
}

// How a label is put: as usual, with lines that run upwards, or over obstacles.
enum class Manner { kPlain, kTurned, kCovering };

// One room and the obstacles in it.
class Place {
 public:
  Place(const Region& room, const std::vector<Box>& obstacles) : region(room) {
    bounds.Take(room);
    for (const Box& obstacle : obstacles) {
      if (obstacle.Meets(bounds)) inRoom.push_back(obstacle);
    }
  }

  // Puts the text at the place nearest to the middle that is clear of obstacles or, if it may cover them, covers the
  // least of them. The name is broken if it does not fit otherwise. False if there is no place.
  bool Put(const LabelLines& text, double size, Manner manner, PlacedLabel* label) const {
    return PutAsIs(text, size, manner, label) || PutAsIs(Broken(text), size, manner, label);
  }

 private:
  bool PutAsIs(const LabelLines& text, double size, Manner manner, PlacedLabel* label) const {
    Vec2 block = BlockOf(text) * size;
    if (manner == Manner::kTurned) std::swap(block.x, block.y);
    double least = kNever;
    for (int i = 0; i <= kGrid; ++i) {
      for (int k = 0; k <= kGrid; ++k) {
        const Vec2 middle = bounds.low + Vec2{bounds.Size().x * i / kGrid, bounds.Size().y * k / kGrid};
        const double cost = CostOf(middle, block, manner == Manner::kCovering);
        if (cost >= least || !IsInside(region, BoxAround(middle, block + Vec2{kAir, kAir}))) continue;
        least = cost;
        *label = {text, BoxAround(middle, block), size, manner == Manner::kCovering, manner == Manner::kTurned};
      }
    }
    return least < kNever;
  }

  double CostOf(Vec2 middle, Vec2 block, bool mayCover) const {
    const Box box = BoxAround(middle, block + Vec2{kAir, kAir});
    double covered = 0;
    for (const Box& obstacle : inRoom) covered += Overlap(obstacle, box);
    if (covered > 0 && !mayCover) return kNever;
    return 100 * covered + Length(middle - bounds.Centre());
  }

  // The name broken at the blank that is nearest to its middle.
  static LabelLines Broken(LabelLines text) {
    const std::string name = text.lines[0];
    const auto offMiddle = [&](std::size_t at) { return std::max(at, name.size() - at); };
    std::size_t best = std::string::npos;
    for (std::size_t at = name.find(' '); at != std::string::npos; at = name.find(' ', at + 1)) {
      if (best == std::string::npos || offMiddle(at) < offMiddle(best)) best = at;
    }
    if (best == std::string::npos) return text;
    text.lines[0] = name.substr(0, best);
    text.lines.insert(text.lines.begin() + 1, name.substr(best + 1));
    text.nameLines = 2;
    return text;
  }

  const Region& region;
  Box bounds;
  std::vector<Box> inRoom;
};

// The label of a room that has no place for all lines at the common size: the first of these attempts that succeeds,
// each from its largest size down to its smallest.
PlacedLabel Squeezed(const Place& place, const LabelLines& text, double common) {
  const LabelLines shorter = {{text.lines.front(), text.lines.back()}, 1};
  const LabelLines name = {{text.lines.front()}, 1};
  const struct {
    Manner manner;
    const LabelLines& lines;
    double largest, smallest;
  } attempts[] = {
      {Manner::kPlain, shorter, common, common},      {Manner::kPlain, text, common, kLegible},
      {Manner::kTurned, shorter, common, kLegible},   {Manner::kPlain, name, common, kLegible},
      {Manner::kTurned, name, common, kLegible},      {Manner::kPlain, shorter, kSmallest, kSmallest},
      {Manner::kCovering, shorter, common, kLegible}, {Manner::kCovering, name, common, kSmallest},
  };
  PlacedLabel label;
  for (const auto& attempt : attempts) {
    for (const double size : kSizes) {
      if (size > attempt.largest || size < attempt.smallest) continue;
      if (place.Put(attempt.lines, size, attempt.manner, &label)) return label;
    }
  }
  return label;
}

// The largest size that most of the labels reach that have a place at all.
double CommonSize(const std::vector<PlacedLabel>& labels) {
  std::vector<double> sizes;
  for (const PlacedLabel& label : labels) {
    if (label.size > 0) sizes.push_back(label.size);
  }
  if (sizes.empty()) return kLegible;
  std::sort(sizes.begin(), sizes.end());
  return sizes[sizes.size() / kMost];
}

}  // namespace

std::vector<PlacedLabel> PlaceLabels(const std::vector<LabelledRoom>& rooms, const std::vector<Box>& obstacles) {
  std::vector<Place> places;
  for (const LabelledRoom& room : rooms) places.emplace_back(room.region, obstacles);
  std::vector<PlacedLabel> labels(rooms.size());
  for (std::size_t i = 0; i < rooms.size(); ++i) {
    std::find_if(std::begin(kSizes), std::end(kSizes), [&](double size) {
      return size >= kLegible && places[i].Put(rooms[i].text, size, Manner::kPlain, &labels[i]);
    });
  }
  const double common = CommonSize(labels);
  for (std::size_t i = 0; i < rooms.size(); ++i) {
    if (labels[i].size == common) continue;
    if (!places[i].Put(rooms[i].text, common, Manner::kPlain, &labels[i])) {
      labels[i] = Squeezed(places[i], rooms[i].text, common);
    }
  }
  return labels;
}

}  // namespace plan
