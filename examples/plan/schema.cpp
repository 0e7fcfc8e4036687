#include "schema.h"

#include "report.h"
#include "transfer.h"

namespace plan {
namespace {

// A row of an entity that files hold.
template <class T>
constexpr APPentity Row(const char* name, const char* super) {
  return {name, ReadEntity<T>, WriteEntity, T::kType, super};
}

// A row of an abstract supertype: it has no records, and its subtypes answer to its type.
constexpr APPentity Abstract(const char* name, int type, const char* super) {
  return {name, nullptr, nullptr, type, super};
}

// One supertype each, by name. The order of the rows does not matter.
const APPentity kRows[] = {
    Abstract("IFCROOT", kIfcRoot, nullptr),
    Abstract("IFCOBJECTDEFINITION", kIfcObjectDefinition, "IFCROOT"),
    Abstract("IFCOBJECT", kIfcObject, "IFCOBJECTDEFINITION"),
    Row<Project>("IFCPROJECT", "IFCOBJECT"),
    Abstract("IFCPRODUCT", kIfcProduct, "IFCOBJECT"),
    Abstract("IFCSPATIALSTRUCTUREELEMENT", kIfcSpatialStructureElement, "IFCPRODUCT"),
    Row<Site>("IFCSITE", "IFCSPATIALSTRUCTUREELEMENT"),
    Row<Building>("IFCBUILDING", "IFCSPATIALSTRUCTUREELEMENT"),
    Row<Storey>("IFCBUILDINGSTOREY", "IFCSPATIALSTRUCTUREELEMENT"),
    Row<Space>("IFCSPACE", "IFCSPATIALSTRUCTUREELEMENT"),
    Abstract("IFCELEMENT", kIfcElement, "IFCPRODUCT"),
    Abstract("IFCBUILDINGELEMENT", kIfcBuildingElement, "IFCELEMENT"),
    Row<Wall>("IFCWALL", "IFCBUILDINGELEMENT"),
    Row<WallStandardCase>("IFCWALLSTANDARDCASE", "IFCWALL"),
    Row<Slab>("IFCSLAB", "IFCBUILDINGELEMENT"),
    Row<Column>("IFCCOLUMN", "IFCBUILDINGELEMENT"),
    Row<Stair>("IFCSTAIR", "IFCBUILDINGELEMENT"),
    Row<StairFlight>("IFCSTAIRFLIGHT", "IFCBUILDINGELEMENT"),
    Row<Door>("IFCDOOR", "IFCBUILDINGELEMENT"),
    Row<Window>("IFCWINDOW", "IFCBUILDINGELEMENT"),
    Row<FurnishingElement>("IFCFURNISHINGELEMENT", "IFCELEMENT"),
    Abstract("IFCFEATUREELEMENT", kIfcFeatureElement, "IFCELEMENT"),
    Abstract("IFCFEATUREELEMENTSUBTRACTION", kIfcFeatureElementSubtraction, "IFCFEATUREELEMENT"),
    Row<OpeningElement>("IFCOPENINGELEMENT", "IFCFEATUREELEMENTSUBTRACTION"),
    Abstract("IFCTYPEOBJECT", kIfcTypeObject, "IFCOBJECTDEFINITION"),
    Abstract("IFCTYPEPRODUCT", kIfcTypeProduct, "IFCTYPEOBJECT"),
    Row<DoorStyle>("IFCDOORSTYLE", "IFCTYPEPRODUCT"),
    Row<WindowStyle>("IFCWINDOWSTYLE", "IFCTYPEPRODUCT"),
    Abstract("IFCRELATIONSHIP", kIfcRelationship, "IFCROOT"),
    Abstract("IFCRELCONNECTS", kIfcRelConnects, "IFCRELATIONSHIP"),
    Row<RelVoidsElement>("IFCRELVOIDSELEMENT", "IFCRELCONNECTS"),
    Row<RelFillsElement>("IFCRELFILLSELEMENT", "IFCRELCONNECTS"),
    Row<RelContainedInSpatialStructure>("IFCRELCONTAINEDINSPATIALSTRUCTURE", "IFCRELCONNECTS"),
    Abstract("IFCRELDECOMPOSES", kIfcRelDecomposes, "IFCRELATIONSHIP"),
    Row<RelAggregates>("IFCRELAGGREGATES", "IFCRELDECOMPOSES"),
    Abstract("IFCRELDEFINES", kIfcRelDefines, "IFCRELATIONSHIP"),
    Row<RelDefinesByType>("IFCRELDEFINESBYTYPE", "IFCRELDEFINES"),

    Abstract("IFCOBJECTPLACEMENT", kIfcObjectPlacement, nullptr),
    Row<LocalPlacement>("IFCLOCALPLACEMENT", "IFCOBJECTPLACEMENT"),
    Abstract("IFCPRODUCTREPRESENTATION", kIfcProductRepresentation, nullptr),
    Row<ProductDefinitionShape>("IFCPRODUCTDEFINITIONSHAPE", "IFCPRODUCTREPRESENTATION"),
    Abstract("IFCREPRESENTATION", kIfcRepresentation, nullptr),
    Abstract("IFCSHAPEMODEL", kIfcShapeModel, "IFCREPRESENTATION"),
    Row<ShapeRepresentation>("IFCSHAPEREPRESENTATION", "IFCSHAPEMODEL"),
    Row<RepresentationMap>("IFCREPRESENTATIONMAP", nullptr),
    Row<RepresentationContext>("IFCREPRESENTATIONCONTEXT", nullptr),
    Row<GeometricRepresentationContext>("IFCGEOMETRICREPRESENTATIONCONTEXT", "IFCREPRESENTATIONCONTEXT"),
    Row<GeometricRepresentationSubContext>("IFCGEOMETRICREPRESENTATIONSUBCONTEXT", "IFCGEOMETRICREPRESENTATIONCONTEXT"),
    Abstract("IFCREPRESENTATIONITEM", kIfcRepresentationItem, nullptr),
    Abstract("IFCGEOMETRICREPRESENTATIONITEM", kIfcGeometricRepresentationItem, "IFCREPRESENTATIONITEM"),
    Row<MappedItem>("IFCMAPPEDITEM", "IFCREPRESENTATIONITEM"),
    Abstract("IFCPOINT", kIfcPoint, "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<CartesianPoint>("IFCCARTESIANPOINT", "IFCPOINT"),
    Row<Direction>("IFCDIRECTION", "IFCGEOMETRICREPRESENTATIONITEM"),
    Abstract("IFCPLACEMENT", kIfcPlacement, "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<Axis2Placement2D>("IFCAXIS2PLACEMENT2D", "IFCPLACEMENT"),
    Row<Axis2Placement3D>("IFCAXIS2PLACEMENT3D", "IFCPLACEMENT"),
    Abstract("IFCCARTESIANTRANSFORMATIONOPERATOR", kIfcCartesianTransformationOperator,
             "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<TransformationOperator3D>("IFCCARTESIANTRANSFORMATIONOPERATOR3D", "IFCCARTESIANTRANSFORMATIONOPERATOR"),
    Abstract("IFCCURVE", kIfcCurve, "IFCGEOMETRICREPRESENTATIONITEM"),
    Abstract("IFCBOUNDEDCURVE", kIfcBoundedCurve, "IFCCURVE"),
    Row<Polyline>("IFCPOLYLINE", "IFCBOUNDEDCURVE"),
    Abstract("IFCSURFACE", kIfcSurface, "IFCGEOMETRICREPRESENTATIONITEM"),
    Abstract("IFCELEMENTARYSURFACE", kIfcElementarySurface, "IFCSURFACE"),
    Row<Plane>("IFCPLANE", "IFCELEMENTARYSURFACE"),
    Abstract("IFCPROFILEDEF", kIfcProfileDef, nullptr),
    Abstract("IFCPARAMETERIZEDPROFILEDEF", kIfcParameterizedProfileDef, "IFCPROFILEDEF"),
    Row<RectangleProfileDef>("IFCRECTANGLEPROFILEDEF", "IFCPARAMETERIZEDPROFILEDEF"),
    Row<CircleProfileDef>("IFCCIRCLEPROFILEDEF", "IFCPARAMETERIZEDPROFILEDEF"),
    Row<ArbitraryClosedProfileDef>("IFCARBITRARYCLOSEDPROFILEDEF", "IFCPROFILEDEF"),
    Row<ArbitraryProfileDefWithVoids>("IFCARBITRARYPROFILEDEFWITHVOIDS", "IFCARBITRARYCLOSEDPROFILEDEF"),
    Abstract("IFCSOLIDMODEL", kIfcSolidModel, "IFCGEOMETRICREPRESENTATIONITEM"),
    Abstract("IFCSWEPTAREASOLID", kIfcSweptAreaSolid, "IFCSOLIDMODEL"),
    Row<ExtrudedAreaSolid>("IFCEXTRUDEDAREASOLID", "IFCSWEPTAREASOLID"),
    Abstract("IFCMANIFOLDSOLIDBREP", kIfcManifoldSolidBrep, "IFCSOLIDMODEL"),
    Row<FacetedBrep>("IFCFACETEDBREP", "IFCMANIFOLDSOLIDBREP"),
    Row<FaceBasedSurfaceModel>("IFCFACEBASEDSURFACEMODEL", "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<ShellBasedSurfaceModel>("IFCSHELLBASEDSURFACEMODEL", "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<HalfSpaceSolid>("IFCHALFSPACESOLID", "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<PolygonalBoundedHalfSpace>("IFCPOLYGONALBOUNDEDHALFSPACE", "IFCHALFSPACESOLID"),
    Abstract("IFCBOOLEANRESULT", kIfcBooleanResult, "IFCGEOMETRICREPRESENTATIONITEM"),
    Row<BooleanClippingResult>("IFCBOOLEANCLIPPINGRESULT", "IFCBOOLEANRESULT"),
    Abstract("IFCTOPOLOGICALREPRESENTATIONITEM", kIfcTopologicalRepresentationItem, "IFCREPRESENTATIONITEM"),
    Row<ConnectedFaceSet>("IFCCONNECTEDFACESET", "IFCTOPOLOGICALREPRESENTATIONITEM"),
    Row<ClosedShell>("IFCCLOSEDSHELL", "IFCCONNECTEDFACESET"),
    Row<OpenShell>("IFCOPENSHELL", "IFCCONNECTEDFACESET"),
    Row<Face>("IFCFACE", "IFCTOPOLOGICALREPRESENTATIONITEM"),
    Row<FaceBound>("IFCFACEBOUND", "IFCTOPOLOGICALREPRESENTATIONITEM"),
    Row<FaceOuterBound>("IFCFACEOUTERBOUND", "IFCFACEBOUND"),
    Abstract("IFCLOOP", kIfcLoop, "IFCTOPOLOGICALREPRESENTATIONITEM"),
    Row<PolyLoop>("IFCPOLYLOOP", "IFCLOOP"),

    Row<OwnerHistory>("IFCOWNERHISTORY", nullptr),
    Row<Person>("IFCPERSON", nullptr),
    Row<Organization>("IFCORGANIZATION", nullptr),
    Row<PersonAndOrganization>("IFCPERSONANDORGANIZATION", nullptr),
    Row<Application>("IFCAPPLICATION", nullptr),
    Row<UnitAssignment>("IFCUNITASSIGNMENT", nullptr),
    Abstract("IFCNAMEDUNIT", kIfcNamedUnit, nullptr),
    Row<SiUnit>("IFCSIUNIT", "IFCNAMEDUNIT"),
    Row<ConversionBasedUnit>("IFCCONVERSIONBASEDUNIT", "IFCNAMEDUNIT"),
    Row<MeasureWithUnit>("IFCMEASUREWITHUNIT", nullptr),
    Row<DimensionalExponents>("IFCDIMENSIONALEXPONENTS", nullptr),
};

}  // namespace

APPobject0* Schema() {
  static APPtable table("IFC2X3", kRows, TakeReport);
  return &table;
}

}  // namespace plan
