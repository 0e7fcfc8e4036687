#include "floor_plan.h"

#include <algorithm>
#include <utility>

#include "bodies.h"
#include "labels.h"
#include "relations.h"

namespace plan {
namespace {

// The plane lies a little off the round figure, so that it meets no corner of the model.
constexpr double kOffCorners = 0.00137;
// An opening as deep as its wall shares the wall's faces; grown a little it cuts through them.
constexpr double kOpeningGrowth = 0.001;
constexpr double kFloorBelow = 0.45, kFloorAbove = 0.15;  // where the slab of a storey lies, from its level
constexpr double kStairReach = 3.2;                       // how far below and above the level a stair is shown

struct Solid {
  Product* product = nullptr;
  std::vector<Body> bodies;
  Heights heights;
};

// All solids of a model that plans are made of, worked out once for all storeys.
class Builder {
 public:
  explicit Builder(STEPmodel& model) : relations(model), unit(MetresPerUnit(model)) {
    Collect<Wall>(model, &walls);
    Collect<Column>(model, &columns);
    Collect<Slab>(model, &slabs);
    Collect<Stair>(model, &stairs);
    Collect<StairFlight>(model, &stairs);
    Collect<Space>(model, &spaces);
    Collect<FurnishingElement>(model, &furniture);
  }

  FloorPlan Of(Storey& storey) {
    FloorPlan plan;
    plan.name = LabelOf(storey.name);
    plan.elevation = FrameOf(storey).origin.z * unit;
    height = plan.elevation + kCutAboveFloor + kOffCorners;
    for (const Solid& wall : walls) AddWall(wall, &plan);
    for (const Solid& column : columns) AddCut(SliceAll(column.bodies), &plan.columns);
    for (const Solid& space : spaces) AddRoom(space, &plan);
    if (!plan.IsEmpty()) AddSeen(&plan);
    return plan;
  }

 private:
  template <class T>
  void Collect(STEPmodel& model, std::vector<Solid>* solids) {
    ForEach<T>(model, [&](T& product) {
      std::vector<Body> bodies = BodiesOf(product, unit);
      if (bodies.empty()) return;
      const Heights heights = HeightsOf(bodies);
      solids->push_back({&product, std::move(bodies), heights});
    });
  }

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

  // A wall of several bodies has a region for each, since bodies that touch may overlap.
  void AddWall(const Solid& wall, FloorPlan* plan) {
    if (wall.heights.low > height || wall.heights.high < height) return;
    std::vector<Region> parts;
    for (const Body& body : wall.bodies) parts.push_back(Slice(body, height));
    const auto found = relations.openings.find(dynamic_cast<Element*>(wall.product));
    if (found != relations.openings.end()) {
      for (OpeningElement* opening : found->second) Pierce(*opening, &parts, plan);
    }
    for (Region& part : parts) AddCut(std::move(part), &plan->walls);
  }

  void Pierce(OpeningElement& opening, std::vector<Region>* parts, FloorPlan* plan) {
    const Polygon hull = Hull(SliceAll(BodiesOf(opening, unit)));
    if (hull.empty()) return;
    const Polygon grown = Grown(hull, kOpeningGrowth);
    Region hole;
    for (Region& part : *parts) {
      for (Polygon& polygon : Inside(part, grown)) hole.push_back(std::move(polygon));
      part = Outside(part, grown);
    }
    const auto filling = relations.filling.find(&opening);
    if (!hole.empty() && filling != relations.filling.end()) Fill(*filling->second, hole, plan);
  }

  // The hole in the axes of what fills it: x along the wall, and y to the side that a door opens to.
  void Fill(Element& filling, const Region& region, FloorPlan* plan) {
    const Frame frame = FrameOf(filling);
    const Vec3 x = Unit({frame.x.x, frame.x.y, 0}, {1, 0, 0});
    const Vec3 y = Unit({frame.y.x, frame.y.y, 0}, {-x.y, x.x, 0});
    WallHole hole;
    hole.origin = Vec2{frame.origin.x, frame.origin.y} * unit;
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
    if (dynamic_cast<Door*>(&filling)) plan->doors.push_back({hole, OperationOf(filling)});
    if (dynamic_cast<Window*>(&filling)) plan->windows.push_back(hole);
  }

  int OperationOf(Element& door) const {
    const auto found = relations.type.find(&door);
    const auto* style = found == relations.type.end() ? nullptr : dynamic_cast<DoorStyle*>(found->second);
    return style ? style->operation : kSingleSwingLeft;
  }

