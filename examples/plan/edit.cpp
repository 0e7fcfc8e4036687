#include "edit.h"

#include <algorithm>
#include <cstdio>

#include "bodies.h"
#include "labels.h"
#include "relations.h"

namespace plan {
namespace {

constexpr double kMove = 0.25;                              // metres
constexpr double kDoorWidth = 0.9, kDoorHeight = 2.0;       // metres
constexpr double kLeafThickness = 0.05;                     // metres
constexpr double kLeastLength = 1.4, kMostThickness = 0.6;  // of a wall that may take a door, metres

// A stretch of a wall in the wall's own axes, in metres.
struct WallExtent {
  double left = 0, right = 0;  // along its x
  double back = 0, front = 0;  // along its y
  double Length() const { return right - left; }
  double Thickness() const { return front - back; }
};

class Editor {
 public:
  explicit Editor(STEPmodel& target) : model(target), relations(target), unit(MetresPerUnit(target)) {}

  EditResult Run() {
    EditResult result;
    WallExtent extent;
    Wall* wall = FindWall(&extent);
    if (!wall) return result;
    result.wall = LabelOf(wall->name);
    RelContainedInSpatialStructure* containment = relations.containment[wall];
    result.storey = LabelOf(containment->structure.Get()->name);
    if (MoveAcross(*wall)) result.moved = kMove;
    if (AddDoor(*wall, extent, *containment)) result.doorWidth = kDoorWidth;
    model.SetChanged(true);
    return result;
  }

 private:
  // A wall without an opening if there is one, else one with room beside its openings.
  Wall* FindWall(WallExtent* extent) {
    Wall* found = nullptr;
    for (const bool pierced : {false, true}) {
      ForEach<Wall>(model, [&](Wall& wall) {
        if (found || (relations.openings.count(&wall) > 0) != pierced) return;
        const auto containment = relations.containment.find(&wall);
        if (containment == relations.containment.end()) return;
        const auto* storey = dynamic_cast<Storey*>(containment->second->structure.Get());
        if (storey && Measure(wall, FrameOf(*storey).origin.z * unit + kCutAboveFloor, extent)) found = &wall;
      });
    }
    return found;
  }

  // The longest stretch of the wall that has no opening at a height; false if the wall has no simple shape there, is
  // too thick, or has no stretch that is long enough.
  bool Measure(Wall& wall, double height, WallExtent* extent) {
    const std::vector<Body> bodies = BodiesOf(wall, unit);
    if (bodies.size() != 1) return false;
    const Region region = Slice(bodies[0], height);
    if (region.size() != 1) return false;
    const Box box = InAxesOf(wall, region);
    std::vector<Box> blocks = {{box.low, box.low}, {box.high, box.high}};
    for (OpeningElement* opening : relations.openings[&wall]) {
      for (const Body& body : BodiesOf(*opening, unit)) blocks.push_back(InAxesOf(wall, Slice(body, height)));
    }
    std::sort(blocks.begin(), blocks.end(), [](const Box& a, const Box& b) { return a.low.x < b.low.x; });
    *extent = {0, 0, box.low.y, box.high.y};
    double free = box.low.x;
    for (const Box& block : blocks) {
      if (block.IsEmpty()) continue;
      if (block.low.x - free > extent->Length()) *extent = {free, block.low.x, box.low.y, box.high.y};
      free = std::max(free, block.high.x);
    }
    return extent->Length() >= kLeastLength && extent->Thickness() <= kMostThickness;
  }

  Box InAxesOf(const Wall& wall, const Region& region) const {
    const Frame frame = FrameOf(wall);
    Box box;
    for (const Polygon& polygon : region) {
      for (const Vec2 corner : polygon) {
        const Vec3 from = Vec3{corner.x, corner.y, 0} - frame.origin * unit;
        box.Take(Vec2{Dot(from, frame.x), Dot(from, frame.y)});
      }
    }
    return box;
  }

  // Points and placements may be shared, so the wall gets new ones instead of a change to the old.
  bool MoveAcross(Wall& wall) {
    auto* placement = dynamic_cast<LocalPlacement*>(wall.placement.Get());
    if (!placement) return false;
    auto* old = dynamic_cast<Axis2Placement3D*>(placement->relativePlacement.object);
    const Frame frame = FrameOf(old);
    Axis2Placement3D* moved = NewPlacement(frame.Place({0, kMove / unit, 0}));
    if (!moved) return false;
    if (old) {
      moved->axis = old->axis;
      moved->refDirection = old->refDirection;
    }
    placement->relativePlacement = moved;
    wall.Changed();
    return true;
  }

