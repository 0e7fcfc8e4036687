#include "described.h"

#include <charconv>
#include <functional>
#include <string>
#include <vector>

#include "building.h"

namespace bench {
namespace described {

using steprt::AbstractEntity;
using steprt::Description;
using steprt::Entity;
using steprt::Integer;
using steprt::List;
using steprt::Real;
using steprt::Ref;
using steprt::Text;

enum class ChangeAction {};
enum class Composition {};
enum class ProfileType {};
steprt::EnumeratorNames NamesOf(ChangeAction) { return {kChangeActions, kChangeActionCount}; }
steprt::EnumeratorNames NamesOf(Composition) { return {kCompositions, kCompositionCount}; }
steprt::EnumeratorNames NamesOf(ProfileType) { return {kProfileTypes, kProfileTypeCount}; }

struct OwnerHistory : Entity<OwnerHistory, kOwnerHistory> {
  static constexpr const char* kKeyword = "IFCOWNERHISTORY";
  steprt::Enumeration<ChangeAction> Action;
  Integer CreationDate;
  void Describe(Description& d) override { d("ChangeAction", Action)("CreationDate", CreationDate); }
};

struct RepresentationItem : AbstractEntity<RepresentationItem, kRepresentationItem> {
  static constexpr const char* kKeyword = "IFCREPRESENTATIONITEM";
};
struct GeometricItem : AbstractEntity<GeometricItem, kGeometricItem, RepresentationItem> {
  static constexpr const char* kKeyword = "IFCGEOMETRICREPRESENTATIONITEM";
};
struct Point : AbstractEntity<Point, kPoint, GeometricItem> {
  static constexpr const char* kKeyword = "IFCPOINT";
};
struct CartesianPoint : Entity<CartesianPoint, kCartesianPoint, Point> {
  static constexpr const char* kKeyword = "IFCCARTESIANPOINT";
  List<Real> Coordinates;
  void Describe(Description& d) override { d("Coordinates", Coordinates); }
};
struct Direction : Entity<Direction, kDirection, GeometricItem> {
  static constexpr const char* kKeyword = "IFCDIRECTION";
  List<Real> DirectionRatios;
  void Describe(Description& d) override { d("DirectionRatios", DirectionRatios); }
};
struct Curve : AbstractEntity<Curve, kCurve, GeometricItem> {
  static constexpr const char* kKeyword = "IFCCURVE";
};
struct BoundedCurve : AbstractEntity<BoundedCurve, kBoundedCurve, Curve> {
  static constexpr const char* kKeyword = "IFCBOUNDEDCURVE";
};
struct Polyline : Entity<Polyline, kPolyline, BoundedCurve> {
  static constexpr const char* kKeyword = "IFCPOLYLINE";
  List<Ref<CartesianPoint>> Points;
  void Describe(Description& d) override { d("Points", Points); }
};
struct Placement : AbstractEntity<Placement, kPlacement, GeometricItem> {
  static constexpr const char* kKeyword = "IFCPLACEMENT";
};
struct Axis2Placement3D : Entity<Axis2Placement3D, kAxis2Placement3D, Placement> {
  static constexpr const char* kKeyword = "IFCAXIS2PLACEMENT3D";
  Ref<CartesianPoint> Location;
  Ref<Direction> Axis;
  Ref<Direction> RefDirection;
  void Describe(Description& d) override { d("Location", Location)("Axis", Axis)("RefDirection", RefDirection); }
};

struct ProfileDef : AbstractEntity<ProfileDef, kProfileDef> {
  static constexpr const char* kKeyword = "IFCPROFILEDEF";
  steprt::Enumeration<bench::described::ProfileType> Type;
  Text ProfileName;
  void Describe(Description& d) override { d("ProfileType", Type)("ProfileName", ProfileName); }
};
struct ArbitraryClosedProfile : Entity<ArbitraryClosedProfile, kArbitraryClosedProfile, ProfileDef> {
  static constexpr const char* kKeyword = "IFCARBITRARYCLOSEDPROFILEDEF";
  Ref<Curve> OuterCurve;
  void Describe(Description& d) override {
    Super::Describe(d);
    d("OuterCurve", OuterCurve);
  }
};
struct SolidModel : AbstractEntity<SolidModel, kSolidModel, GeometricItem> {
  static constexpr const char* kKeyword = "IFCSOLIDMODEL";
};
struct SweptAreaSolid : AbstractEntity<SweptAreaSolid, kSweptAreaSolid, SolidModel> {
  static constexpr const char* kKeyword = "IFCSWEPTAREASOLID";
  Ref<ProfileDef> SweptArea;
  Ref<Axis2Placement3D> Position;
  void Describe(Description& d) override { d("SweptArea", SweptArea)("Position", Position); }
};
struct ExtrudedAreaSolid : Entity<ExtrudedAreaSolid, kExtrudedAreaSolid, SweptAreaSolid> {
  static constexpr const char* kKeyword = "IFCEXTRUDEDAREASOLID";
  Ref<Direction> ExtrudedDirection;
  Real Depth;
  void Describe(Description& d) override {
    Super::Describe(d);
    d("ExtrudedDirection", ExtrudedDirection)("Depth", Depth);
  }
};

struct RepresentationContext : AbstractEntity<RepresentationContext, kRepresentationContext> {
  static constexpr const char* kKeyword = "IFCREPRESENTATIONCONTEXT";
};
struct GeometricContext : Entity<GeometricContext, kGeometricContext, RepresentationContext> {
  static constexpr const char* kKeyword = "IFCGEOMETRICREPRESENTATIONCONTEXT";
  Text ContextType;
  Integer CoordinateSpaceDimension;
  Real Precision;
  void Describe(Description& d) override {
    d("ContextType", ContextType)("CoordinateSpaceDimension", CoordinateSpaceDimension)("Precision", Precision);
  }
};
struct Representation : AbstractEntity<Representation, kRepresentation> {
  static constexpr const char* kKeyword = "IFCREPRESENTATION";
  Ref<RepresentationContext> ContextOfItems;
  Text RepresentationIdentifier;
  Text RepresentationType;
  List<Ref<RepresentationItem>> Items;
  void Describe(Description& d) override {
    d("ContextOfItems", ContextOfItems)("RepresentationIdentifier", RepresentationIdentifier);
    d("RepresentationType", RepresentationType)("Items", Items);
  }
};
struct ShapeModel : AbstractEntity<ShapeModel, kShapeModel, Representation> {
  static constexpr const char* kKeyword = "IFCSHAPEMODEL";
};
struct ShapeRepresentation : Entity<ShapeRepresentation, kShapeRepresentation, ShapeModel> {
  static constexpr const char* kKeyword = "IFCSHAPEREPRESENTATION";
};
struct ProductRepresentation : AbstractEntity<ProductRepresentation, kProductRepresentation> {
  static constexpr const char* kKeyword = "IFCPRODUCTREPRESENTATION";
  Text Name;
  Text Description;
  List<Ref<Representation>> Representations;
  void Describe(steprt::Description& d) override {
    d("Name", Name)("Description", Description)("Representations", Representations);
  }
};
struct ProductDefinitionShape : Entity<ProductDefinitionShape, kProductDefinitionShape, ProductRepresentation> {
  static constexpr const char* kKeyword = "IFCPRODUCTDEFINITIONSHAPE";
};

struct ObjectPlacement : AbstractEntity<ObjectPlacement, kObjectPlacement> {
  static constexpr const char* kKeyword = "IFCOBJECTPLACEMENT";
};
struct LocalPlacement : Entity<LocalPlacement, kLocalPlacement, ObjectPlacement> {
  static constexpr const char* kKeyword = "IFCLOCALPLACEMENT";
  Ref<ObjectPlacement> PlacementRelTo;
  Ref<Placement> RelativePlacement;
  void Describe(Description& d) override {
    d("PlacementRelTo", PlacementRelTo)("RelativePlacement", RelativePlacement);
  }
};

struct Root : AbstractEntity<Root, kRoot> {
  static constexpr const char* kKeyword = "IFCROOT";
  Text GlobalId;
  Ref<OwnerHistory> Owner;
  void Describe(Description& d) override { d("GlobalId", GlobalId)("OwnerHistory", Owner); }
};
struct Object : AbstractEntity<Object, kObject, Root> {
  static constexpr const char* kKeyword = "IFCOBJECT";
  Text Name;
  void Describe(Description& d) override {
    Super::Describe(d);
    d("Name", Name);
  }
};
struct Product : AbstractEntity<Product, kProduct, Object> {
  static constexpr const char* kKeyword = "IFCPRODUCT";
};
struct Element : AbstractEntity<Element, kElement, Product> {
  static constexpr const char* kKeyword = "IFCELEMENT";
};
struct BuildingElement : AbstractEntity<BuildingElement, kBuildingElement, Element> {
  static constexpr const char* kKeyword = "IFCBUILDINGELEMENT";
};
struct Wall : AbstractEntity<Wall, kWall, BuildingElement> {
  static constexpr const char* kKeyword = "IFCWALL";
  Text Description;
  Text ObjectType;
  Ref<bench::described::ObjectPlacement> ObjectPlacement;
  Ref<ProductRepresentation> Representation;
  Text Tag;
  void Describe(steprt::Description& d) override {
    Super::Describe(d);
    d("Description", Description)("ObjectType", ObjectType)("ObjectPlacement", ObjectPlacement);
    d("Representation", Representation)("Tag", Tag);
  }
};
struct WallStandardCase : Entity<WallStandardCase, kWallStandardCase, Wall> {
  static constexpr const char* kKeyword = "IFCWALLSTANDARDCASE";
};
struct SpatialStructureElement : AbstractEntity<SpatialStructureElement, kSpatialStructureElement, Product> {
  static constexpr const char* kKeyword = "IFCSPATIALSTRUCTUREELEMENT";
  Ref<bench::described::ObjectPlacement> ObjectPlacement;
  steprt::Enumeration<Composition> CompositionType;
  void Describe(Description& d) override {
    Super::Describe(d);
    d("ObjectPlacement", ObjectPlacement)("CompositionType", CompositionType);
  }
};
struct BuildingStorey : Entity<BuildingStorey, kBuildingStorey, SpatialStructureElement> {
  static constexpr const char* kKeyword = "IFCBUILDINGSTOREY";
  Real Elevation;
  void Describe(Description& d) override {
    Super::Describe(d);
    d("Elevation", Elevation);
  }
};
struct Relationship : AbstractEntity<Relationship, kRelationship, Root> {
  static constexpr const char* kKeyword = "IFCRELATIONSHIP";
};
struct RelConnects : AbstractEntity<RelConnects, kRelConnects, Relationship> {
  static constexpr const char* kKeyword = "IFCRELCONNECTS";
};
struct RelContained : Entity<RelContained, kRelContained, RelConnects> {
  static constexpr const char* kKeyword = "IFCRELCONTAINEDINSPATIALSTRUCTURE";
  List<Ref<Product>> RelatedElements;
  Ref<SpatialStructureElement> RelatingStructure;
  void Describe(Description& d) override {
    Super::Describe(d);
    d("RelatedElements", RelatedElements)("RelatingStructure", RelatingStructure);
  }
};

// In the order of the rows of building.cpp.
APPobject0* Schema() {
  static const auto used =
      steprt::Schema<Axis2Placement3D, ArbitraryClosedProfile, BoundedCurve, BuildingElement, BuildingStorey,
                     CartesianPoint, Curve, Direction, Element, ExtrudedAreaSolid, GeometricContext, GeometricItem,
                     LocalPlacement, Object, ObjectPlacement, OwnerHistory, Placement, Point, Polyline, Product,
                     ProductDefinitionShape, ProductRepresentation, ProfileDef, Relationship, RelConnects, RelContained,
                     Representation, RepresentationContext, RepresentationItem, Root, ShapeModel, ShapeRepresentation,
                     SolidModel, SpatialStructureElement, SweptAreaSolid, Wall, WallStandardCase>("IFC2X3");
  static const PaddedRows padded([] {
    std::vector<APPentity> rows(std::begin(used.more), std::end(used.more));
    rows.pop_back();
    rows.insert(rows.begin(), used.entities[0]);
    return rows;
  }());
  static APPtable schema("IFC2X3", padded.rows);
  return &schema;
}

}  // namespace described

namespace {

// Prints the attributes of a class of building.h as steprt::Print prints those of a described one.
class Printer {
 public:
  explicit Printer(std::string& out) : out_(out) {}

