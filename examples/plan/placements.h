// Points, frames and units of a file. As in all of the readers here, `Ifc` names the classes of a schema: see
// schema_ifc2x3.cpp.
#ifndef PLAN_PLACEMENTS_H
#define PLAN_PLACEMENTS_H

#include <steprt/record.h>

#include <cmath>

#include "vectors.h"

namespace plan {

constexpr int kDeepestPlacement = 64;  // a ring of placements, or of units, ends there

// Up to three numbers; those that are missing are 0.
inline Vec3 VectorOf(const steprt::List<steprt::Real>& numbers) {
  double values[3] = {0, 0, 0};
  int count = 0;
  for (const double number : numbers) {
    if (count < 3) values[count++] = number;
  }
  return {values[0], values[1], values[2]};
}

// The origin for null.
template <class CartesianPoint>
Vec3 PointOf(const CartesianPoint* point) {
  return point ? VectorOf(point->Coordinates) : Vec3();
}

template <class Direction>
Vec3 DirectionOf(const Direction* direction, Vec3 otherwise) {
  return direction ? Unit(VectorOf(direction->DirectionRatios), otherwise) : otherwise;
}

// The frame whose z is given and whose x is as near to `towards` as it can be.
inline Frame FrameFromAxes(Vec3 origin, Vec3 z, Vec3 towards) {
  const Vec3 aside = std::fabs(z.x) < 0.9 ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
  const Vec3 x = Unit(towards - z * Dot(towards, z), Unit(aside - z * Dot(aside, z), aside));
  return {x, Cross(z, x), z, origin};
}

template <class Operator3D>
Frame FrameOfOperator(const Operator3D& op) {
  const double scale = op.Scale.Or(1);
  const Vec3 z = DirectionOf(op.Axis3.Get(), {0, 0, 1});
  Frame frame = FrameFromAxes(PointOf(op.LocalOrigin.Get()), z, DirectionOf(op.Axis1.Get(), {1, 0, 0}));
  if (Dot(frame.y, DirectionOf(op.Axis2.Get(), frame.y)) < 0) frame.y = frame.y * -1;  // a mirror image
  frame.x = frame.x * scale;
  frame.y = frame.y * scale;
  frame.z = frame.z * scale;
  return frame;
}

// Of a placement in two or three dimensions or of a transformation; the identity for anything else, null too.
template <class Ifc>
Frame FrameOf(const STEPheader* placement) {
  if (const auto* p = dynamic_cast<const typename Ifc::Axis2Placement3D*>(placement)) {
    return FrameFromAxes(PointOf(p->Location.Get()), DirectionOf(p->Axis.Get(), {0, 0, 1}),
                         DirectionOf(p->RefDirection.Get(), {1, 0, 0}));
  }
  if (const auto* p = dynamic_cast<const typename Ifc::Axis2Placement2D*>(placement)) {
    return FrameFromAxes(PointOf(p->Location.Get()), {0, 0, 1}, DirectionOf(p->RefDirection.Get(), {1, 0, 0}));
  }
  const auto* op = dynamic_cast<const typename Ifc::CartesianTransformationOperator3D*>(placement);
  return op ? FrameOfOperator(*op) : Frame();
}

template <class Ifc>
Frame FrameOfLocal(const STEPheader* placement, int depth = 0) {
  const auto* local = dynamic_cast<const typename Ifc::LocalPlacement*>(placement);
  if (!local || depth > kDeepestPlacement) return {};
  return FrameOfLocal<Ifc>(local->PlacementRelTo.Get(), depth + 1) * FrameOf<Ifc>(local->RelativePlacement.Object());
}

// Of a product, in the units of the file, with all the placements that it is relative to.
template <class Ifc>
Frame FrameOfProduct(const typename Ifc::Product& product) {
  return FrameOfLocal<Ifc>(product.ObjectPlacement.Get());
}

// How many metres a length of 1 in the file is, and how many radians an angle of 1. Both are 1 if the file is silent.
struct Units {
  double metres = 1;
  double radians = 1;
};

template <class SiUnit>
double FactorOfPrefix(const SiUnit& unit) {
  static constexpr int kPowers[] = {18, 15, 12, 9, 6, 3, 2, 1, -1, -2, -3, -6, -9, -12, -15, -18};
  return unit.Prefix.IsPresent() ? std::pow(10, kPowers[static_cast<int>(unit.Prefix.Get())]) : 1;
}

template <class Ifc>
double FactorOfUnit(const STEPheader* unit, int depth = 0) {
  if (const auto* si = dynamic_cast<const typename Ifc::SIUnit*>(unit)) return FactorOfPrefix(*si);
  const auto* conversion = dynamic_cast<const typename Ifc::ConversionBasedUnit*>(unit);
  const auto* factor = conversion ? conversion->ConversionFactor.Get() : nullptr;
  if (!factor || depth > kDeepestPlacement) return 1;
  const steprt::Value& value = factor->ValueComponent;
  const double number = value.Kind() == STEP_TYPED ? value.First().Real() : value.Real();
  return (number > 0 ? number : 1) * FactorOfUnit<Ifc>(factor->UnitComponent.Object(), depth + 1);
}

template <class Ifc>
Units UnitsOf(const typename Ifc::UnitAssignment& assignment) {
  Units units;
  for (const steprt::Value& member : assignment.Units) {
    const auto* unit = member.template Get<typename Ifc::NamedUnit>();
    if (!unit) continue;
    if (unit->UnitType.Get() == Ifc::UnitEnum::LENGTHUNIT) units.metres = FactorOfUnit<Ifc>(unit);
    if (unit->UnitType.Get() == Ifc::UnitEnum::PLANEANGLEUNIT) units.radians = FactorOfUnit<Ifc>(unit);
  }
  return units;
}

}  // namespace plan

#endif
