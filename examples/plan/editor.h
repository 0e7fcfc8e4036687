// Editing a model: a wall is moved, and a door is set into it.
#ifndef PLAN_EDITOR_H
#define PLAN_EDITOR_H

#include <algorithm>
#include <cstdio>
#include <vector>

#include "building_model.h"
#include "building_reader.h"
#include "floor_plan.h"

namespace plan {

// Lengths in metres.
constexpr double kMove = 0.25;
constexpr double kNewDoorWidth = 0.9, kNewDoorHeight = 2.0, kNewLeafThickness = 0.05;
constexpr double kLeastLength = 1.4, kMostThickness = 0.6;  // of a wall that may take a door

// A stretch of a wall in the wall's own axes, in metres.
struct WallExtent {
  double left = 0, right = 0;  // along its x
  double back = 0, front = 0;  // along its y
  double Length() const { return right - left; }
  double Thickness() const { return front - back; }
};

// The longest stretch between the blocks of a wall, of which the first one and the last one are its ends.
inline WallExtent LongestStretch(std::vector<Box> blocks, const Box& wall) {
  std::sort(blocks.begin(), blocks.end(), [](const Box& a, const Box& b) { return a.low.x < b.low.x; });
  WallExtent extent = {0, 0, wall.low.y, wall.high.y};
  double free = wall.low.x;
  for (const Box& block : blocks) {
    if (block.IsEmpty()) continue;
    if (block.low.x - free > extent.Length()) extent = {free, block.low.x, wall.low.y, wall.high.y};
    free = std::max(free, block.high.x);
  }
  return extent;
}

// New instances join the current model, so the editor makes its model that for as long as it lives.
template <class Ifc>
class Editor {
 public:
  explicit Editor(typename Ifc::Model& model)
      : model_(model), units_(UnitsOf<Ifc>(model)), shapes_(units_), relations_(model), before_(CurrentModel()) {
    CurrentModel(&model);
  }
  ~Editor() { CurrentModel(before_); }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  EditResult Run() {
    EditResult result;
    WallExtent extent;
    auto* wall = FindWall(&extent);
    if (!wall) return result;
    auto* containment = relations_.In(relations_.containment, wall);
    result.wall = LabelOf(wall->Name.Get());
    result.storey = LabelOf(containment->RelatingStructure->Name.Get());
    MoveAcross(*wall);
    result.moved = kMove;
    AddDoor(*wall, extent, *containment);
    result.doorWidth = kNewDoorWidth;
    model_.SetChanged(true);
    return result;
  }

 private:
  using Wall = typename Ifc::Wall;
  using Containment = typename Ifc::RelContainedInSpatialStructure;

  // A wall without an opening if there is one, else one with space beside its openings.
  Wall* FindWall(WallExtent* extent) {
    for (const bool pierced : {false, true}) {
      for (Wall& wall : model_.template All<Wall>()) {
        if (relations_.In(relations_.openings, &wall).empty() == pierced) continue;
        if (Measure(wall, extent)) return &wall;
      }
    }
    return nullptr;
  }

  // The longest stretch of the wall that has no opening at the height of the cut. False if the wall belongs to no
  // storey, cannot be moved, has no simple shape there, is too thick, or has no stretch that is long enough.
  bool Measure(const Wall& wall, WallExtent* extent) {
    const auto* containment = relations_.In(relations_.containment, &wall);
    const auto* storey =
        containment ? dynamic_cast<typename Ifc::BuildingStorey*>(containment->RelatingStructure.Object()) : nullptr;
    if (!storey || !dynamic_cast<typename Ifc::LocalPlacement*>(wall.ObjectPlacement.Object())) return false;
    const double height = FrameOfProduct<Ifc>(*storey).origin.z * units_.metres + kCutAboveFloor;
    const std::vector<Body> bodies = shapes_.BodiesOf(wall);
    const Region region = bodies.size() == 1 ? Slice(bodies[0], height) : Region();
    if (region.size() != 1) return false;
    const Box box = InAxesOf(wall, region);
    std::vector<Box> blocks = {{box.low, box.low}, {box.high, box.high}};
    for (auto* opening : relations_.In(relations_.openings, &wall)) {
      for (const Body& body : shapes_.BodiesOf(*opening)) blocks.push_back(InAxesOf(wall, Slice(body, height)));
    }
    *extent = LongestStretch(blocks, box);
    return extent->Length() >= kLeastLength && extent->Thickness() <= kMostThickness;
  }

  Box InAxesOf(const Wall& wall, const Region& region) const {
    const Frame frame = FrameOfProduct<Ifc>(wall);
    Box box;
    for (const Polygon& polygon : region) {
      for (const Vec2 corner : polygon) {
        const Vec3 from = Vec3{corner.x, corner.y, 0} - frame.origin * units_.metres;
        box.Take(Vec2{Dot(from, frame.x), Dot(from, frame.y)});
      }
    }
    return box;
  }

