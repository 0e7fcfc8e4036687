// From the classes of a schema to the structs of building.h.
#ifndef PLAN_BUILDING_READER_H
#define PLAN_BUILDING_READER_H

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "building.h"
#include "labels.h"
#include "shapes.h"

namespace plan {

// The leaves of a door by the name of its operation, which the schemas spell alike.
inline Leaves LeavesOf(std::string_view operation) {
  static constexpr std::pair<std::string_view, Leaves> kNames[] = {
      {".SINGLE_SWING_RIGHT.", Leaves::kSwingRight},
      {".DOUBLE_SWING_LEFT.", Leaves::kBothWaysLeft},
      {".DOUBLE_SWING_RIGHT.", Leaves::kBothWaysRight},
      {".DOUBLE_DOOR_SINGLE_SWING.", Leaves::kTwo},
      {".DOUBLE_DOOR_DOUBLE_SWING.", Leaves::kTwoBothWays},
      {".DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_LEFT.", Leaves::kTwoOppositeLeft},
      {".DOUBLE_DOOR_SINGLE_SWING_OPPOSITE_RIGHT.", Leaves::kTwoOppositeRight},
      {".SLIDING_TO_LEFT.", Leaves::kSlideLeft},
      {".SLIDING_TO_RIGHT.", Leaves::kSlideRight},
      {".DOUBLE_DOOR_SLIDING.", Leaves::kSlideTwo},
  };
  for (const auto& [name, leaves] : kNames) {
    if (name == operation) return leaves;
  }
  return Leaves::kSwingLeft;
}

// The name of an enumerator with its dots; empty if there is none.
template <class E>
std::string_view NameOf(const steprt::Enumeration<E>& value) {
  return value.IsPresent() ? NamesOf(value.Get()).names[static_cast<int>(value.Get())] : std::string_view();
}

// The relations of a population, turned round.
template <class Ifc>
struct Relations {
  explicit Relations(typename Ifc::Model& model) {
    for (auto& voids : model.template All<typename Ifc::RelVoidsElement>()) {
      auto* opening = dynamic_cast<typename Ifc::OpeningElement*>(voids.RelatedOpeningElement.Object());
      if (opening) openings[voids.RelatingBuildingElement.Object()].push_back(opening);
    }
    for (auto& fills : model.template All<typename Ifc::RelFillsElement>()) {
      filling[fills.RelatingOpeningElement.Object()] = fills.RelatedBuildingElement.Get();
    }
    for (auto& defines : model.template All<typename Ifc::RelDefinesByType>()) {
      for (auto& object : defines.RelatedObjects) type[&object] = defines.RelatingType.Object();
    }
    for (auto& contains : model.template All<typename Ifc::RelContainedInSpatialStructure>()) {
      for (auto& product : contains.RelatedElements) containment[&product] = &contains;
    }
    for (auto& aggregates : model.template All<typename Ifc::RelAggregates>()) {
      for (auto& object : aggregates.RelatedObjects) parts[aggregates.RelatingObject.Object()].push_back(&object);
    }
  }

  // What a map has for a key; a value of its own kind that is empty if there is none.
  template <class Map>
  static typename Map::mapped_type In(const Map& map, const STEPheader* key) {
    const auto found = map.find(key);
    return found == map.end() ? typename Map::mapped_type() : found->second;
  }

  std::unordered_map<const STEPheader*, std::vector<typename Ifc::OpeningElement*>> openings;  // of a wall or slab
  std::unordered_map<const STEPheader*, typename Ifc::Element*> filling;                       // of an opening
  std::unordered_map<const STEPheader*, STEPheader*> type;
  std::unordered_map<const STEPheader*, typename Ifc::RelContainedInSpatialStructure*> containment;
  std::unordered_map<const STEPheader*, std::vector<STEPheader*>> parts;  // what a whole is made of
};

// The first instance of a class; null if there is none.
template <class T, class Model>
T* First(Model& model) {
  for (T& instance : model.template All<T>()) return &instance;
  return nullptr;
}

// Those of the project or, if it names none, the first ones.
template <class Ifc>
Units UnitsOf(typename Ifc::Model& model) {
  const auto* project = First<typename Ifc::Project>(model);
  const auto* assignment = project ? project->UnitsInContext.Get() : nullptr;
  if (!assignment) assignment = First<typename Ifc::UnitAssignment>(model);
  return assignment ? UnitsOf<Ifc>(*assignment) : Units();
}

template <class Ifc>
class BuildingReader {
 public:
  explicit BuildingReader(typename Ifc::Model& model)
      : model_(model), units_(UnitsOf<Ifc>(model)), shapes_(units_), relations_(model) {}

