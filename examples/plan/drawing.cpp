#include "drawing.h"

#include <cstddef>
#include <iterator>
#include <vector>

#include "dimensions.h"
#include "labels.h"
#include "room_labels.h"

namespace plan {
namespace {

const Pen kCutPen = {"#2b2b2b", 0.25, "#2b2b2b"};
const Pen kFloorPen = {"#8a8a8a", 0.18, "#f6f5f2"};
const Pen kTreadPen = {"#6a6a6a", 0.18};
const Pen kTreadAbovePen = {"#9a9a9a", 0.15, "none", "1.2 0.8"};
const Pen kFurniturePen = {"#a8a8a8", 0.15, "white"};
const Pen kPanelPen = {"#2b2b2b", 0.18, "#c9d6dd"};
const Pen kFacePen = {"#2b2b2b", 0.25};
const Pen kLeafPen = {"#2b2b2b", 0.2, "white"};
const Pen kSwingPen = {"#555555", 0.18};
const char* const kTints[] = {"#fbf1dc", "#e8f1e4", "#e3edf5", "#f6e6e3", "#efe8f4", "#f3f3dd"};
constexpr double kLeafThickness = 0.04;  // metres
constexpr double kGlassGap = 0.04;       // between the two lines of a window's glass

class Drawing {
 public:
  Drawing(const Sheet& target, Svg* out) : sheet(target), svg(out) {}

  void Draw(const FloorPlan& plan) {
    for (const Region& floor : plan.floors) svg->Area(OnSheet(floor), kFloorPen);
    for (std::size_t i = 0; i < plan.rooms.size(); ++i) {
      svg->Area(OnSheet(plan.rooms[i].region), {"none", 0, TintOf(i)});
    }
    for (const Polygon& piece : plan.furniture) svg->Area(OnSheet({piece}), kFurniturePen);
    for (const Region& tread : plan.treads) svg->Area(OnSheet(tread), kTreadPen);
    for (const Region& tread : plan.treadsAbove) svg->Area(OnSheet(tread), kTreadAbovePen);
    for (const Region& panel : plan.panels) svg->Area(OnSheet(panel), kPanelPen);
    for (const auto* regions : {&plan.walls, &plan.columns}) {
      for (const Region& region : *regions) svg->Area(OnSheet(region), kCutPen);
    }
    for (const WallHole& window : plan.windows) DrawWindow(window);
    for (const DoorSymbol& door : plan.doors) DrawDoor(door);
    DrawLabels(plan);
  }

 private:
  Region OnSheet(Region region) const {
    for (Polygon& polygon : region) {
      for (Vec2& corner : polygon) corner = sheet.On(corner);
    }
    return region;
  }

  void LineIn(const WallHole& hole, Vec2 from, Vec2 to, const Pen& pen) {
    svg->Line(sheet.On(hole.At(from.x, from.y)), sheet.On(hole.At(to.x, to.y)), pen);
  }

  void BoxIn(const WallHole& hole, Vec2 low, Vec2 high, const Pen& pen) {
    svg->Area(
        OnSheet({{hole.At(low.x, low.y), hole.At(high.x, low.y), hole.At(high.x, high.y), hole.At(low.x, high.y)}}),
        pen);
  }

  // The faces of the wall go on as the sill; two lines in the middle are the glass.
  void DrawWindow(const WallHole& hole) {
    const double middle = (hole.back + hole.front) / 2;
    BoxIn(hole, {hole.left, hole.back}, {hole.right, hole.front}, {"none", 0, "white"});
    for (const double line : {hole.back, hole.front, middle - kGlassGap / 2, middle + kGlassGap / 2}) {
      LineIn(hole, {hole.left, line}, {hole.right, line}, kFacePen);
    }
    for (const double side : {hole.left, hole.right}) LineIn(hole, {side, hole.back}, {side, hole.front}, kFacePen);
  }

  void DrawDoor(const DoorSymbol& door) {
    const WallHole& hole = door.hole;
    const double middle = (hole.left + hole.right) / 2;
    for (const double face : {hole.back, hole.front}) {
      LineIn(hole, {hole.left, face}, {hole.right, face}, {"#8a8a8a", 0.13});
    }
    switch (door.leaves) {
      case Leaves::kSwingRight:
      case Leaves::kBothWaysRight:
        DrawLeaf(hole, hole.right, hole.left, true);
        if (door.leaves == Leaves::kBothWaysRight) DrawLeaf(hole, hole.right, hole.left, false);
        return;
      case Leaves::kBothWaysLeft:
        DrawLeaf(hole, hole.left, hole.right, true);
        DrawLeaf(hole, hole.left, hole.right, false);
        return;
      case Leaves::kTwo:
      case Leaves::kTwoBothWays:
        for (const bool front : {true, false}) {
          if (!front && door.leaves == Leaves::kTwo) continue;
          DrawLeaf(hole, hole.left, middle, front);
          DrawLeaf(hole, hole.right, middle, front);
        }
        return;
      case Leaves::kTwoOppositeLeft:
      case Leaves::kTwoOppositeRight:
        DrawLeaf(hole, hole.left, middle, door.leaves == Leaves::kTwoOppositeLeft);
        DrawLeaf(hole, hole.right, middle, door.leaves == Leaves::kTwoOppositeRight);
        return;
      case Leaves::kSlideLeft:
      case Leaves::kSlideRight:
      case Leaves::kSlideTwo:
        return DrawSliding(door);
      default:
        return DrawLeaf(hole, hole.left, hole.right, true);
    }
  }