  bool AddDoor(Wall& wall, const WallExtent& extent, RelContainedInSpatialStructure& containment) {
    const double middle = (extent.left + extent.right) / 2;
    const Vec3 corner{(middle - kDoorWidth / 2) / unit, extent.back / unit, 0};
    auto* opening = NewElement<OpeningElement>(wall, "Opening for the new door", wall.placement, corner);
    if (!opening) return false;
    opening->representation = NewBox(kDoorWidth, extent.Thickness(), kDoorHeight);

    const Vec3 frontFace{0, (extent.Thickness() - kLeafThickness) / unit, 0};
    auto* door = NewElement<Door>(wall, "New door", opening->placement, frontFace);
    if (!door) return false;
    door->representation = NewBox(kDoorWidth, kLeafThickness, kDoorHeight);
    door->overallHeight.SetReal(kDoorHeight / unit);
    door->overallWidth.SetReal(kDoorWidth / unit);
    if (!Relate(wall, *opening, *door)) return false;
    containment.elements.Add(door);
    return true;
  }

  bool Relate(Wall& wall, OpeningElement& opening, Door& door) {
    auto* voids = NewRoot<RelVoidsElement>(wall, "");
    auto* fills = NewRoot<RelFillsElement>(wall, "");
    if (!voids || !fills) return false;
    voids->element = &wall;
    voids->opening = &opening;
    fills->opening = &opening;
    fills->element = &door;
    return true;
  }

  template <class T>
  T* NewRoot(const Root& beside, const char* name) {
    T* root = Make<T>();
    if (!root) return nullptr;
    char id[32];
    std::snprintf(id, sizeof id, "0PlanExample%010d", model.GetEntId());
    root->globalId = id;
    root->ownerHistory = beside.ownerHistory;
    root->name = name;
    return root;
  }

  template <class T>
  T* NewElement(const Root& beside, const char* name, const Ref<ObjectPlacement>& base, Vec3 place) {
    T* element = NewRoot<T>(beside, name);
    auto* placement = Make<LocalPlacement>();
    if (!element || !placement) return nullptr;
    placement->relativeTo = base;
    placement->relativePlacement = NewPlacement(place);
    element->placement = placement;
    return element;
  }

  Axis2Placement3D* NewPlacement(Vec3 place) {
    auto* point = Make<CartesianPoint>();
    auto* placement = Make<Axis2Placement3D>();
    if (!point || !placement) return nullptr;
    for (const double coordinate : {place.x, place.y, place.z}) point->coordinates.Add(coordinate);
    placement->location = point;
    return placement;
  }

  // A box with a corner at the origin, in metres.
  ProductDefinitionShape* NewBox(double x, double y, double z) {
    auto* solid = Make<ExtrudedAreaSolid>();
    auto* up = Make<Direction>();
    auto* representation = Make<ShapeRepresentation>();
    auto* shape = Make<ProductDefinitionShape>();
    RectangleProfileDef* profile = NewRectangle(x / unit, y / unit);
    if (!solid || !up || !representation || !shape || !profile) return nullptr;
    for (const double ratio : {0, 0, 1}) up->ratios.Add(ratio);
    solid->sweptArea = profile;
    solid->position = NewPlacement({});
    solid->direction = up;
    solid->depth = z / unit;
    if (ShapeRepresentation* any = First<ShapeRepresentation>(model)) representation->context = any->context;
    representation->identifier = "Body";
    representation->representationType = "SweptSolid";
    representation->items.Add(solid);
    shape->representations.Add(representation);
    return shape;
  }

  // A rectangle lies about its own middle, so it is moved by half its size.
  RectangleProfileDef* NewRectangle(double x, double y) {
    auto* profile = Make<RectangleProfileDef>();
    auto* position = Make<Axis2Placement2D>();
    auto* middle = Make<CartesianPoint>();
    if (!profile || !position || !middle) return nullptr;
    for (const double coordinate : {x / 2, y / 2}) middle->coordinates.Add(coordinate);
    position->location = middle;
    profile->profileType = kAreaProfile;
    profile->position = position;
    profile->xDim = x;
    profile->yDim = y;
    return profile;
  }

  STEPmodel& model;
  Relations relations;
  double unit;
};

}  // namespace

// New instances join the current model, so that is this one for as long as the edit runs.
EditResult MoveWallAndAddDoor(STEPmodel& model) {
  STEPmodel* before = CurrentModel();
  CurrentModel(&model);
  const EditResult result = Editor(model).Run();
  CurrentModel(before);
  return result;
}

}  // namespace plan
