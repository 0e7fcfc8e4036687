// Entities: the building, its elements, their types, and the relations between them.
#ifndef PLAN_BUILDING_H
#define PLAN_BUILDING_H

#include "administration.h"
#include "shapes.h"

namespace plan {

struct Root : Entity {
  static constexpr int kType = kIfcRoot;
  STEPstring globalId, name, description;
  Ref<OwnerHistory> ownerHistory;
  void Describe(Attributes& a) override {
    a.Text("GlobalId", globalId);
    a.Reference("OwnerHistory", ownerHistory);
    a.Text("Name", name);
    a.Text("Description", description);
  }
};

struct Object : Root {
  static constexpr int kType = kIfcObject;
  STEPstring objectType;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.Text("ObjectType", objectType);
  }
};

struct Project : Object {
  static constexpr int kType = kIfcProject;
  STEPstring longName, phase;
  RefList<RepresentationContext> contexts;
  Ref<UnitAssignment> units;
  void Describe(Attributes& a) override {
    Object::Describe(a);
    a.Text("LongName", longName);
    a.Text("Phase", phase);
    a.References("RepresentationContexts", contexts);
    a.Reference("UnitsInContext", units);
  }
};

struct Product : Object {
  static constexpr int kType = kIfcProduct;
  Ref<ObjectPlacement> placement;
  Ref<ProductDefinitionShape> representation;
  void Describe(Attributes& a) override {
    Object::Describe(a);
    a.Reference("ObjectPlacement", placement);
    a.Reference("Representation", representation);
  }
};

struct SpatialStructureElement : Product {
  static constexpr int kType = kIfcSpatialStructureElement;
  STEPstring longName;
  int composition = 0;
  void Describe(Attributes& a) override {
    Product::Describe(a);
    a.Text("LongName", longName);
    a.Enumeration("CompositionType", composition, kCompositionTypes);
  }
};

struct Site : SpatialStructureElement {
  static constexpr int kType = kIfcSite;
  NumberList latitude, longitude;
  STEPselect elevation;
  STEPstring landTitle;
  Ref<Entity> address;
  void Describe(Attributes& a) override {
    SpatialStructureElement::Describe(a);
    a.Numbers("RefLatitude", latitude);
    a.Numbers("RefLongitude", longitude);
    a.Select("RefElevation", elevation);
    a.Text("LandTitleNumber", landTitle);
    a.Reference("SiteAddress", address);
  }
};

struct Building : SpatialStructureElement {
  static constexpr int kType = kIfcBuilding;
  STEPselect referenceHeight, terrainHeight;
  Ref<Entity> address;
  void Describe(Attributes& a) override {
    SpatialStructureElement::Describe(a);
    a.Select("ElevationOfRefHeight", referenceHeight);
    a.Select("ElevationOfTerrain", terrainHeight);
    a.Reference("BuildingAddress", address);
  }
};

struct Storey : SpatialStructureElement {
  static constexpr int kType = kIfcBuildingStorey;
  STEPselect elevation;
  void Describe(Attributes& a) override {
    SpatialStructureElement::Describe(a);
    a.Select("Elevation", elevation);
  }
};

struct Space : SpatialStructureElement {
  static constexpr int kType = kIfcSpace;
  int interiorOrExterior = 0;
  STEPselect flooring;
  void Describe(Attributes& a) override {
    SpatialStructureElement::Describe(a);
    a.Enumeration("InteriorOrExteriorSpace", interiorOrExterior, kInternalOrExternal);
    a.Select("ElevationWithFlooring", flooring);
  }
};

struct Element : Product {
  static constexpr int kType = kIfcElement;
  STEPstring tag;
  void Describe(Attributes& a) override {
    Product::Describe(a);
    a.Text("Tag", tag);
  }
};

struct Wall : Element {
  static constexpr int kType = kIfcWall;
};

struct WallStandardCase : Wall {
  static constexpr int kType = kIfcWallStandardCase;
};

struct Column : Element {
  static constexpr int kType = kIfcColumn;
};

struct Slab : Element {
  static constexpr int kType = kIfcSlab;
  int predefinedType = 0;
  void Describe(Attributes& a) override {
    Element::Describe(a);
    a.Enumeration("PredefinedType", predefinedType, kSlabTypes);
  }
};

