// The client of the benchmarks: entity classes shaped like those of a building model. Each class lists its attributes
// once; a visitor reads them, writes them or looks at them, through the library or past it.
#ifndef STEPRT_BENCH_BUILDING_H
#define STEPRT_BENCH_BUILDING_H

#include <steprt/step.h>

#include <array>
#include <span>

namespace bench {

// Type numbers. Those of the padding rows lie above.
enum Type : int {
  kRoot = 1,
  kObject,
  kProduct,
  kElement,
  kBuildingElement,
  kWall,
  kWallStandardCase,
  kSpatialStructureElement,
  kBuildingStorey,
  kRelationship,
  kRelConnects,
  kRelContained,
  kOwnerHistory,
  kObjectPlacement,
  kLocalPlacement,
  kProductRepresentation,
  kProductDefinitionShape,
  kRepresentation,
  kShapeModel,
  kShapeRepresentation,
  kRepresentationContext,
  kGeometricContext,
  kRepresentationItem,
  kGeometricItem,
  kPoint,
  kCartesianPoint,
  kDirection,
  kCurve,
  kBoundedCurve,
  kPolyline,
  kPlacement,
  kAxis2Placement3D,
  kSolidModel,
  kSweptAreaSolid,
  kExtrudedAreaSolid,
  kProfileDef,
  kArbitraryClosedProfile,
  kFirstPadding
};

// Enumerators, with their dots.
inline const char* kChangeActions[] = {".NOCHANGE.", ".MODIFIED.", ".ADDED.", ".DELETED."};
inline constexpr int kChangeActionCount = 4;
inline const char* kCompositions[] = {".COMPLEX.", ".ELEMENT.", ".PARTIAL."};
inline constexpr int kCompositionCount = 3;
inline const char* kProfileTypes[] = {".CURVE.", ".AREA."};
inline constexpr int kProfileTypeCount = 2;

// An owned text, null where the file says `$`.
struct Text {
  Text() = default;
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { delete[] chars; }
  char* chars = nullptr;
};

// An owned list of numbers or of references.
struct List {
  List() = default;
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() {
    if (!aggr) return;
    DeleteSTEPlist(&aggr->head);
    delete aggr;
  }
  STEPaggr* aggr = nullptr;
};

template <int kType>
struct Entity : STEPheader {
  Entity() : STEPheader(nullptr) { type = kType; }
};

struct CartesianPoint : Entity<kCartesianPoint> {
  static constexpr char kKeyword[] = "IFCCARTESIANPOINT";
  List coordinates;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Reals("Coordinates", coordinates);
  }
};

struct Direction : Entity<kDirection> {
  static constexpr char kKeyword[] = "IFCDIRECTION";
  List ratios;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Reals("DirectionRatios", ratios);
  }
};

struct Polyline : Entity<kPolyline> {
  static constexpr char kKeyword[] = "IFCPOLYLINE";
  List points;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.References("Points", points, kCartesianPoint);
  }
};

struct Axis2Placement3D : Entity<kAxis2Placement3D> {
  static constexpr char kKeyword[] = "IFCAXIS2PLACEMENT3D";
  STEPheader* location = nullptr;
  STEPheader* axis = nullptr;
  STEPheader* refDirection = nullptr;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Reference("Location", location, kCartesianPoint);
    v.Reference("Axis", axis, kDirection);
    v.Reference("RefDirection", refDirection, kDirection);
  }
};

struct LocalPlacement : Entity<kLocalPlacement> {
  static constexpr char kKeyword[] = "IFCLOCALPLACEMENT";
  STEPheader* placementRelTo = nullptr;
  STEPheader* relativePlacement = nullptr;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Reference("PlacementRelTo", placementRelTo, kObjectPlacement);
    v.Reference("RelativePlacement", relativePlacement, kPlacement);
  }
};

struct ArbitraryClosedProfile : Entity<kArbitraryClosedProfile> {
  static constexpr char kKeyword[] = "IFCARBITRARYCLOSEDPROFILEDEF";
  int profileType = 0;
  Text profileName;
  STEPheader* outerCurve = nullptr;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Enumerator("ProfileType", profileType, kProfileTypes, kProfileTypeCount);
    v.String("ProfileName", profileName);
    v.Reference("OuterCurve", outerCurve, kCurve);
  }
};

struct ExtrudedAreaSolid : Entity<kExtrudedAreaSolid> {
  static constexpr char kKeyword[] = "IFCEXTRUDEDAREASOLID";
  STEPheader* sweptArea = nullptr;
  STEPheader* position = nullptr;
  STEPheader* direction = nullptr;
  double depth = 0;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Reference("SweptArea", sweptArea, kProfileDef);
    v.Reference("Position", position, kAxis2Placement3D);
    v.Reference("ExtrudedDirection", direction, kDirection);
    v.Real("Depth", depth);
  }
};

struct ShapeRepresentation : Entity<kShapeRepresentation> {
  static constexpr char kKeyword[] = "IFCSHAPEREPRESENTATION";
  STEPheader* context = nullptr;
  Text identifier;
  Text representationType;
  List items;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Reference("ContextOfItems", context, kRepresentationContext);
    v.String("RepresentationIdentifier", identifier);
    v.String("RepresentationType", representationType);
    v.References("Items", items, kRepresentationItem);
  }
};

