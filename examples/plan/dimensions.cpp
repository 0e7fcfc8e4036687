#include "dimensions.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "labels.h"

namespace plan {
namespace {

constexpr double kChainDistance = 5, kOverallDistance = 11;  // millimetres from all that is drawn
constexpr double kTick = 0.8;
constexpr double kLeastLabelled = 5;  // millimetres; the length of a shorter part is not written
constexpr double kOuterWall = 0.6;    // metres: an opening so near to the edge of the building is in its outer wall
const Pen kLine = {"#555555", 0.15};
const Pen kTickPen = {"#222222", 0.3};

// One side of the building. Along the side runs u, away from it v, both on the sheet.
struct Side {
  Vec2 corner, u, v;
  bool turned;  // texts are written upwards
  Vec2 At(double along, double away) const { return corner + u * along + v * away; }
};

Box BoxOf(const WallHole& hole) {
  Box box;
  for (const double a : {hole.left, hole.right}) {
    for (const double c : {hole.back, hole.front}) box.Take(hole.At(a, c));
  }
  return box;
}

// A dimension line at a distance from the side, with a tick at each place. Places are metres along the side.
void DrawChain(const Sheet& sheet, const Side& side, const std::vector<double>& places, double distance, Svg* svg) {
  const Vec2 tick = {kTick, -kTick};
  const auto at = [&](double place) { return side.At(sheet.Millimetres(place), distance); };
  svg->Line(at(places.front()), at(places.back()), kLine);
  for (const double place : places) {
    svg->Line(at(place) - tick, at(place) + tick, kTickPen);
    svg->Line(at(place) - side.v * 2, at(place) + side.v * 1.5, kLine);
  }
  TextStyle style = {2.1, "middle"};
  if (side.turned) style.turn = -90;
  for (size_t i = 0; i + 1 < places.size(); ++i) {
    const double length = places[i + 1] - places[i];
    if (sheet.Millimetres(length) < kLeastLabelled) continue;
    svg->Text(at((places[i] + places[i + 1]) / 2) - (side.turned ? Vec2{0.8, 0} : Vec2{0, 0.8}), NumberText(length, 2),
              style);
  }
}

// Where the openings of the outer wall of a side begin and end.
std::vector<double> PlacesAlong(const FloorPlan& plan, const Box& walls, bool below) {
  const double end = below ? walls.Size().x : walls.Size().y;
  std::vector<double> places = {0, end};
  const auto take = [&](const WallHole& hole) {
    const Box box = BoxOf(hole);
    const Vec2 low = box.low - walls.low, high = box.high - walls.low;
    if ((below ? high.y : high.x) > kOuterWall) return;
    places.push_back(below ? low.x : low.y);
    places.push_back(below ? high.x : high.y);
  };
  for (const DoorSymbol& door : plan.doors) take(door.hole);
  for (const WallHole& window : plan.windows) take(window);
  std::sort(places.begin(), places.end());
  return places;
}

}  // namespace

void DrawDimensions(const Sheet& sheet, const FloorPlan& plan, Svg* svg) {
  const Box walls = plan.WallBounds();
  const Box all = plan.Bounds();
  if (walls.IsEmpty()) return;
  const Vec2 low = sheet.On(walls.low);
  const Side below = {{low.x, sheet.On(all.low).y}, {1, 0}, {0, 1}, false};
  const Side left = {{sheet.On(all.low).x, low.y}, {0, -1}, {-1, 0}, true};
  for (const Side& side : {below, left}) {
    const std::vector<double> places = PlacesAlong(plan, walls, !side.turned);
    if (places.size() > 2) DrawChain(sheet, side, places, kChainDistance, svg);
    DrawChain(sheet, side, {places.front(), places.back()}, places.size() > 2 ? kOverallDistance : kChainDistance, svg);
  }
}

}  // namespace plan