struct Stair : Element {
  static constexpr int kType = kIfcStair;
  int shapeType = 0;
  void Describe(Attributes& a) override {
    Element::Describe(a);
    a.Enumeration("ShapeType", shapeType, kStairTypes);
  }
};

struct StairFlight : Element {
  static constexpr int kType = kIfcStairFlight;
  STEPselect risers, treads, riserHeight, treadLength;
  void Describe(Attributes& a) override {
    Element::Describe(a);
    a.Select("NumberOfRiser", risers);
    a.Select("NumberOfTreads", treads);
    a.Select("RiserHeight", riserHeight);
    a.Select("TreadLength", treadLength);
  }
};

struct Door : Element {
  static constexpr int kType = kIfcDoor;
  STEPselect overallHeight, overallWidth;
  void Describe(Attributes& a) override {
    Element::Describe(a);
    a.Select("OverallHeight", overallHeight);
    a.Select("OverallWidth", overallWidth);
  }
};

struct Window : Element {
  static constexpr int kType = kIfcWindow;
  STEPselect overallHeight, overallWidth;
  void Describe(Attributes& a) override {
    Element::Describe(a);
    a.Select("OverallHeight", overallHeight);
    a.Select("OverallWidth", overallWidth);
  }
};

struct FurnishingElement : Element {
  static constexpr int kType = kIfcFurnishingElement;
};

struct OpeningElement : Element {
  static constexpr int kType = kIfcOpeningElement;
};

struct TypeProduct : Root {
  static constexpr int kType = kIfcTypeProduct;
  STEPstring applicableOccurrence, tag;
  RefList<Entity> propertySets;
  RefList<RepresentationMap> maps;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.Text("ApplicableOccurrence", applicableOccurrence);
    a.References("HasPropertySets", propertySets);
    a.References("RepresentationMaps", maps);
    a.Text("Tag", tag);
  }
};

struct DoorStyle : TypeProduct {
  static constexpr int kType = kIfcDoorStyle;
  int operation = 0, construction = 0;
  bool parameterTakesPrecedence = false, sizeable = false;
  void Describe(Attributes& a) override {
    TypeProduct::Describe(a);
    a.Enumeration("OperationType", operation, kDoorOperations);
    a.Enumeration("ConstructionType", construction, kDoorConstructions);
    a.Boolean("ParameterTakesPrecedence", parameterTakesPrecedence);
    a.Boolean("Sizeable", sizeable);
  }
};

struct WindowStyle : TypeProduct {
  static constexpr int kType = kIfcWindowStyle;
  int construction = 0, operation = 0;
  bool parameterTakesPrecedence = false, sizeable = false;
  void Describe(Attributes& a) override {
    TypeProduct::Describe(a);
    a.Enumeration("ConstructionType", construction, kWindowConstructions);
    a.Enumeration("OperationType", operation, kWindowOperations);
    a.Boolean("ParameterTakesPrecedence", parameterTakesPrecedence);
    a.Boolean("Sizeable", sizeable);
  }
};

struct RelVoidsElement : Root {
  static constexpr int kType = kIfcRelVoidsElement;
  Ref<Element> element;
  Ref<OpeningElement> opening;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.Reference("RelatingBuildingElement", element);
    a.Reference("RelatedOpeningElement", opening);
  }
};

struct RelFillsElement : Root {
  static constexpr int kType = kIfcRelFillsElement;
  Ref<OpeningElement> opening;
  Ref<Element> element;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.Reference("RelatingOpeningElement", opening);
    a.Reference("RelatedBuildingElement", element);
  }
};

struct RelContainedInSpatialStructure : Root {
  static constexpr int kType = kIfcRelContainedInSpatialStructure;
  RefList<Product> elements;
  Ref<SpatialStructureElement> structure;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.References("RelatedElements", elements);
    a.Reference("RelatingStructure", structure);
  }
};

struct RelAggregates : Root {
  static constexpr int kType = kIfcRelAggregates;
  Ref<Root> whole;
  RefList<Root> parts;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.Reference("RelatingObject", whole);
    a.References("RelatedObjects", parts);
  }
};

struct RelDefinesByType : Root {
  static constexpr int kType = kIfcRelDefinesByType;
  RefList<Object> objects;
  Ref<TypeProduct> type;
  void Describe(Attributes& a) override {
    Root::Describe(a);
    a.References("RelatedObjects", objects);
    a.Reference("RelatingType", type);
  }
};

}  // namespace plan

#endif
