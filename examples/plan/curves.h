// Curves of a file as chains of points: straight lines, arcs, and what is made of them.
#ifndef PLAN_CURVES_H
#define PLAN_CURVES_H

#include <steprt/record.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "bodies.h"
#include "placements.h"

namespace plan {

constexpr int kDeepestCurve = 16;           // of composite curves in one another
constexpr double kArcStep = 2 * M_PI / 64;  // of the chain that an arc becomes
constexpr double kSamePoint = 1e-6;         // metres
using Chain = Ring;                         // open

// The points of an arc about the frame's origin in its plane, both ends included. `a` and `b` are the half axes.
inline Chain ArcPoints(const Frame& frame, double a, double b, double from, double to) {
  const int steps = std::max(1, static_cast<int>(std::ceil(std::fabs(to - from) / kArcStep - 1e-9)));
  Chain points;
  for (int i = 0; i <= steps; ++i) {
    const double angle = from + (to - from) * i / steps;
    points.push_back(frame.Place({a * std::cos(angle), b * std::sin(angle), 0}));
  }
  return points;
}

// The arc from a over b to c; the line from a to c if the three are on one.
inline Chain ArcThrough(Vec3 a, Vec3 b, Vec3 c) {
  const Vec3 ab = b - a, ac = c - a;
  const Vec3 normal = Cross(ab, ac);
  const double square = Dot(normal, normal);
  if (square < 1e-18) return {a, c};
  const Vec3 toCentre = (Cross(normal, ab) * Dot(ac, ac) + Cross(ac, normal) * Dot(ab, ab)) * (0.5 / square);
  Frame frame = FrameFromAxes(a + toCentre, Unit(normal, {0, 0, 1}), toCentre * -1);
  const Vec3 end = c - frame.origin;
  double angle = std::atan2(Dot(end, frame.y), Dot(end, frame.x));
  if (angle <= 0) angle += 2 * M_PI;  // seen along the normal, a, b and c run counter-clockwise
  return ArcPoints(frame, Length(toCentre), Length(toCentre), 0, angle);
}

// Appends a chain, without its first point if the other one ends there.
inline void Append(Chain* chain, const Chain& more) {
  for (const Vec3 point : more) {
    if (chain->empty() || Length(chain->back() - point) > kSamePoint) chain->push_back(point);
  }
}

template <class Ifc>
class CurveReader {
 public:
  explicit CurveReader(const Units& units) : units_(units) {}

  // Without the first point again if the curve is closed. Empty for a kind of curve that is not known here.
  Ring RingOf(const STEPheader* curve, const Frame& frame) const {
    Ring ring = ChainOf(curve, frame);
    while (ring.size() > 1 && Length(ring.front() - ring.back()) < kSamePoint) ring.pop_back();
    return ring;
  }

 private:
  using Axes = std::pair<double, double>;

  Chain ChainOf(const STEPheader* curve, const Frame& frame, int depth = 0) const {
    Chain chain;
    if (depth > kDeepestCurve) return chain;
    if (const auto* line = dynamic_cast<const typename Ifc::Polyline*>(curve)) {
      for (const auto& point : line->Points) chain.push_back(frame.Place(PointOf(&point)));
    } else if (const auto* trimmed = dynamic_cast<const typename Ifc::TrimmedCurve*>(curve)) {
      chain = Trimmed(*trimmed, frame);
    } else if (const auto* composite = dynamic_cast<const typename Ifc::CompositeCurve*>(curve)) {
      for (const auto& segment : composite->Segments) {
        Chain part = ChainOf(segment.ParentCurve.Get(), frame, depth + 1);
        if (!segment.SameSense.Get()) std::reverse(part.begin(), part.end());
        Append(&chain, part);
      }
    } else if (const auto* conic = dynamic_cast<const typename Ifc::Conic*>(curve)) {
      const Axes axes = AxesOf(*conic);
      chain = ArcPoints(frame * FrameOf<Ifc>(conic->Position.Object()), axes.first, axes.second, 0, 2 * M_PI);
    } else if constexpr (Ifc::kHasPointLists) {
      if (const auto* indexed = dynamic_cast<const typename Ifc::IndexedPolyCurve*>(curve)) {
        chain = Indexed(*indexed, frame);
      }
    }
    return chain;
  }

