// Entities: solids and their parts, representations, and the placements of products.
#ifndef PLAN_SHAPES_H
#define PLAN_SHAPES_H

#include "curves.h"

namespace plan {

struct SolidModel : RepresentationItem {
  static constexpr int kType = kIfcSolidModel;
};

struct ExtrudedAreaSolid : SolidModel {
  static constexpr int kType = kIfcExtrudedAreaSolid;
  Ref<ProfileDef> sweptArea;
  Ref<Axis2Placement3D> position;
  Ref<Direction> direction;
  double depth = 0;
  void Describe(Attributes& a) override {
    a.Reference("SweptArea", sweptArea);
    a.Reference("Position", position);
    a.Reference("ExtrudedDirection", direction);
    a.Real("Depth", depth);
  }
};

struct Loop : RepresentationItem {
  static constexpr int kType = kIfcLoop;
};

struct PolyLoop : Loop {
  static constexpr int kType = kIfcPolyLoop;
  RefList<CartesianPoint> polygon;
  void Describe(Attributes& a) override { a.References("Polygon", polygon); }
};

struct FaceBound : RepresentationItem {
  static constexpr int kType = kIfcFaceBound;
  Ref<Loop> bound;
  bool orientation = true;
  void Describe(Attributes& a) override {
    a.Reference("Bound", bound);
    a.Boolean("Orientation", orientation);
  }
};

struct FaceOuterBound : FaceBound {
  static constexpr int kType = kIfcFaceOuterBound;
};

struct Face : RepresentationItem {
  static constexpr int kType = kIfcFace;
  RefList<FaceBound> bounds;
  void Describe(Attributes& a) override { a.References("Bounds", bounds); }
};

struct ConnectedFaceSet : RepresentationItem {
  static constexpr int kType = kIfcConnectedFaceSet;
  RefList<Face> faces;
  void Describe(Attributes& a) override { a.References("CfsFaces", faces); }
};

struct ClosedShell : ConnectedFaceSet {
  static constexpr int kType = kIfcClosedShell;
};

struct OpenShell : ConnectedFaceSet {
  static constexpr int kType = kIfcOpenShell;
};

struct FaceBasedSurfaceModel : RepresentationItem {
  static constexpr int kType = kIfcFaceBasedSurfaceModel;
  RefList<ConnectedFaceSet> sets;
  void Describe(Attributes& a) override { a.References("FbsmFaces", sets); }
};

struct ShellBasedSurfaceModel : RepresentationItem {
  static constexpr int kType = kIfcShellBasedSurfaceModel;
  RefList<ConnectedFaceSet> shells;
  void Describe(Attributes& a) override { a.References("SbsmBoundary", shells); }
};

struct FacetedBrep : SolidModel {
  static constexpr int kType = kIfcFacetedBrep;
  Ref<ClosedShell> outer;
  void Describe(Attributes& a) override { a.Reference("Outer", outer); }
};

struct HalfSpaceSolid : RepresentationItem {
  static constexpr int kType = kIfcHalfSpaceSolid;
  Ref<Surface> baseSurface;
  bool agreement = true;
  void Describe(Attributes& a) override {
    a.Reference("BaseSurface", baseSurface);
    a.Boolean("AgreementFlag", agreement);
  }
};

struct PolygonalBoundedHalfSpace : HalfSpaceSolid {
  static constexpr int kType = kIfcPolygonalBoundedHalfSpace;
  Ref<Axis2Placement3D> position;
  Ref<Curve> boundary;
  void Describe(Attributes& a) override {
    HalfSpaceSolid::Describe(a);
    a.Reference("Position", position);
    a.Reference("PolygonalBoundary", boundary);
  }
};

struct BooleanClippingResult : RepresentationItem {
  static constexpr int kType = kIfcBooleanClippingResult;
  int operation = 0;
  Ref<Entity> firstOperand, secondOperand;
  void Describe(Attributes& a) override {
    a.Enumeration("Operator", operation, kBooleanOperators);
    a.Reference("FirstOperand", firstOperand);
    a.Reference("SecondOperand", secondOperand);
  }
};

struct RepresentationContext : Entity {
  static constexpr int kType = kIfcRepresentationContext;
  STEPstring identifier, contextType;
  void Describe(Attributes& a) override {
    a.Text("ContextIdentifier", identifier);
    a.Text("ContextType", contextType);
  }
};

struct GeometricRepresentationContext : RepresentationContext {
  static constexpr int kType = kIfcGeometricRepresentationContext;
  int dimensions = 3;
  STEPselect precision;
  Ref<Entity> worldCoordinateSystem;
  Ref<Direction> trueNorth;
  void Describe(Attributes& a) override {
    RepresentationContext::Describe(a);
    a.Integer("CoordinateSpaceDimension", dimensions);
    a.Select("Precision", precision);
    a.Reference("WorldCoordinateSystem", worldCoordinateSystem);
    a.Reference("TrueNorth", trueNorth);
  }
};

struct GeometricRepresentationSubContext : RepresentationContext {
  static constexpr int kType = kIfcGeometricRepresentationSubContext;
  Ref<GeometricRepresentationContext> parent;
  STEPselect targetScale;
  int targetView = 0;
  STEPstring userDefinedView;
  void Describe(Attributes& a) override {
    RepresentationContext::Describe(a);
    a.Derived("CoordinateSpaceDimension");
    a.Derived("Precision");
    a.Derived("WorldCoordinateSystem");
    a.Derived("TrueNorth");
    a.Reference("ParentContext", parent);
    a.Select("TargetScale", targetScale);
    a.Enumeration("TargetView", targetView, kProjections);
    a.Text("UserDefinedTargetView", userDefinedView);
  }
};

struct ShapeRepresentation : Entity {
  static constexpr int kType = kIfcShapeRepresentation;
  Ref<RepresentationContext> context;
  STEPstring identifier, representationType;
  RefList<RepresentationItem> items;
  void Describe(Attributes& a) override {
    a.Reference("ContextOfItems", context);
    a.Text("RepresentationIdentifier", identifier);
    a.Text("RepresentationType", representationType);
    a.References("Items", items);
  }
};

struct RepresentationMap : Entity {
  static constexpr int kType = kIfcRepresentationMap;
  Ref<Entity> origin;
  Ref<ShapeRepresentation> representation;
  void Describe(Attributes& a) override {
    a.Reference("MappingOrigin", origin);
    a.Reference("MappedRepresentation", representation);
  }
};

struct MappedItem : RepresentationItem {
  static constexpr int kType = kIfcMappedItem;
  Ref<RepresentationMap> source;
  Ref<Entity> target;
  void Describe(Attributes& a) override {
    a.Reference("MappingSource", source);
    a.Reference("MappingTarget", target);
  }
};

struct ProductDefinitionShape : Entity {
  static constexpr int kType = kIfcProductDefinitionShape;
  STEPstring name, description;
  RefList<ShapeRepresentation> representations;
  void Describe(Attributes& a) override {
    a.Text("Name", name);
    a.Text("Description", description);
    a.References("Representations", representations);
  }
};

struct ObjectPlacement : Entity {
  static constexpr int kType = kIfcObjectPlacement;
};

struct LocalPlacement : ObjectPlacement {
  static constexpr int kType = kIfcLocalPlacement;
  Ref<ObjectPlacement> relativeTo;
  Ref<Entity> relativePlacement;
  void Describe(Attributes& a) override {
    a.Reference("PlacementRelTo", relativeTo);
    a.Reference("RelativePlacement", relativePlacement);
  }
};

}  // namespace plan

#endif
