#include "placements.h"

#include "schema.h"

namespace plan {
namespace {

constexpr int kDeepest = 64;  // a ring of placements, or of units, ends there

Vec3 RatiosOf(const Direction* direction, Vec3 otherwise) {
  if (!direction) return otherwise;
  return Unit({direction->ratios.At(0), direction->ratios.At(1), direction->ratios.At(2)}, otherwise);
}

// The frame whose z is given and whose x is as near to `towards` as it can be.
Frame FrameFromAxes(Vec3 origin, Vec3 z, Vec3 towards) {
  const Vec3 aside = std::fabs(z.x) < 0.9 ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
  const Vec3 x = Unit(towards - z * Dot(towards, z), Unit(aside - z * Dot(aside, z), aside));
  return {x, Cross(z, x), z, origin};
}

Frame OfOperator(const TransformationOperator3D& op, double scale) {
  const Vec3 z = RatiosOf(op.axis3.Get(), {0, 0, 1});
  Frame frame = FrameFromAxes(PointOf(op.localOrigin.Get()), z, RatiosOf(op.axis1.Get(), {1, 0, 0}));
  if (Dot(frame.y, RatiosOf(op.axis2.Get(), frame.y)) < 0) frame.y = frame.y * -1;  // a mirror image
  frame.x = frame.x * scale;
  frame.y = frame.y * scale;
  frame.z = frame.z * scale;
  return frame;
}

Frame OfObjectPlacement(STEPheader* placement, int depth) {
  const auto* local = dynamic_cast<LocalPlacement*>(placement);
  if (!local || depth > kDeepest) return {};
  return OfObjectPlacement(local->relativeTo.object, depth + 1) * FrameOf(local->relativePlacement.object);
}

// Most files give the factor as a typed value, IFCLENGTHMEASURE(0.3048), which the reader does not take. The name of
// the unit then has to do.
double FactorByName(STEPstring& name) {
  static const struct {
    const char* name;
    double metres;
  } kKnown[] = {{"INCH", 0.0254}, {"FOOT", 0.3048}, {"FEET", 0.3048}, {"YARD", 0.9144}};
  for (const auto& known : kKnown) {
    if (name.CompareNoCase(known.name) == 0) return known.metres;
  }
  return 1;
}

double FactorOf(STEPheader* unit, int depth = 0) {
  if (const auto* si = dynamic_cast<SiUnit*>(unit)) return std::pow(10, PowerOfPrefix(si->prefix));
  auto* conversion = dynamic_cast<ConversionBasedUnit*>(unit);
  if (!conversion || depth > kDeepest) return 1;
  MeasureWithUnit* factor = conversion->factor.Get();
  const double value = factor ? NumberOr(factor->value, 0) : 0;
  return value > 0 ? value * FactorOf(factor->unit.object, depth + 1) : FactorByName(conversion->name);
}

}  // namespace

Vec3 PointOf(const CartesianPoint* point) {
  if (!point) return {};
  return {point->coordinates.At(0), point->coordinates.At(1), point->coordinates.At(2)};
}

Frame FrameOf(STEPheader* placement) {
  if (const auto* p = dynamic_cast<Axis2Placement3D*>(placement)) {
    return FrameFromAxes(PointOf(p->location.Get()), RatiosOf(p->axis.Get(), {0, 0, 1}),
                         RatiosOf(p->refDirection.Get(), {1, 0, 0}));
  }
  if (const auto* p = dynamic_cast<Axis2Placement2D*>(placement)) {
    return FrameFromAxes(PointOf(p->location.Get()), {0, 0, 1}, RatiosOf(p->refDirection.Get(), {1, 0, 0}));
  }
  if (auto* op = dynamic_cast<TransformationOperator3D*>(placement)) return OfOperator(*op, NumberOr(op->scale, 1));
  return {};
}

Frame FrameOf(const Product& product) { return OfObjectPlacement(product.placement.object, 0); }

double MetresPerUnit(STEPmodel& model) {
  Project* project = First<Project>(model);
  UnitAssignment* assignment = project ? project->units.Get() : nullptr;
  if (!assignment) return 1;
  for (NamedUnit* unit : assignment->units.All<NamedUnit>()) {
    if (unit->unitType == kLengthUnit) return FactorOf(unit);
  }
  return 1;
}

}  // namespace plan
