// IFC4: the classes that the readers use, by the names that both schemas have for them.
#include "ifc4.h"
#include "schema_model.h"

namespace plan {
namespace {

struct Ifc4 {
  static constexpr bool kHasPointLists = true;

  using Model = ifc4::Model;
  using ArbitraryClosedProfileDef = ifc4::IfcArbitraryClosedProfileDef;
  using ArbitraryProfileDefWithVoids = ifc4::IfcArbitraryProfileDefWithVoids;
  using Axis2Placement2D = ifc4::IfcAxis2Placement2D;
  using Axis2Placement3D = ifc4::IfcAxis2Placement3D;
  using BooleanOperator = ifc4::IfcBooleanOperator;
  using BooleanResult = ifc4::IfcBooleanResult;
  using BuildingStorey = ifc4::IfcBuildingStorey;
  using CartesianPoint = ifc4::IfcCartesianPoint;
  using CartesianPointList2D = ifc4::IfcCartesianPointList2D;
  using CartesianPointList3D = ifc4::IfcCartesianPointList3D;
  using CartesianTransformationOperator3D = ifc4::IfcCartesianTransformationOperator3D;
  using Circle = ifc4::IfcCircle;
  using CircleHollowProfileDef = ifc4::IfcCircleHollowProfileDef;
  using CircleProfileDef = ifc4::IfcCircleProfileDef;
  using Column = ifc4::IfcColumn;
  using CompositeCurve = ifc4::IfcCompositeCurve;
  using Conic = ifc4::IfcConic;
  using ConnectedFaceSet = ifc4::IfcConnectedFaceSet;
  using ConversionBasedUnit = ifc4::IfcConversionBasedUnit;
  using Direction = ifc4::IfcDirection;
  using Door = ifc4::IfcDoor;
  using Element = ifc4::IfcElement;
  using Ellipse = ifc4::IfcEllipse;
  using ExtrudedAreaSolid = ifc4::IfcExtrudedAreaSolid;
  using FaceBasedSurfaceModel = ifc4::IfcFaceBasedSurfaceModel;
  using FacetedBrep = ifc4::IfcFacetedBrep;
  using FurnishingElement = ifc4::IfcFurnishingElement;
  using GeometricRepresentationContext = ifc4::IfcGeometricRepresentationContext;
  using HalfSpaceSolid = ifc4::IfcHalfSpaceSolid;
  using IShapeProfileDef = ifc4::IfcIShapeProfileDef;
  using IndexedPolyCurve = ifc4::IfcIndexedPolyCurve;
  using Line = ifc4::IfcLine;
  using LocalPlacement = ifc4::IfcLocalPlacement;
  using MappedItem = ifc4::IfcMappedItem;
  using Member = ifc4::IfcMember;
  using NamedUnit = ifc4::IfcNamedUnit;
  using ObjectPlacement = ifc4::IfcObjectPlacement;
  using OpeningElement = ifc4::IfcOpeningElement;
  using ParameterizedProfileDef = ifc4::IfcParameterizedProfileDef;
  using Plane = ifc4::IfcPlane;
  using Plate = ifc4::IfcPlate;
  using PolyLoop = ifc4::IfcPolyLoop;
  using PolygonalBoundedHalfSpace = ifc4::IfcPolygonalBoundedHalfSpace;
  using PolygonalFaceSet = ifc4::IfcPolygonalFaceSet;
  using Polyline = ifc4::IfcPolyline;
  using Product = ifc4::IfcProduct;
  using ProductDefinitionShape = ifc4::IfcProductDefinitionShape;
  using ProfileDef = ifc4::IfcProfileDef;
  using ProfileTypeEnum = ifc4::IfcProfileTypeEnum;
  using Project = ifc4::IfcProject;
  using RectangleProfileDef = ifc4::IfcRectangleProfileDef;
  using RelAggregates = ifc4::IfcRelAggregates;
  using RelContainedInSpatialStructure = ifc4::IfcRelContainedInSpatialStructure;
  using RelDefinesByType = ifc4::IfcRelDefinesByType;
  using RelFillsElement = ifc4::IfcRelFillsElement;
  using RelVoidsElement = ifc4::IfcRelVoidsElement;
  using SIUnit = ifc4::IfcSIUnit;
  using ShapeRepresentation = ifc4::IfcShapeRepresentation;
  using ShellBasedSurfaceModel = ifc4::IfcShellBasedSurfaceModel;
  using Slab = ifc4::IfcSlab;
  using Space = ifc4::IfcSpace;
  using Stair = ifc4::IfcStair;
  using StairFlight = ifc4::IfcStairFlight;
  using TessellatedFaceSet = ifc4::IfcTessellatedFaceSet;
  using TriangulatedFaceSet = ifc4::IfcTriangulatedFaceSet;
  using TrimmedCurve = ifc4::IfcTrimmedCurve;
  using UnitAssignment = ifc4::IfcUnitAssignment;
  using UnitEnum = ifc4::IfcUnitEnum;
  using Wall = ifc4::IfcWall;
  using Window = ifc4::IfcWindow;

  // The operation of a door is its own or, failing that, that of its type.
  static std::string_view OperationOf(const Door& door, const STEPheader* type) {
    const auto* doorType = dynamic_cast<const ifc4::IfcDoorType*>(type);
    if (doorType && !door.OperationType.IsPresent()) return NameOf(doorType->OperationType);
    return NameOf(door.OperationType);
  }
};

}  // namespace

std::unique_ptr<BuildingModel> NewIfc4Model() { return std::make_unique<SchemaModel<Ifc4>>(); }

}  // namespace plan
