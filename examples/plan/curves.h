// Entities: points, placements, curves and profiles.
#ifndef PLAN_CURVES_H
#define PLAN_CURVES_H

#include "attributes.h"
#include "enumerations.h"
#include "types.h"

namespace plan {

struct RepresentationItem : Entity {
  static constexpr int kType = kIfcRepresentationItem;
};

struct CartesianPoint : RepresentationItem {
  static constexpr int kType = kIfcCartesianPoint;
  NumberList coordinates;
  void Describe(Attributes& a) override { a.Numbers("Coordinates", coordinates); }
};

struct Direction : RepresentationItem {
  static constexpr int kType = kIfcDirection;
  NumberList ratios;
  void Describe(Attributes& a) override { a.Numbers("DirectionRatios", ratios); }
};

struct Axis2Placement2D : RepresentationItem {
  static constexpr int kType = kIfcAxis2Placement2D;
  Ref<CartesianPoint> location;
  Ref<Direction> refDirection;
  void Describe(Attributes& a) override {
    a.Reference("Location", location);
    a.Reference("RefDirection", refDirection);
  }
};

struct Axis2Placement3D : RepresentationItem {
  static constexpr int kType = kIfcAxis2Placement3D;
  Ref<CartesianPoint> location;
  Ref<Direction> axis, refDirection;
  void Describe(Attributes& a) override {
    a.Reference("Location", location);
    a.Reference("Axis", axis);
    a.Reference("RefDirection", refDirection);
  }
};

struct TransformationOperator3D : RepresentationItem {
  static constexpr int kType = kIfcCartesianTransformationOperator3D;
  Ref<Direction> axis1, axis2, axis3;
  Ref<CartesianPoint> localOrigin;
  STEPselect scale;
  void Describe(Attributes& a) override {
    a.Reference("Axis1", axis1);
    a.Reference("Axis2", axis2);
    a.Reference("LocalOrigin", localOrigin);
    a.Select("Scale", scale);
    a.Reference("Axis3", axis3);
  }
};

struct Curve : RepresentationItem {
  static constexpr int kType = kIfcCurve;
};

struct Polyline : Curve {
  static constexpr int kType = kIfcPolyline;
  RefList<CartesianPoint> points;
  void Describe(Attributes& a) override { a.References("Points", points); }
};

struct Surface : RepresentationItem {
  static constexpr int kType = kIfcSurface;
};

struct Plane : Surface {
  static constexpr int kType = kIfcPlane;
  Ref<Axis2Placement3D> position;
  void Describe(Attributes& a) override { a.Reference("Position", position); }
};

struct ProfileDef : Entity {
  static constexpr int kType = kIfcProfileDef;
  int profileType = 0;
  STEPstring profileName;
  void Describe(Attributes& a) override {
    a.Enumeration("ProfileType", profileType, kProfileTypes);
    a.Text("ProfileName", profileName);
  }
};

struct ParameterizedProfileDef : ProfileDef {
  static constexpr int kType = kIfcParameterizedProfileDef;
  Ref<Axis2Placement2D> position;
  void Describe(Attributes& a) override {
    ProfileDef::Describe(a);
    a.Reference("Position", position);
  }
};

struct RectangleProfileDef : ParameterizedProfileDef {
  static constexpr int kType = kIfcRectangleProfileDef;
  double xDim = 0, yDim = 0;
  void Describe(Attributes& a) override {
    ParameterizedProfileDef::Describe(a);
    a.Real("XDim", xDim);
    a.Real("YDim", yDim);
  }
};

struct CircleProfileDef : ParameterizedProfileDef {
  static constexpr int kType = kIfcCircleProfileDef;
  double radius = 0;
  void Describe(Attributes& a) override {
    ParameterizedProfileDef::Describe(a);
    a.Real("Radius", radius);
  }
};

struct ArbitraryClosedProfileDef : ProfileDef {
  static constexpr int kType = kIfcArbitraryClosedProfileDef;
  Ref<Curve> outerCurve;
  void Describe(Attributes& a) override {
    ProfileDef::Describe(a);
    a.Reference("OuterCurve", outerCurve);
  }
};

struct ArbitraryProfileDefWithVoids : ArbitraryClosedProfileDef {
  static constexpr int kType = kIfcArbitraryProfileDefWithVoids;
  RefList<Curve> innerCurves;
  void Describe(Attributes& a) override {
    ArbitraryClosedProfileDef::Describe(a);
    a.References("InnerCurves", innerCurves);
  }
};

}  // namespace plan

#endif