  Building Read() {
    Building building;
    ReadProject(&building);
    for (auto& storey : model_.template All<typename Ifc::BuildingStorey>()) {
      const std::string name = LabelOf(storey.Name.Get());
      const std::string number = std::to_string(building.storeys.size() + 1);
      const double elevation = FrameOfProduct<Ifc>(storey).origin.z * units_.metres;
      const double level = storey.Elevation.Or(elevation / units_.metres) * units_.metres;
      building.storeys.push_back({name.empty() ? "Storey " + number : name, elevation, level});
    }
    for (auto& wall : model_.template All<typename Ifc::Wall>()) ReadWall(wall, &building);
    for (auto& slab : model_.template All<typename Ifc::Slab>()) {
      if (NameOf(slab.PredefinedType) != ".ROOF.") Take(slab, &building.floors);
    }
    for (auto& space : model_.template All<typename Ifc::Space>()) {
      if (!Take(space, &building.rooms)) continue;
      building.rooms.back().number = LabelOf(space.Name.Get());
      building.rooms.back().name = LabelOf(space.LongName.Get());
    }
    TakeAll<typename Ifc::Column>(&building.columns);
    TakeAll<typename Ifc::Stair>(&building.stairs);
    TakeAll<typename Ifc::StairFlight>(&building.stairs);
    TakeAll<typename Ifc::Plate>(&building.panels);
    TakeAll<typename Ifc::Member>(&building.panels);
    TakeAll<typename Ifc::FurnishingElement>(&building.furniture);
    return building;
  }

 private:
  void ReadProject(Building* building) {
    const auto* project = First<typename Ifc::Project>(model_);
    if (!project) return;
    building->name = LabelOf(*project->LongName.Get() ? project->LongName.Get() : project->Name.Get());
    for (auto& context : model_.template All<typename Ifc::GeometricRepresentationContext>()) {
      const auto* north = context.TrueNorth.Get();
      const Vec3 direction = DirectionOf(north, {0, 1, 0});
      if (!north || building->knowsNorth) continue;
      building->knowsNorth = true;
      building->north = {direction.x, direction.y};
    }
  }

  // Adds the product if it has a shape, be it by its parts. False if it has none.
  template <class T>
  bool Take(const typename Ifc::Product& product, std::vector<T>* parts) {
    T part;
    part.bodies = shapes_.BodiesOf(product);
    if (part.bodies.empty()) TakeParts(product, &part.bodies);
    if (part.bodies.empty()) return false;
    part.heights = HeightsOf(part.bodies);
    parts->push_back(std::move(part));
    return true;
  }

  template <class T>
  void TakeAll(std::vector<Part>* parts) {
    for (T& product : model_.template All<T>()) Take(product, parts);
  }

  // Flights of stairs are taken for themselves.
  void TakeParts(const typename Ifc::Product& product, std::vector<Body>* bodies) {
    for (const STEPheader* object : relations_.In(relations_.parts, &product)) {
      const auto* part = dynamic_cast<const typename Ifc::Product*>(object);
      if (!part || dynamic_cast<const typename Ifc::StairFlight*>(part)) continue;
      for (Body& body : shapes_.BodiesOf(*part)) bodies->push_back(std::move(body));
    }
  }

  void ReadWall(const typename Ifc::Wall& wall, Building* building) {
    if (!Take(wall, &building->walls)) return;
    for (auto* element : relations_.In(relations_.openings, &wall)) {
      std::vector<Opening>& openings = building->walls.back().openings;
      if (Take(*element, &openings)) ReadFilling(*element, &openings.back().filling);
    }
  }

  void ReadFilling(const typename Ifc::OpeningElement& opening, Filling* filling) {
    const auto* element = relations_.In(relations_.filling, &opening);
    if (!element) return;
    filling->frame = FrameOfProduct<Ifc>(*element);
    filling->frame.origin = filling->frame.origin * units_.metres;
    if (dynamic_cast<const typename Ifc::Window*>(element)) filling->kind = Filling::Kind::kWindow;
    const auto* door = dynamic_cast<const typename Ifc::Door*>(element);
    if (!door) return;
    filling->kind = Filling::Kind::kDoor;
    filling->leaves = LeavesOf(Ifc::OperationOf(*door, relations_.In(relations_.type, door)));
  }

  typename Ifc::Model& model_;
  const Units units_;
  const ShapeReader<Ifc> shapes_;
  const Relations<Ifc> relations_;
};

}  // namespace plan

#endif