  // Points and axes may be shared, so the wall gets new ones instead of a change to the old.
  void MoveAcross(Wall& wall) {
    auto& local = dynamic_cast<typename Ifc::LocalPlacement&>(*wall.ObjectPlacement.Object());
    auto* old = dynamic_cast<typename Ifc::Axis2Placement3D*>(local.RelativePlacement.Object());
    auto* moved = NewPlacement(FrameOf<Ifc>(old).Place({0, kMove / units_.metres, 0}));
    if (old) {
      moved->Axis = old->Axis.Get();
      moved->RefDirection = old->RefDirection.Get();
    }
    local.RelativePlacement.SetObject(moved);
    wall.Changed();
  }

  void AddDoor(Wall& wall, const WallExtent& extent, Containment& containment) {
    const double unit = units_.metres;
    const double left = (extent.left + extent.right - kNewDoorWidth) / 2;
    auto* opening = NewElement<typename Ifc::OpeningElement>(
        wall, "Opening for the new door", wall.ObjectPlacement.Get(), {left / unit, extent.back / unit, 0});
    opening->Representation = NewBox(kNewDoorWidth, extent.Thickness(), kNewDoorHeight);
    auto* door = NewElement<typename Ifc::Door>(wall, "New door", opening->ObjectPlacement.Get(),
                                                {0, (extent.Thickness() - kNewLeafThickness) / unit, 0});
    door->Representation = NewBox(kNewDoorWidth, kNewLeafThickness, kNewDoorHeight);
    door->OverallHeight = kNewDoorHeight / unit;
    door->OverallWidth = kNewDoorWidth / unit;

    auto* voids = NewRoot<typename Ifc::RelVoidsElement>(wall);
    voids->RelatingBuildingElement = &wall;
    voids->RelatedOpeningElement = opening;
    auto* fills = NewRoot<typename Ifc::RelFillsElement>(wall);
    fills->RelatingOpeningElement = opening;
    fills->RelatedBuildingElement = door;
    containment.RelatedElements.Add(door);
  }

  template <class T>
  T* NewRoot(const Wall& beside) {
    auto* root = new T;
    char id[32];
    std::snprintf(id, sizeof id, "0PlanExample%010d", model_.GetEntId());
    root->GlobalId = id;
    root->OwnerHistory = beside.OwnerHistory.Get();
    return root;
  }

  template <class T>
  T* NewElement(const Wall& beside, const char* name, typename Ifc::ObjectPlacement* base, Vec3 place) {
    T* element = NewRoot<T>(beside);
    auto* placement = new typename Ifc::LocalPlacement;
    placement->PlacementRelTo = base;
    placement->RelativePlacement.SetObject(NewPlacement(place));
    element->Name = name;
    element->ObjectPlacement = placement;
    return element;
  }

  typename Ifc::Axis2Placement3D* NewPlacement(Vec3 place) {
    auto* point = new typename Ifc::CartesianPoint;
    for (const double coordinate : {place.x, place.y, place.z}) point->Coordinates.Add(coordinate);
    auto* placement = new typename Ifc::Axis2Placement3D;
    placement->Location = point;
    return placement;
  }

  // A box with a corner at the origin, in metres.
  typename Ifc::ProductDefinitionShape* NewBox(double x, double y, double z) {
    auto* up = new typename Ifc::Direction;
    for (const double ratio : {0, 0, 1}) up->DirectionRatios.Add(ratio);
    auto* solid = new typename Ifc::ExtrudedAreaSolid;
    solid->SweptArea = NewRectangle(x / units_.metres, y / units_.metres);
    solid->Position = NewPlacement({});
    solid->ExtrudedDirection = up;
    solid->Depth = z / units_.metres;
    auto* representation = new typename Ifc::ShapeRepresentation;
    auto* any = First<typename Ifc::ShapeRepresentation>(model_);
    representation->ContextOfItems = any->ContextOfItems.Get();
    representation->RepresentationIdentifier = "Body";
    representation->RepresentationType = "SweptSolid";
    representation->Items.Add(solid);
    auto* shape = new typename Ifc::ProductDefinitionShape;
    shape->Representations.Add(representation);
    return shape;
  }

  // A rectangle is about its own middle, so it is moved by half its size.
  typename Ifc::RectangleProfileDef* NewRectangle(double x, double y) {
    auto* middle = new typename Ifc::CartesianPoint;
    for (const double coordinate : {x / 2, y / 2}) middle->Coordinates.Add(coordinate);
    auto* position = new typename Ifc::Axis2Placement2D;
    position->Location = middle;
    auto* profile = new typename Ifc::RectangleProfileDef;
    profile->ProfileType = Ifc::ProfileTypeEnum::AREA;
    profile->Position = position;
    profile->XDim = x;
    profile->YDim = y;
    return profile;
  }

  typename Ifc::Model& model_;
  const Units units_;
  const ShapeReader<Ifc> shapes_;
  const Relations<Ifc> relations_;
  STEPmodel* const before_;
};

}  // namespace plan

#endif
