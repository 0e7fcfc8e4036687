#include "floor_plan.h"

#include <algorithm>
#include <utility>

#include "bodies.h"

namespace plan {
namespace {

// The plane lies a little off the round figure, so that it meets no corner of the model.
constexpr double kOffCorners = 0.00137;
// An opening as deep as its wall shares the wall's faces; grown a little it cuts through them.
constexpr double kOpeningGrowth = 0.001;
constexpr double kFloorBelow = 0.45, kFloorAbove = 0.15;  // where the slab of a storey lies, from its level
constexpr double kOneEdge = 0.08;                         // edges that are nearer in plan are drawn as one
constexpr double kStairReach = 3.2;                       // how far below and above the level a stair is shown

// The plans of one building.
class Builder {
 public:
  explicit Builder(const Building& source) : building(source) {}

  FloorPlan Of(const Storey& storey) {
    FloorPlan plan;
    plan.name = storey.name;
    plan.elevation = storey.elevation;
    plan.level = storey.level;
    height = plan.elevation + kCutAboveFloor + kOffCorners;
    for (const Wall& wall : building.walls) AddWall(wall, &plan);
    for (const Part& column : building.columns) AddCut(SliceAll(column.bodies), &plan.columns);
    for (const Part& panel : building.panels) AddCut(SliceAll(panel.bodies), &plan.panels);
    for (const Room& room : building.rooms) AddRoom(room, &plan);
    if (!plan.IsEmpty()) AddSeen(&plan);
    return plan;
  }

 private:
  Region SliceAll(const std::vector<Body>& bodies) const {
    Region region;
    for (const Body& body : bodies) {
      for (Polygon& polygon : Slice(body, height)) region.push_back(std::move(polygon));
    }
    return region;
  }

  static void AddCut(Region region, std::vector<Region>* regions) {
    if (!region.empty()) regions->push_back(std::move(region));
  }

  bool IsCut(const Part& part) const { return part.heights.low <= height && part.heights.high >= height; }

  // A wall of several bodies has a region for each, since bodies that touch may overlap.
  void AddWall(const Wall& wall, FloorPlan* plan) const {
    if (!IsCut(wall)) return;
    std::vector<Region> parts;
    for (const Body& body : wall.bodies) parts.push_back(Slice(body, height));
    for (const Opening& opening : wall.openings) Pierce(opening, &parts, plan);
    for (Region& part : parts) AddCut(std::move(part), &plan->walls);
  }

  void Pierce(const Opening& opening, std::vector<Region>* parts, FloorPlan* plan) const {
    const Polygon hull = Hull(SliceAll(opening.bodies));
    if (hull.empty()) return;
    const Polygon grown = Grown(hull, kOpeningGrowth);
    Region hole;
    for (Region& part : *parts) {
      for (Polygon& polygon : Inside(part, grown)) hole.push_back(std::move(polygon));
      part = Outside(part, grown);
    }
    if (!hole.empty() && opening.filling.kind != Filling::Kind::kNone) Fill(opening.filling, hole, plan);
  }

  // The hole in the axes of what fills it.
  static void Fill(const Filling& filling, const Region& region, FloorPlan* plan) {
    const Frame& frame = filling.frame;
    const Vec3 x = Unit({frame.x.x, frame.x.y, 0}, {1, 0, 0});
    const Vec3 y = Unit({frame.y.x, frame.y.y, 0}, {-x.y, x.x, 0});
    WallHole hole;
    hole.origin = Vec2{frame.origin.x, frame.origin.y};
    hole.along = {x.x, x.y};
    hole.across = {y.x, y.y};
    Box box;
    for (const Polygon& polygon : region) {
      for (const Vec2 corner : polygon) {
        box.Take(Vec2{Dot(corner - hole.origin, hole.along), Dot(corner - hole.origin, hole.across)});
      }
    }
    hole.left = box.low.x;
    hole.right = box.high.x;
    hole.back = box.low.y;
    hole.front = box.high.y;
    if (filling.kind == Filling::Kind::kDoor) plan->doors.push_back({hole, filling.leaves});
    if (filling.kind == Filling::Kind::kWindow) plan->windows.push_back(hole);
  }

  void AddRoom(const Room& room, FloorPlan* plan) const {
    if (!IsCut(room)) return;
    RoomLabel label;
    label.region = SliceAll(room.bodies);
    if (label.region.empty()) return;
    label.number = room.number;
    label.name = room.name;
    label.area = Area(label.region);
    plan->rooms.push_back(std::move(label));
  }

  // What is not cut, but seen from above.
  void AddSeen(FloorPlan* plan) const {
    const double level = plan->elevation;
    for (const Part& floor : building.floors) AddFaces(floor, level - kFloorBelow, level + kFloorAbove, &plan->floors);
    AddFurniture(plan);
    AddStairs(plan);
  }