  static Axes AxesOf(const typename Ifc::Conic& conic) {
    if (const auto* circle = dynamic_cast<const typename Ifc::Circle*>(&conic)) {
      return {circle->Radius.Get(), circle->Radius.Get()};
    }
    const auto* ellipse = dynamic_cast<const typename Ifc::Ellipse*>(&conic);
    return ellipse ? Axes(ellipse->SemiAxis1.Get(), ellipse->SemiAxis2.Get()) : Axes(0, 0);
  }

  // One end of a trimmed curve, as the file has it: a point, a parameter, or both.
  struct Trim {
    const typename Ifc::CartesianPoint* point = nullptr;
    double parameter = 0;
  };
  template <class Values>
  static Trim TrimOf(const Values& values) {
    Trim trim;
    for (const steprt::Value& value : values) {
      if (const auto* point = value.template Get<typename Ifc::CartesianPoint>()) trim.point = point;
      if (value.Kind() == STEP_TYPED) trim.parameter = value.First().Real();
    }
    return trim;
  }

  Chain Trimmed(const typename Ifc::TrimmedCurve& curve, const Frame& frame) const {
    const Trim first = TrimOf(curve.Trim1), second = TrimOf(curve.Trim2);
    const bool forward = curve.SenseAgreement.Get();
    if (const auto* conic = dynamic_cast<const typename Ifc::Conic*>(curve.BasisCurve.Get())) {
      const Frame position = FrameOf<Ifc>(conic->Position.Object());
      const Axes axes = AxesOf(*conic);
      const double from = AngleOf(first, position, axes);
      double to = AngleOf(second, position, axes);
      while (forward && to <= from + 1e-9) to += 2 * M_PI;
      while (!forward && to >= from - 1e-9) to -= 2 * M_PI;
      return ArcPoints(frame * position, axes.first, axes.second, from, to);
    }
    const auto* line = dynamic_cast<const typename Ifc::Line*>(curve.BasisCurve.Get());
    if (!line) return {};
    return {frame.Place(PointOn(*line, first)), frame.Place(PointOn(*line, second))};
  }

  double AngleOf(const Trim& trim, const Frame& position, Axes axes) const {
    if (!trim.point) return trim.parameter * units_.radians;
    const Vec3 arm = PointOf(trim.point) - position.origin;
    return std::atan2(Dot(arm, position.y) * axes.first, Dot(arm, position.x) * axes.second);
  }

  static Vec3 PointOn(const typename Ifc::Line& line, const Trim& trim) {
    const auto* vector = line.Dir.Get();
    if (trim.point || !vector) return PointOf(trim.point);
    const Vec3 step = DirectionOf(vector->Orientation.Get(), {1, 0, 0}) * vector->Magnitude.Get();
    return PointOf(line.Pnt.Get()) + step * trim.parameter;
  }

  // Points by number, in straight lines and in arcs of three points. Without segments, one line through all of them.
  template <class IndexedPolyCurve>
  static Chain Indexed(const IndexedPolyCurve& curve, const Frame& frame) {
    Chain all;
    const auto take = [&](const auto* points) {
      if (!points) return;
      for (const auto& row : points->CoordList) all.push_back(frame.Place(VectorOf(row)));
    };
    take(dynamic_cast<const typename Ifc::CartesianPointList2D*>(curve.Points.Get()));
    take(dynamic_cast<const typename Ifc::CartesianPointList3D*>(curve.Points.Get()));
    if (!curve.Segments.IsPresent()) return all;
    Chain chain;
    for (const steprt::Value& segment : curve.Segments) {
      Chain part;
      for (const steprt::Value& index : segment.First()) {
        const auto at = static_cast<std::size_t>(index.Integer() - 1);  // they count from 1
        if (at < all.size()) part.push_back(all[at]);
      }
      const bool isArc = segment.Is("IFCARCINDEX") && part.size() == 3;
      Append(&chain, isArc ? ArcThrough(part[0], part[1], part[2]) : part);
    }
    return chain;
  }

  const Units units_;
};

}  // namespace plan

#endif
