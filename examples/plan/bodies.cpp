#include "bodies.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace plan {
namespace {

constexpr double kFar = 1000;        // metres: a half plane is drawn as a box of this size
constexpr double kFlat = 0.999;      // the slope of a face that still counts as level
constexpr double kLeastFace = 0.01;  // square metres: smaller level surfaces are not drawn
constexpr double kTiny = 1e-6;

// The segments in which the plane cuts one face: its crossings with the sides in order along the line, two by two.
void SliceFace(const FlatFace& face, double height, std::vector<Segment>* segments) {
  std::vector<Vec2> points;
  for (const Ring& ring : face) {
    for (size_t i = 0; i < ring.size(); ++i) {
      const Vec3 a = ring[i], b = ring[(i + 1) % ring.size()];
      if ((a.z > height) == (b.z > height)) continue;
      const Vec3 at = a + (b - a) * ((height - a.z) / (b.z - a.z));
      points.push_back({at.x, at.y});
    }
  }
  if (points.size() < 2) return;
  Box box;
  for (const Vec2 point : points) box.Take(point);
  const bool alongX = box.Size().x > box.Size().y;
  std::sort(points.begin(), points.end(), [alongX](Vec2 a, Vec2 b) { return alongX ? a.x < b.x : a.y < b.y; });
  for (size_t i = 0; i + 1 < points.size(); i += 2) segments->push_back({points[i], points[i + 1]});
}

// What a cut takes away at this height, as a convex polygon; empty for nothing.
Polygon TakenAt(const Cut& cut, double height) {
  const Vec2 middle{cut.point.x, cut.point.y};
  const Polygon all = {middle + Vec2{-kFar, -kFar}, middle + Vec2{kFar, -kFar}, middle + Vec2{kFar, kFar},
                       middle + Vec2{-kFar, kFar}};
  const Polygon limit = cut.limit.empty() ? all : cut.limit;
  const Vec2 normal{cut.normal.x, cut.normal.y};
  const double above = cut.normal.z * (height - cut.point.z);
  const double slope = Length(normal);
  if (slope < kTiny) return above > 0 ? limit : Polygon();

  // On the sheet the plane is a line, across `normal` and through `start`.
  const Vec2 out = normal * (1 / slope);
  const Vec2 start = middle - out * (above / slope);
  const Vec2 along{-out.y, out.x};
  const Polygon half = {start + along * kFar, start - along * kFar, start - along * kFar + out * kFar,
                        start + along * kFar + out * kFar};
  const Region left = Inside({limit}, half);
  return left.empty() ? Polygon() : Hull(left);
}

// Adds the side of a face, or takes out the same side of another face.
void AddUnlessShared(Segment side, std::vector<Segment>* sides) {
  const auto near = [](Vec2 a, Vec2 b) { return Length(a - b) < 1e-4; };
  const auto shared = std::find_if(sides->begin(), sides->end(), [&](const Segment& other) {
    return (near(side.from, other.to) && near(side.to, other.from)) ||
           (near(side.from, other.from) && near(side.to, other.to));
  });
  if (shared == sides->end()) {
    sides->push_back(side);
  } else {
    sides->erase(shared);
  }
}

Vec3 NormalOf(const Ring& ring) {
  Vec3 normal;
  for (size_t i = 0; i < ring.size(); ++i) normal = normal + Cross(ring[i], ring[(i + 1) % ring.size()]);
  return Unit(normal, {});
}

bool IsPlausible(Vec3 v) {
  constexpr double kMost = 1e8;  // metres: twice around the earth
  return std::fabs(v.x) < kMost && std::fabs(v.y) < kMost && std::fabs(v.z) < kMost;
}

}  // namespace

bool IsPlausible(const Body& body) {
  const auto isFaceSound = [](const FlatFace& face) {
    return std::all_of(face.begin(), face.end(), [](const Ring& ring) {
      return std::all_of(ring.begin(), ring.end(), [](Vec3 corner) { return IsPlausible(corner); });
    });
  };
  return std::all_of(body.faces.begin(), body.faces.end(), isFaceSound) &&
         std::all_of(body.cuts.begin(), body.cuts.end(), [](const Cut& cut) { return IsPlausible(cut.point); });
}

Region Slice(const Body& body, double height) {
  std::vector<Segment> segments;
  for (const FlatFace& face : body.faces) SliceFace(face, height, &segments);
  Region region = Join(std::move(segments));
  for (const Cut& cut : body.cuts) region = Outside(region, TakenAt(cut, height));
  return region;
}

// Faces that touch at one height are one surface to the eye: the sides that they share are left out.
std::vector<Region> LevelFaces(const Body& body, double low, double high) {
  std::map<long, std::vector<Segment>> sides;  // by height, in millimetres
  for (const FlatFace& face : body.faces) {
    const double height = face[0][0].z;
    if (std::fabs(NormalOf(face[0]).z) < kFlat || height < low || height > high) continue;
    for (const Ring& ring : face) {
      for (size_t i = 0; i < ring.size(); ++i) {
        const Vec3 a = ring[i], b = ring[(i + 1) % ring.size()];
        AddUnlessShared({{a.x, a.y}, {b.x, b.y}}, &sides[std::lround(height * 1000)]);
      }
    }
  }
  std::vector<Region> surfaces;
  for (auto& [height, segments] : sides) {
    Region surface = Join(std::move(segments));
    if (Area(surface) > kLeastFace) surfaces.push_back(std::move(surface));
  }
  return surfaces;
}

Polygon HullOf(const Body& body) {
  Region rings;
  for (const FlatFace& face : body.faces) {
    for (const Ring& ring : face) {
      rings.emplace_back();
      for (const Vec3 corner : ring) rings.back().push_back({corner.x, corner.y});
    }
  }
  return Hull(rings);
}

Heights HeightsOf(const std::vector<Body>& bodies) {
  Heights heights;
  for (const Body& body : bodies) {
    for (const FlatFace& face : body.faces) {
      for (const Ring& ring : face) {
        for (const Vec3 corner : ring) {
          heights.low = std::min(heights.low, corner.z);
          heights.high = std::max(heights.high, corner.z);
        }
      }
    }
  }
  return heights;
}

}  // namespace plan
