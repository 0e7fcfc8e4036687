#include "bodies.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace plan {
namespace {

constexpr int kDeepest = 16;  // of mapped items and clippings in one another
constexpr int kCircleSides = 32;
constexpr double kFar = 1000;        // metres: a half plane is drawn as a box of this size
constexpr double kFlat = 0.999;      // the slope of a face that still counts as level
constexpr double kLeastFace = 0.01;  // square metres: smaller level surfaces are not drawn
constexpr double kTiny = 1e-6;

Ring RingOf(const Curve* curve, const Frame& frame) {
  Ring ring;
  const auto* polyline = dynamic_cast<const Polyline*>(curve);
  if (!polyline) return ring;
  for (const CartesianPoint* point : polyline->points.All()) ring.push_back(frame.Place(PointOf(point)));
  if (ring.size() > 1 && Length(ring.front() - ring.back()) < kTiny) ring.pop_back();
  return ring;
}

Ring RectangleRing(const RectangleProfileDef& profile, const Frame& frame) {
  const double x = profile.xDim / 2, y = profile.yDim / 2;
  return {frame.Place({-x, -y, 0}), frame.Place({x, -y, 0}), frame.Place({x, y, 0}), frame.Place({-x, y, 0})};
}

Ring CircleRing(const CircleProfileDef& profile, const Frame& frame) {
  Ring ring;
  for (int i = 0; i < kCircleSides; ++i) {
    const double angle = 2 * M_PI * i / kCircleSides;
    ring.push_back(frame.Place({profile.radius * std::cos(angle), profile.radius * std::sin(angle), 0}));
  }
  return ring;
}

// The outline of a profile and those of its holes; nothing for a kind that is not known here.
FlatFace ProfileFace(ProfileDef* profile, const Frame& frame) {
  FlatFace face;
  if (const auto* known = dynamic_cast<ParameterizedProfileDef*>(profile)) {
    const Frame own = frame * FrameOf(known->position.object);
    if (const auto* rectangle = dynamic_cast<RectangleProfileDef*>(profile)) face = {RectangleRing(*rectangle, own)};
    if (const auto* circle = dynamic_cast<CircleProfileDef*>(profile)) face = {CircleRing(*circle, own)};
  } else if (const auto* free = dynamic_cast<ArbitraryClosedProfileDef*>(profile)) {
    face = {RingOf(free->outerCurve.Get(), frame)};
  }
  if (const auto* pierced = dynamic_cast<ArbitraryProfileDefWithVoids*>(profile)) {
    for (const Curve* curve : pierced->innerCurves.All()) face.push_back(RingOf(curve, frame));
  }
  if (!face.empty() && face[0].size() < 3) face.clear();
  return face;
}

void Extrude(const ExtrudedAreaSolid& solid, const Frame& frame, std::vector<Body>* bodies) {
  const Frame own = frame * FrameOf(solid.position.object);
  const FlatFace bottom = ProfileFace(solid.sweptArea.Get(), own);
  const Direction* direction = solid.direction.Get();
  if (bottom.empty() || !direction) return;
  const Vec3 ratios{direction->ratios.At(0), direction->ratios.At(1), direction->ratios.At(2)};
  const Vec3 rise = own.Turn(Unit(ratios, {0, 0, 1}) * solid.depth);

  Body body;
  FlatFace top = bottom;
  for (Ring& ring : top) {
    for (Vec3& corner : ring) corner = corner + rise;
  }
  for (const Ring& ring : bottom) {
    for (size_t i = 0; i < ring.size(); ++i) {
      const Vec3 a = ring[i], b = ring[(i + 1) % ring.size()];
      body.faces.push_back({{a, b, b + rise, a + rise}});
    }
  }
  body.faces.push_back(bottom);
  body.faces.push_back(std::move(top));
  bodies->push_back(std::move(body));
}

void TakeFaces(const ConnectedFaceSet& shell, const Frame& frame, std::vector<Body>* bodies) {
  Body body;
  for (const Face* face : shell.faces.All()) {
    FlatFace flat;
    for (const FaceBound* bound : face->bounds.All()) {
      const auto* loop = dynamic_cast<PolyLoop*>(bound->bound.Get());
      if (!loop) continue;
      Ring ring;
      for (const CartesianPoint* point : loop->polygon.All()) ring.push_back(frame.Place(PointOf(point)));
      if (ring.size() > 2) flat.push_back(std::move(ring));
    }
    if (!flat.empty()) body.faces.push_back(std::move(flat));
  }
  if (!body.faces.empty()) bodies->push_back(std::move(body));
}

// The cut of a half space. Its plane's normal points out of the material when the agreement flag is set.
bool CutOf(STEPheader* operand, const Frame& frame, Cut* cut) {
  const auto* half = dynamic_cast<HalfSpaceSolid*>(operand);
  const Plane* plane = half ? dynamic_cast<Plane*>(half->baseSurface.Get()) : nullptr;
  if (!plane) return false;
  const Frame base = frame * FrameOf(plane->position.object);
  *cut = {base.origin, Unit(base.z, {0, 0, 1}) * (half->agreement ? -1 : 1), {}};
  if (const auto* bounded = dynamic_cast<const PolygonalBoundedHalfSpace*>(half)) {
    Polygon limit;
    const Frame position = frame * FrameOf(bounded->position.object);
    for (const Vec3 corner : RingOf(bounded->boundary.Get(), position)) limit.push_back({corner.x, corner.y});
    cut->limit = Hull({limit});
    if (cut->limit.empty()) return false;
  }
  return true;
}

void TakeItems(const ShapeRepresentation& representation, const Frame& frame, int depth, std::vector<Body>* bodies);

void TakeItem(STEPheader* item, const Frame& frame, int depth, std::vector<Body>* bodies) {
  if (depth > kDeepest) return;
  if (const auto* solid = dynamic_cast<ExtrudedAreaSolid*>(item)) return Extrude(*solid, frame, bodies);
  if (const auto* brep = dynamic_cast<FacetedBrep*>(item)) {
    if (const ClosedShell* shell = brep->outer.Get()) TakeFaces(*shell, frame, bodies);
    return;
  }
  if (const auto* model = dynamic_cast<FaceBasedSurfaceModel*>(item)) {
    for (const ConnectedFaceSet* set : model->sets.All()) TakeFaces(*set, frame, bodies);
    return;
  }
  if (const auto* model = dynamic_cast<ShellBasedSurfaceModel*>(item)) {
    for (const ConnectedFaceSet* shell : model->shells.All()) TakeFaces(*shell, frame, bodies);
    return;
  }
  if (const auto* clipping = dynamic_cast<BooleanClippingResult*>(item)) {
    const size_t first = bodies->size();
    TakeItem(clipping->firstOperand.object, frame, depth + 1, bodies);
    Cut cut;
    if (clipping->operation != kDifference || !CutOf(clipping->secondOperand.object, frame, &cut)) return;
    for (size_t i = first; i < bodies->size(); ++i) (*bodies)[i].cuts.push_back(cut);
    return;
  }
  if (const auto* mapped = dynamic_cast<MappedItem*>(item)) {
    const RepresentationMap* map = mapped->source.Get();
    const ShapeRepresentation* representation = map ? map->representation.Get() : nullptr;
    if (!representation) return;
    const Frame own = frame * FrameOf(mapped->target.object) * FrameOf(map->origin.object);
    TakeItems(*representation, own, depth + 1, bodies);
  }
}

void TakeItems(const ShapeRepresentation& representation, const Frame& frame, int depth, std::vector<Body>* bodies) {
  for (RepresentationItem* item : representation.items.All()) TakeItem(item, frame, depth, bodies);
}

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
  const Polygon all = {{-kFar, -kFar}, {kFar, -kFar}, {kFar, kFar}, {-kFar, kFar}};
  const Polygon limit = cut.limit.empty() ? all : cut.limit;
  const Vec2 normal{cut.normal.x, cut.normal.y};
  const double above = cut.normal.z * (height - cut.point.z);
  const double slope = Length(normal);
  if (slope < kTiny) return above > 0 ? limit : Polygon();

  // On the sheet the plane is a line, across `normal` and through `start`.
  const Vec2 out = normal * (1 / slope);
  const Vec2 start = Vec2{cut.point.x, cut.point.y} - out * (above / slope);
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

}  // namespace

std::vector<Body> BodiesOf(const Product& product, double metresPerUnit) {
  std::vector<Body> bodies;
  const ProductDefinitionShape* shape = product.representation.Get();
  if (!shape) return bodies;
  Frame metres;
  metres.x = {metresPerUnit, 0, 0};
  metres.y = {0, metresPerUnit, 0};
  metres.z = {0, 0, metresPerUnit};
  const Frame frame = metres * FrameOf(product);
  for (ShapeRepresentation* representation : shape->representations.All()) {
    if (representation->identifier.CompareNoCase("Body") == 0) TakeItems(*representation, frame, 0, &bodies);
  }
  return bodies;
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