  void AddRoom(const Solid& solid, FloorPlan* plan) const {
    if (solid.heights.low > height || solid.heights.high < height) return;
    auto& space = dynamic_cast<Space&>(*solid.product);
    RoomLabel room;
    room.region = SliceAll(solid.bodies);
    if (room.region.empty()) return;
    room.number = LabelOf(space.name);
    room.name = LabelOf(space.longName);
    room.area = Area(room.region);
    plan->rooms.push_back(std::move(room));
  }

  // What is not cut, but seen from above.
  void AddSeen(FloorPlan* plan) const {
    const double level = plan->elevation;
    for (const Solid& slab : slabs) {
      if (dynamic_cast<Slab&>(*slab.product).predefinedType == kRoofSlab) continue;
      AddFaces(slab, level - kFloorBelow, level + kFloorAbove, &plan->floors);
    }
    AddFurniture(plan);
    AddStairs(plan);
  }

  // A stair that starts here is seen up to the cut, and dashed above it. One that comes up from below is seen as well,
  // unless another lies over it.
  void AddStairs(FloorPlan* plan) const {
    const double level = plan->elevation;
    std::vector<Box> starting;
    for (const Solid& stair : stairs) {
      if (stair.heights.low > height || stair.heights.low < level - kFloorBelow) continue;
      AddFaces(stair, level - kFloorBelow, height, &plan->treads);
      AddFaces(stair, height, level + kStairReach, &plan->treadsAbove);
      starting.push_back(BoxOf(stair));
    }
    for (const Solid& stair : stairs) {
      const Box box = BoxOf(stair);
      const bool covered = std::any_of(starting.begin(), starting.end(), [&](const Box& b) { return b.Meets(box); });
      if (stair.heights.low < level - kFloorBelow && !covered) {
        AddFaces(stair, level - kStairReach, height, &plan->treads);
      }
    }
  }

  static Box BoxOf(const Solid& solid) {
    Box box;
    for (const Body& body : solid.bodies) box.Take({HullOf(body)});
    return box;
  }

  // Each body covers what is below it, so the outlines are drawn from the lowest to the highest.
  void AddFurniture(FloorPlan* plan) const {
    std::vector<std::pair<double, Polygon>> outlines;
    for (const Solid& piece : furniture) {
      if (piece.heights.low < plan->elevation - kFloorBelow || piece.heights.low > height) continue;
      for (const Body& body : piece.bodies) outlines.emplace_back(HeightsOf({body}).high, HullOf(body));
    }
    std::stable_sort(outlines.begin(), outlines.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [top, outline] : outlines) plan->furniture.push_back(std::move(outline));
  }

  void AddFaces(const Solid& solid, double low, double high, std::vector<Region>* surfaces) const {
    for (const Body& body : solid.bodies) {
      for (Region& surface : LevelFaces(body, low, high)) surfaces->push_back(std::move(surface));
    }
  }

  Relations relations;
  double unit;
  double height = 0;  // of the plane
  std::vector<Solid> walls, columns, slabs, stairs, spaces, furniture;
};

}  // namespace

// Two leaves need half the width each; a door that swings both ways needs it on both sides.
Box DoorSymbol::Swing() const {
  const double width = hole.right - hole.left;
  const bool twoLeaves = operation >= kDoubleDoorSingleSwing && operation <= kDoubleDoorOppositeRight;
  const bool bothWays = operation >= kDoubleDoorOppositeLeft && operation <= kDoubleDoorDoubleSwing;
  const bool slides = operation >= kSlidingToLeft && operation <= kDoubleDoorSliding;
  const double reach = slides ? 0.1 : twoLeaves || operation == kDoubleDoorDoubleSwing ? width / 2 : width;
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
  for (const Region& floor : floors) box.Take(floor);
  for (const RoomLabel& room : rooms) box.Take(room.region);
  for (const DoorSymbol& door : doors) {
    box.Take(door.Swing().low);
    box.Take(door.Swing().high);
  }
  return box;
}

std::vector<FloorPlan> FloorPlans(STEPmodel& model) {
  Builder builder(model);
  std::vector<FloorPlan> plans;
  ForEach<Storey>(model, [&](Storey& storey) { plans.push_back(builder.Of(storey)); });
  std::stable_sort(plans.begin(), plans.end(),
                   [](const FloorPlan& a, const FloorPlan& b) { return a.elevation < b.elevation; });
  return plans;
}

}  // namespace plan