struct ProductDefinitionShape : Entity<kProductDefinitionShape> {
  static constexpr char kKeyword[] = "IFCPRODUCTDEFINITIONSHAPE";
  Text name;
  Text description;
  List representations;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.String("Name", name);
    v.String("Description", description);
    v.References("Representations", representations, kRepresentation);
  }
};

struct WallStandardCase : Entity<kWallStandardCase> {
  static constexpr char kKeyword[] = "IFCWALLSTANDARDCASE";
  Text globalId;
  STEPheader* ownerHistory = nullptr;
  Text name;
  Text description;
  Text objectType;
  STEPheader* placement = nullptr;
  STEPheader* representation = nullptr;
  Text tag;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.String("GlobalId", globalId);
    v.Reference("OwnerHistory", ownerHistory, kOwnerHistory);
    v.String("Name", name);
    v.String("Description", description);
    v.String("ObjectType", objectType);
    v.Reference("ObjectPlacement", placement, kObjectPlacement);
    v.Reference("Representation", representation, kProductRepresentation);
    v.String("Tag", tag);
  }
};

struct RelContained : Entity<kRelContained> {
  static constexpr char kKeyword[] = "IFCRELCONTAINEDINSPATIALSTRUCTURE";
  Text globalId;
  STEPheader* ownerHistory = nullptr;
  List elements;
  STEPheader* structure = nullptr;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.String("GlobalId", globalId);
    v.Reference("OwnerHistory", ownerHistory, kOwnerHistory);
    v.References("RelatedElements", elements, kProduct);
    v.Reference("RelatingStructure", structure, kSpatialStructureElement);
  }
};

struct BuildingStorey : Entity<kBuildingStorey> {
  static constexpr char kKeyword[] = "IFCBUILDINGSTOREY";
  Text globalId;
  STEPheader* ownerHistory = nullptr;
  Text name;
  STEPheader* placement = nullptr;
  int composition = 0;
  double elevation = 0;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.String("GlobalId", globalId);
    v.Reference("OwnerHistory", ownerHistory, kOwnerHistory);
    v.String("Name", name);
    v.Reference("ObjectPlacement", placement, kObjectPlacement);
    v.Enumerator("CompositionType", composition, kCompositions, kCompositionCount);
    v.Real("Elevation", elevation);
  }
};

struct OwnerHistory : Entity<kOwnerHistory> {
  static constexpr char kKeyword[] = "IFCOWNERHISTORY";
  int changeAction = 0;
  int creationDate = 0;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.Enumerator("ChangeAction", changeAction, kChangeActions, kChangeActionCount);
    v.Integer("CreationDate", creationDate);
  }
};

struct GeometricContext : Entity<kGeometricContext> {
  static constexpr char kKeyword[] = "IFCGEOMETRICREPRESENTATIONCONTEXT";
  Text contextType;
  int dimension = 0;
  double precision = 0;

  template <typename Visitor>
  void Attributes(Visitor& v) {
    v.String("ContextType", contextType);
    v.Integer("CoordinateSpaceDimension", dimension);
    v.Real("Precision", precision);
  }
};

// Calls `action` with the object as what it is, the commonest class first.
template <typename Action>
void WithClass(STEPheader* object, Action action) {
  switch (object->type) {
    case kCartesianPoint:
      return action(*static_cast<CartesianPoint*>(object));
    case kDirection:
      return action(*static_cast<Direction*>(object));
    case kPolyline:
      return action(*static_cast<Polyline*>(object));
    case kAxis2Placement3D:
      return action(*static_cast<Axis2Placement3D*>(object));
    case kLocalPlacement:
      return action(*static_cast<LocalPlacement*>(object));
    case kArbitraryClosedProfile:
      return action(*static_cast<ArbitraryClosedProfile*>(object));
    case kExtrudedAreaSolid:
      return action(*static_cast<ExtrudedAreaSolid*>(object));
    case kShapeRepresentation:
      return action(*static_cast<ShapeRepresentation*>(object));
    case kProductDefinitionShape:
      return action(*static_cast<ProductDefinitionShape*>(object));
    case kWallStandardCase:
      return action(*static_cast<WallStandardCase*>(object));
    case kRelContained:
      return action(*static_cast<RelContained*>(object));
    case kBuildingStorey:
      return action(*static_cast<BuildingStorey*>(object));
    case kOwnerHistory:
      return action(*static_cast<OwnerHistory*>(object));
    case kGeometricContext:
      return action(*static_cast<GeometricContext*>(object));
    default:
      return;
  }
}

// Copies a text, for delete[].
char* CopyText(const char* text, unsigned long length);

// Rows of the descriptor, without the one that ends it.
inline constexpr int kRowCount = 653;

// The rows of a descriptor: those that are used, spread over rows that nothing uses.
struct PaddedRows {
  explicit PaddedRows(std::span<const APPentity> used);
  PaddedRows(const PaddedRows&) = delete;
  PaddedRows& operator=(const PaddedRows&) = delete;

  APPentity rows[kRowCount];
  std::array<char[40], kRowCount> names;  // of the padding rows
};

// The descriptor: a row for each type above, supertypes among them, and padding rows.
APPobject0* BuildingSchema();

class BuildingModel : public STEPmodel {
 public:
  BuildingModel() { AppObj(BuildingSchema()); }
  using STEPmodel::RemoveHash;
};

}  // namespace bench

#endif
