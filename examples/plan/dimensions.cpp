#include "dimensions.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "labels.h"

namespace plan {
namespace {

constexpr double kChainDistance = 5, kOverallDistance = 13;  // millimetres from all that is drawn
constexpr double kTick = 0.8;
constexpr double kInwards = 2, kOutwards = 1.5;  // how far the line at a tick reaches to both sides
constexpr double kFigure = 2.1, kFigureAir = 1.2;
constexpr double kLeastPart = 0.5;  // millimetres; a shorter part has no ticks of its own
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

// The lengths of the parts. One that is narrower than its figure has it outside of the ticks, and none if the figure
// before it there is too near.
void DrawFigures(const Sheet& sheet, const Side& side, const std::vector<double>& places, double distance, Svg* svg) {
  TextStyle style = {kFigure, "middle"};
  if (side.turned) style.turn = -90;
  // Letters are on their line, to the left or above: so for one side the line is at the other edge of the figure.
  const double between = side.turned ? 0.8 : -0.8;
  const double outside = side.turned ? between + kFigure : kOutwards + 0.4 + kFigure * 0.75;
  double taken = -1e9;
  for (std::size_t i = 0; i + 1 < places.size(); ++i) {
    const std::string figure = NumberText(places[i + 1] - places[i], 2);
    const double middle = sheet.Millimetres((places[i] + places[i + 1]) / 2);
    const double half = (TextWidth(figure, kFigure) + kFigureAir) / 2;
    if (2 * half <= sheet.Millimetres(places[i + 1] - places[i])) {
      svg->Text(side.At(middle, distance + between), figure, style);
    } else if (middle - half >= taken) {
      svg->Text(side.At(middle, distance + outside), figure, style);
      taken = middle + half;
    }
  }
}

// A dimension line at a distance from the side, with a tick at each place. Places are metres along the side.
void DrawChain(const Sheet& sheet, const Side& side, const std::vector<double>& places, double distance, Svg* svg) {
  const Vec2 tick = {kTick, -kTick};
  const auto at = [&](double place) { return side.At(sheet.Millimetres(place), distance); };
  svg->Line(at(places.front()), at(places.back()), kLine);
  for (const double place : places) {
    svg->Line(at(place) - tick, at(place) + tick, kTickPen);
    svg->Line(at(place) - side.v * kInwards, at(place) + side.v * kOutwards, kLine);
  }
  DrawFigures(sheet, side, places, distance, svg);
}

// Whether a hole is in the outer wall of a side: it runs along the side, and neither a wall nor a hole in a wall is
// between it and the edge.
bool IsOutside(const FloorPlan& plan, const Box& walls, const WallHole& hole, bool below) {
  if (std::fabs(below ? hole.along.x : hole.along.y) < 0.9) return false;
  constexpr double kOff = 0.02;
  const Box box = BoxOf(hole);
  const Vec2 low = below ? Vec2{box.low.x + kOff, walls.low.y - 1} : Vec2{walls.low.x - 1, box.low.y + kOff};
  const Vec2 high = below ? Vec2{box.high.x - kOff, box.low.y - kOff} : Vec2{box.low.x - kOff, box.high.y - kOff};
  const Polygon between = {low, {high.x, low.y}, high, {low.x, high.y}};
  const auto covers = [&](const WallHole& other) {
    return Crosses({{other.At(other.left, other.back), other.At(other.right, other.back),
                     other.At(other.right, other.front), other.At(other.left, other.front)}},
                   between);
  };
  return std::none_of(plan.walls.begin(), plan.walls.end(), [&](const Region& w) { return Crosses(w, between); }) &&
         std::none_of(plan.windows.begin(), plan.windows.end(), covers) &&
         std::none_of(plan.doors.begin(), plan.doors.end(), [&](const DoorSymbol& d) { return covers(d.hole); });
}

// Where the openings of the outer wall of a side begin and end.
std::vector<double> PlacesAlong(const Sheet& sheet, const FloorPlan& plan, const Box& walls, bool below) {
  const double end = below ? walls.Size().x : walls.Size().y;
  std::vector<double> places = {0, end};
  const auto take = [&](const WallHole& hole) {
    if (!IsOutside(plan, walls, hole, below)) return;
    const Box box = BoxOf(hole);
    const Vec2 low = box.low - walls.low, high = box.high - walls.low;
    places.push_back(below ? low.x : low.y);
    places.push_back(below ? high.x : high.y);
  };
  for (const DoorSymbol& door : plan.doors) take(door.hole);
  for (const WallHole& window : plan.windows) take(window);
  std::sort(places.begin(), places.end());
  std::vector<double> apart = {places.front()};
  for (const double place : places) {
    if (sheet.Millimetres(place - apart.back()) >= kLeastPart) apart.push_back(place);
  }
  apart.back() = places.back();
  return apart;
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
    const std::vector<double> places = PlacesAlong(sheet, plan, walls, !side.turned);
    if (places.size() > 2) DrawChain(sheet, side, places, kChainDistance, svg);
    DrawChain(sheet, side, {places.front(), places.back()}, places.size() > 2 ? kOverallDistance : kChainDistance, svg);
  }
}

}  // namespace plan