  // A stair that starts here is seen up to the cut, and dashed above it. One that comes up from below is seen as well,
  // unless another lies over it.
  void AddStairs(FloorPlan* plan) const {
    const double level = plan->elevation;
    std::vector<Box> starting;
    for (const Part& stair : building.stairs) {
      if (stair.heights.low > height || stair.heights.low < level - kFloorBelow) continue;
      AddFaces(stair, level - kFloorBelow, height, &plan->treads);
      AddFaces(stair, height, level + kStairReach, &plan->treadsAbove);
      starting.push_back(BoxOf(stair));
    }
    for (const Part& stair : building.stairs) {
      const Box box = BoxOf(stair);
      const bool covered = std::any_of(starting.begin(), starting.end(), [&](const Box& b) { return b.Meets(box); });
      if (stair.heights.low < level - kFloorBelow && !covered) {
        AddFaces(stair, level - kStairReach, height, &plan->treads);
      }
    }
  }

  static Box BoxOf(const Part& part) {
    Box box;
    for (const Body& body : part.bodies) box.Take({HullOf(body)});
    return box;
  }

  // Each body covers what is below it, so the outlines are drawn from the lowest to the highest.
  void AddFurniture(FloorPlan* plan) const {
    std::vector<std::pair<double, Polygon>> outlines;
    for (const Part& piece : building.furniture) {
      if (piece.heights.low < plan->elevation - kFloorBelow || piece.heights.low > height) continue;
      for (const Body& body : piece.bodies) outlines.emplace_back(HeightsOf({body}).high, HullOf(body));
    }
    std::stable_sort(outlines.begin(), outlines.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [top, outline] : outlines) plan->furniture.push_back(std::move(outline));
  }

  // Of surfaces in one place, as the upper and the lower one of a step, only the uppermost is seen.
  static void AddFaces(const Part& part, double low, double high, std::vector<Region>* surfaces) {
    for (const Body& body : part.bodies) {
      const std::vector<Region> levels = LevelFaces(body, low, high);
      for (std::size_t i = 0; i < levels.size(); ++i) {
        const bool isHidden = std::any_of(levels.begin() + static_cast<std::ptrdiff_t>(i) + 1, levels.end(),
                                          [&](const Region& above) { return HaveOnePlace(levels[i], above); });
        if (!isHidden) surfaces->push_back(levels[i]);
      }
    }
  }

  static bool HaveOnePlace(const Region& a, const Region& b) {
    Box first, second;
    first.Take(a);
    second.Take(b);
    return Length(first.low - second.low) < kOneEdge && Length(first.high - second.high) < kOneEdge;
  }

  const Building& building;
  double height = 0;  // of the plane
};

}  // namespace

// Two leaves need half the width each; a door that swings both ways needs it on both sides.
Box DoorSymbol::Swing() const {
  const double width = hole.right - hole.left;
  const bool twoLeaves = leaves >= Leaves::kTwo && leaves <= Leaves::kTwoOppositeRight;
  const bool bothWays =
      leaves == Leaves::kBothWaysLeft || leaves == Leaves::kBothWaysRight || (twoLeaves && leaves != Leaves::kTwo);
  const bool slides = leaves >= Leaves::kSlideLeft;
  const double reach = slides ? 0.1 : twoLeaves ? width / 2 : width;
  Box box;
  for (const double along : {hole.left, hole.right}) {
    box.Take(hole.At(along, hole.front + reach));
    box.Take(hole.At(along, hole.back - (bothWays ? reach : 0)));
  }
  return box;
}

Box FloorPlan::WallBounds() const {
  Box box;
  for (const Region& wall : walls) box.Take(wall);
  return box;
}

Box FloorPlan::Bounds() const {
  Box box = WallBounds();
  for (const Region& column : columns) box.Take(column);
  for (const Region& panel : panels) box.Take(panel);
  for (const Region& floor : floors) box.Take(floor);
  for (const RoomLabel& room : rooms) box.Take(room.region);
  for (const DoorSymbol& door : doors) {
    box.Take(door.Swing().low);
    box.Take(door.Swing().high);
  }
  return box;
}

std::vector<FloorPlan> FloorPlans(const Building& building) {
  Builder builder(building);
  std::vector<FloorPlan> plans;
  for (const Storey& storey : building.storeys) plans.push_back(builder.Of(storey));
  std::stable_sort(plans.begin(), plans.end(),
                   [](const FloorPlan& a, const FloorPlan& b) { return a.elevation < b.elevation; });
  return plans;
}

}  // namespace plan