  // A leaf that stands open at a right angle, and the quarter circle of its free edge.
  void DrawLeaf(const WallHole& hole, double hinge, double free, bool front) {
    const double width = std::fabs(free - hinge);
    const double face = front ? hole.front : hole.back;
    const double end = face + (front ? width : -width);
    const double inwards = free > hinge ? kLeafThickness : -kLeafThickness;
    BoxIn(hole, {hinge, face}, {hinge + inwards, end}, kLeafPen);
    const Vec2 centre = sheet.On(hole.At(hinge, face));
    const Vec2 from = sheet.On(hole.At(hinge, end)), to = sheet.On(hole.At(free, face));
    svg->Arc(from, to, sheet.Millimetres(width), Cross(from - centre, to - centre) > 0, kSwingPen);
  }

  // Leaves that stand half before the wall.
  void DrawSliding(const DoorSymbol& door) {
    const WallHole& hole = door.hole;
    const double half = (hole.right - hole.left) / 2;
    const double face = hole.front + kLeafThickness;
    const Vec2 thickness = {0, kLeafThickness};
    if (door.leaves != Leaves::kSlideRight) {
      BoxIn(hole, {hole.left - half, face}, Vec2{hole.left + half, face} + thickness, kLeafPen);
    }
    if (door.leaves != Leaves::kSlideLeft) {
      BoxIn(hole, {hole.right - half, face}, Vec2{hole.right + half, face} + thickness, kLeafPen);
    }
  }

  // What a label is not to cover.
  std::vector<Box> Obstacles(const FloorPlan& plan) const {
    std::vector<Box> boxes;
    const auto take = [&](const Box& box) {
      boxes.emplace_back();
      boxes.back().Take(sheet.On(box.low));
      boxes.back().Take(sheet.On(box.high));
    };
    const auto takeRegion = [&](const Region& region) {
      Box box;
      box.Take(region);
      take(box);
    };
    for (const DoorSymbol& door : plan.doors) take(door.Swing());
    for (const Region& tread : plan.treads) takeRegion(tread);
    for (const Region& tread : plan.treadsAbove) takeRegion(tread);
    for (const Region& column : plan.columns) takeRegion(column);
    for (const Polygon& piece : plan.furniture) takeRegion({piece});
    return boxes;
  }

  static const char* TintOf(std::size_t room) { return kTints[room % std::size(kTints)]; }

  // Name, number and area, one under the other.
  static LabelLines TextOf(const RoomLabel& room) {
    LabelLines text;
    for (const std::string& line : {room.name, room.number}) {
      if (!line.empty() && (text.lines.empty() || text.lines[0] != line)) text.lines.push_back(line);
    }
    text.lines.push_back(NumberText(room.area, 1) + " m²");
    return text;
  }

  void DrawLabels(const FloorPlan& plan) {
    std::vector<LabelledRoom> rooms;
    for (const RoomLabel& room : plan.rooms) rooms.push_back({OnSheet(room.region), TextOf(room)});
    const std::vector<PlacedLabel> labels = PlaceLabels(rooms, Obstacles(plan));
    for (std::size_t i = 0; i < labels.size(); ++i) {
      if (labels[i].size > 0) DrawLabel(labels[i], TintOf(i));
    }
  }

  // A label that covers lines has a ground of its own.
  void DrawLabel(const PlacedLabel& label, const char* tint) {
    if (label.covers) svg->Rectangle(label.block.low, label.block.Size(), {"none", 0, tint});
    Vec2 at = {label.block.Centre().x, label.block.low.y + label.size};
    if (label.turned) at = {label.block.low.x + label.size, label.block.Centre().y};
    for (std::size_t i = 0; i < label.text.lines.size(); ++i) {
      const bool isName = i < label.text.nameLines;
      TextStyle style = {isName ? label.size : 0.88 * label.size, "middle", isName ? "#222222" : "#555555", isName};
      style.turn = label.turned ? -90 : 0;
      svg->Text(at, label.text.lines[i], style);
      (label.turned ? at.x : at.y) += kLineStep * label.size;
    }
  }

  const Sheet& sheet;
  Svg* svg;
};

}  // namespace

bool DrawPlan(const FloorPlan& plan, const Sheet& sheet, const Caption& caption, const std::string& path) {
  Svg svg(sheet.width, sheet.height);
  Drawing(sheet, &svg).Draw(plan);
  DrawDimensions(sheet, plan, &svg);
  DrawFrame(sheet, caption, plan, &svg);
  return svg.Save(path);
}

}  // namespace plan
