// IFC2X3: the classes that the readers use, by the names that both schemas have for them.
#include "ifc2x3.h"
#include "schema_model.h"

namespace plan {
namespace {

struct Ifc2x3 {
  static constexpr bool kHasPointLists = false;

  using Model = ifc2x3::Model;
  using ArbitraryClosedProfileDef = ifc2x3::IfcArbitraryClosedProfileDef;
  using ArbitraryProfileDefWithVoids = ifc2x3::IfcArbitraryProfileDefWithVoids;
  using Axis2Placement2D = ifc2x3::IfcAxis2Placement2D;
  using Axis2Placement3D = ifc2x3::IfcAxis2Placement3D;
  using BooleanOperator = ifc2x3::IfcBooleanOperator;
  using BooleanResult = ifc2x3::IfcBooleanResult;
  using BuildingStorey = ifc2x3::IfcBuildingStorey;
  using CartesianPoint = ifc2x3::IfcCartesianPoint;
  using CartesianTransformationOperator3D = ifc2x3::IfcCartesianTransformationOperator3D;
  using Circle = ifc2x3::IfcCircle;
  using CircleHollowProfileDef = ifc2x3::IfcCircleHollowProfileDef;
  using CircleProfileDef = ifc2x3::IfcCircleProfileDef;
  using Column = ifc2x3::IfcColumn;
  using CompositeCurve = ifc2x3::IfcCompositeCurve;
  using Conic = ifc2x3::IfcConic;
  using ConnectedFaceSet = ifc2x3::IfcConnectedFaceSet;
  using ConversionBasedUnit = ifc2x3::IfcConversionBasedUnit;
  using Direction = ifc2x3::IfcDirection;
  using Door = ifc2x3::IfcDoor;
  using Element = ifc2x3::IfcElement;
  using Ellipse = ifc2x3::IfcEllipse;
  using ExtrudedAreaSolid = ifc2x3::IfcExtrudedAreaSolid;
  using FaceBasedSurfaceModel = ifc2x3::IfcFaceBasedSurfaceModel;
  using FacetedBrep = ifc2x3::IfcFacetedBrep;
  using FurnishingElement = ifc2x3::IfcFurnishingElement;
  using GeometricRepresentationContext = ifc2x3::IfcGeometricRepresentationContext;
  using HalfSpaceSolid = ifc2x3::IfcHalfSpaceSolid;
  using IShapeProfileDef = ifc2x3::IfcIShapeProfileDef;
  using Line = ifc2x3::IfcLine;
  using LocalPlacement = ifc2x3::IfcLocalPlacement;
  using MappedItem = ifc2x3::IfcMappedItem;
  using Member = ifc2x3::IfcMember;
  using NamedUnit = ifc2x3::IfcNamedUnit;
  using ObjectPlacement = ifc2x3::IfcObjectPlacement;
  using OpeningElement = ifc2x3::IfcOpeningElement;
  using ParameterizedProfileDef = ifc2x3::IfcParameterizedProfileDef;
  using Plane = ifc2x3::IfcPlane;
  using Plate = ifc2x3::IfcPlate;
  using PolyLoop = ifc2x3::IfcPolyLoop;
  using PolygonalBoundedHalfSpace = ifc2x3::IfcPolygonalBoundedHalfSpace;
  using Polyline = ifc2x3::IfcPolyline;
  using Product = ifc2x3::IfcProduct;
  using ProductDefinitionShape = ifc2x3::IfcProductDefinitionShape;
  using ProfileDef = ifc2x3::IfcProfileDef;
  using ProfileTypeEnum = ifc2x3::IfcProfileTypeEnum;
  using Project = ifc2x3::IfcProject;
  using RectangleProfileDef = ifc2x3::IfcRectangleProfileDef;
  using RelAggregates = ifc2x3::IfcRelAggregates;
  using RelContainedInSpatialStructure = ifc2x3::IfcRelContainedInSpatialStructure;
  using RelDefinesByType = ifc2x3::IfcRelDefinesByType;
  using RelFillsElement = ifc2x3::IfcRelFillsElement;
  using RelVoidsElement = ifc2x3::IfcRelVoidsElement;
  using SIUnit = ifc2x3::IfcSIUnit;
  using ShapeRepresentation = ifc2x3::IfcShapeRepresentation;
  using ShellBasedSurfaceModel = ifc2x3::IfcShellBasedSurfaceModel;
  using Slab = ifc2x3::IfcSlab;
  using Space = ifc2x3::IfcSpace;
  using Stair = ifc2x3::IfcStair;
  using StairFlight = ifc2x3::IfcStairFlight;
  using TrimmedCurve = ifc2x3::IfcTrimmedCurve;
  using UnitAssignment = ifc2x3::IfcUnitAssignment;
  using UnitEnum = ifc2x3::IfcUnitEnum;
  using Wall = ifc2x3::IfcWall;
  using Window = ifc2x3::IfcWindow;

  static std::string_view OperationOf(const Door& /*door*/, const STEPheader* type) {
    const auto* style = dynamic_cast<const ifc2x3::IfcDoorStyle*>(type);
    return style ? NameOf(style->OperationType) : std::string_view();
  }
};

}  // namespace

std::unique_ptr<BuildingModel> NewIfc2x3Model() { return std::make_unique<SchemaModel<Ifc2x3>>(); }

}  // namespace plan