  void String(const char*, Text& text) {
    Separate();
    if (!text.chars) return void(out_ += '$');
    out_.append(1, '\'').append(text.chars).append(1, '\'');
  }
  void Integer(const char*, int& value) {
    Separate();
    out_ += std::to_string(value);
  }
  void Real(const char*, double& value) {
    char digits[32];
    Separate();
    out_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
  }
  void Enumerator(const char*, int& value, const char** names, int) {
    Separate();
    out_ += names[value];
  }
  void Reference(const char*, STEPheader*& slot, int) {
    Separate();
    if (!slot) return void(out_ += '$');
    out_.append(1, '#').append(std::to_string(slot->number));
  }
  void Reals(const char*, List& list) {
    PrintList(list, [this](STEPlist& node) { Real("", node.value.real); });
  }
  void References(const char*, List& list, int expected) {
    PrintList(list, [this, expected](STEPlist& node) { Reference("", node.value.object, expected); });
  }

 private:
  void Separate() {
    if (out_.back() != '(') out_ += ',';
  }
  template <typename PrintNode>
  void PrintList(List& list, PrintNode print) {
    Separate();
    out_ += '(';
    for (STEPlist* node = list.aggr ? list.aggr->head : nullptr; node; node = node->next) print(*node);
    out_ += ')';
  }
  std::string& out_;
};

std::string PrintBuildingObject(STEPheader* object) {
  std::string line;
  WithClass(object, [&](auto& entity) {
    line = std::string(entity.kKeyword) + '(';
    Printer printer(line);
    entity.Attributes(printer);
    line += ')';
  });
  return line;
}

// Of the lines that `print` prints, references by the place of what they point at.
template <typename Print>
std::uint64_t FingerprintOfLines(STEPheader* first, Print print) {
  int place = 0;
  for (STEPheader* object = first; object; object = object->next) object->number = ++place;
  std::uint64_t sum = 0;
  for (STEPheader* object = first; object; object = object->next) {
    sum = (sum ^ std::hash<std::string>()(print(object))) * 0x9e3779b97f4a7c15u;
  }
  return sum;
}

}  // namespace

DescribedModel::DescribedModel() : steprt::Model(described::Schema()) {}

std::uint64_t DescribedFingerprint(STEPheader* first) {
  return FingerprintOfLines(first, [](STEPheader* object) { return Print(*static_cast<steprt::Record*>(object)); });
}

std::uint64_t BuildingFingerprint(STEPheader* first) { return FingerprintOfLines(first, PrintBuildingObject); }

}  // namespace bench
