// The shape of a product as bodies: extrusions, faceted and tessellated solids, surfaces, clippings of them, and mapped
// copies of all these. Other items are passed over.
#ifndef PLAN_SHAPES_H
#define PLAN_SHAPES_H

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "curves.h"

namespace plan {

constexpr int kDeepestItem = 16;  // of mapped items and clippings in one another

// Whether a representation is the shape in three dimensions. Old files do not name it.
inline bool IsBody(std::string_view identifier) {
  return identifier.empty() || identifier == "Body" || identifier == "BODY" || identifier == "body";
}

// The prism over a face.
inline Body Prism(const FlatFace& bottom, Vec3 rise) {
  Body body;
  FlatFace top = bottom;
  for (Ring& ring : top) {
    for (Vec3& corner : ring) corner = corner + rise;
  }
  for (const Ring& ring : bottom) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const Vec3 a = ring[i], b = ring[(i + 1) % ring.size()];
      body.faces.push_back({{a, b, b + rise, a + rise}});
    }
  }
  body.faces.push_back(bottom);
  body.faces.push_back(std::move(top));
  return body;
}

// Four corners from the half sizes.
inline Ring RectangleRing(double x, double y, const Frame& frame) {
  return {frame.Place({-x, -y, 0}), frame.Place({x, -y, 0}), frame.Place({x, y, 0}), frame.Place({-x, y, 0})};
}

// Half of the sizes of the whole, of the web and of the part between the flanges.
inline Ring BeamRing(double x, double y, double web, double inner, const Frame& frame) {
  Ring ring;
  const double corners[][2] = {{-x, -y}, {x, -y}, {x, -inner}, {web, -inner}, {web, inner}, {x, inner}};
  for (const double sign : {1.0, -1.0}) {
    for (const auto& corner : corners) ring.push_back(frame.Place({sign * corner[0], sign * corner[1], 0}));
  }
  return ring;
}

template <class Ifc>
class ShapeReader {
 public:
  explicit ShapeReader(const Units& units) : units_(units), curves_(units) {}

  // The bodies of a product's own shape in metres. Openings are not taken out, bodies that cannot be are left out.
  std::vector<Body> BodiesOf(const typename Ifc::Product& product) const {
    std::vector<Body> bodies;
    const auto* shape = product.Representation.Get();
    if (!shape) return bodies;
    Frame metres;
    metres.x = {units_.metres, 0, 0};
    metres.y = {0, units_.metres, 0};
    metres.z = {0, 0, units_.metres};
    const Frame frame = metres * FrameOfProduct<Ifc>(product);
    for (const auto& representation : shape->Representations) {
      if (IsBody(representation.RepresentationIdentifier.Get())) TakeItems(representation, frame, 0, &bodies);
    }
    bodies.erase(std::remove_if(bodies.begin(), bodies.end(), [](const Body& body) { return !IsPlausible(body); }),
                 bodies.end());
    return bodies;
  }

 private:
  using Bodies = std::vector<Body>;

  template <class Representation>
  void TakeItems(const Representation& representation, const Frame& frame, int depth, Bodies* bodies) const {
    for (const auto& item : representation.Items) TakeItem(&item, frame, depth, bodies);
  }

  void TakeItem(const STEPheader* item, const Frame& frame, int depth, Bodies* bodies) const {
    if (depth > kDeepestItem) return;
    if (const auto* solid = dynamic_cast<const typename Ifc::ExtrudedAreaSolid*>(item)) {
      Extrude(*solid, frame, bodies);
    } else if (const auto* brep = dynamic_cast<const typename Ifc::FacetedBrep*>(item)) {
      TakeFaces(brep->Outer.Get(), frame, bodies);
    } else if (const auto* faces = dynamic_cast<const typename Ifc::FaceBasedSurfaceModel*>(item)) {
      for (const auto& set : faces->FbsmFaces) TakeFaces(&set, frame, bodies);
    } else if (const auto* shells = dynamic_cast<const typename Ifc::ShellBasedSurfaceModel*>(item)) {
      for (const steprt::Value& shell : shells->SbsmBoundary) {
        TakeFaces(shell.template Get<typename Ifc::ConnectedFaceSet>(), frame, bodies);
      }
    } else if (const auto* result = dynamic_cast<const typename Ifc::BooleanResult*>(item)) {
      TakeBoolean(*result, frame, depth, bodies);
    } else if (const auto* mapped = dynamic_cast<const typename Ifc::MappedItem*>(item)) {
      TakeMapped(*mapped, frame, depth, bodies);
    } else if constexpr (Ifc::kHasPointLists) {
      TakeTessellated(item, frame, bodies);
    }
  }

  void Extrude(const typename Ifc::ExtrudedAreaSolid& solid, const Frame& frame, Bodies* bodies) const {
    const Frame own = frame * FrameOf<Ifc>(solid.Position.Get());
    const FlatFace bottom = ProfileFace(solid.SweptArea.Get(), own);
    if (bottom.empty()) return;
    const Vec3 up = DirectionOf(solid.ExtrudedDirection.Get(), {0, 0, 1});
    bodies->push_back(Prism(bottom, own.Turn(up * solid.Depth.Get())));
  }

  // The outline of a profile and those of its holes; nothing for a kind that is not known here.
  FlatFace ProfileFace(const typename Ifc::ProfileDef* profile, const Frame& frame) const {
    FlatFace face;
    if (const auto* known = dynamic_cast<const typename Ifc::ParameterizedProfileDef*>(profile)) {
      face = KnownProfile(*known, frame * FrameOf<Ifc>(known->Position.Get()));
    } else if (const auto* free = dynamic_cast<const typename Ifc::ArbitraryClosedProfileDef*>(profile)) {
      face = {curves_.RingOf(free->OuterCurve.Get(), frame)};
    }
    if (const auto* pierced = dynamic_cast<const typename Ifc::ArbitraryProfileDefWithVoids*>(profile)) {
      for (const auto& curve : pierced->InnerCurves) face.push_back(curves_.RingOf(&curve, frame));
    }
    if (!face.empty() && face[0].size() < 3) face.clear();
    return face;
  }

  static FlatFace KnownProfile(const typename Ifc::ParameterizedProfileDef& profile, const Frame& frame) {
    FlatFace face;
    const auto addCircle = [&](double radius) {
      face.push_back(ArcPoints(frame, radius, radius, 0, 2 * M_PI));
      face.back().pop_back();
    };
    if (const auto* rectangle = dynamic_cast<const typename Ifc::RectangleProfileDef*>(&profile)) {
      face.push_back(RectangleRing(rectangle->XDim.Get() / 2, rectangle->YDim.Get() / 2, frame));
    } else if (const auto* circle = dynamic_cast<const typename Ifc::CircleProfileDef*>(&profile)) {
      addCircle(circle->Radius.Get());
      const auto* hollow = dynamic_cast<const typename Ifc::CircleHollowProfileDef*>(circle);
      if (hollow) addCircle(circle->Radius.Get() - hollow->WallThickness.Get());
    } else if (const auto* beam = dynamic_cast<const typename Ifc::IShapeProfileDef*>(&profile)) {
      const double x = beam->OverallWidth.Get() / 2, y = beam->OverallDepth.Get() / 2;
      face.push_back(BeamRing(x, y, beam->WebThickness.Get() / 2, y - beam->FlangeThickness.Get(), frame));
    }
    return face;
  }

  void TakeFaces(const typename Ifc::ConnectedFaceSet* shell, const Frame& frame, Bodies* bodies) const {
    if (!shell) return;
    Body body;
    for (const auto& face : shell->CfsFaces) {
      FlatFace flat;
      for (const auto& bound : face.Bounds) {
        const auto* loop = dynamic_cast<const typename Ifc::PolyLoop*>(bound.Bound.Object());
        if (!loop) continue;
        Ring ring;
        for (const auto& point : loop->Polygon) ring.push_back(frame.Place(PointOf(&point)));
        if (ring.size() > 2) flat.push_back(std::move(ring));
      }
      if (!flat.empty()) body.faces.push_back(std::move(flat));
    }
    if (!body.faces.empty()) bodies->push_back(std::move(body));
  }

  // Clippings by half spaces. What another solid takes away is not taken out.
  void TakeBoolean(const typename Ifc::BooleanResult& result, const Frame& frame, int depth, Bodies* bodies) const {
    const std::size_t first = bodies->size();
    TakeItem(result.FirstOperand.Object(), frame, depth + 1, bodies);
    if (result.Operator.Get() == Ifc::BooleanOperator::UNION) {
      TakeItem(result.SecondOperand.Object(), frame, depth + 1, bodies);
    }
    Cut cut;
    if (result.Operator.Get() != Ifc::BooleanOperator::DIFFERENCE_) return;
    if (!CutOf(result.SecondOperand.Object(), frame, &cut)) return;
    for (std::size_t i = first; i < bodies->size(); ++i) (*bodies)[i].cuts.push_back(cut);
  }

  // The cut of a half space. Its plane's normal points out of the material when the agreement flag is set.
  bool CutOf(const STEPheader* operand, const Frame& frame, Cut* cut) const {
    const auto* half = dynamic_cast<const typename Ifc::HalfSpaceSolid*>(operand);
    const auto* plane = half ? dynamic_cast<const typename Ifc::Plane*>(half->BaseSurface.Object()) : nullptr;
    if (!plane) return false;
    const Frame base = frame * FrameOf<Ifc>(plane->Position.Get());
    *cut = {base.origin, Unit(base.z, {0, 0, 1}) * (half->AgreementFlag.Get() ? -1 : 1), {}};
    const auto* bounded = dynamic_cast<const typename Ifc::PolygonalBoundedHalfSpace*>(half);
    if (!bounded) return true;
    Polygon limit;
    const Frame position = frame * FrameOf<Ifc>(bounded->Position.Get());
    for (const Vec3 corner : curves_.RingOf(bounded->PolygonalBoundary.Get(), position)) {
      limit.push_back({corner.x, corner.y});
    }
    cut->limit = Hull({limit});
    return !cut->limit.empty();
  }

  void TakeMapped(const typename Ifc::MappedItem& mapped, const Frame& frame, int depth, Bodies* bodies) const {
    const auto* map = mapped.MappingSource.Get();
    const auto* representation = map ? map->MappedRepresentation.Get() : nullptr;
    if (!representation) return;
    const Frame target = FrameOf<Ifc>(mapped.MappingTarget.Get());
    TakeItems(*representation, frame * target * FrameOf<Ifc>(map->MappingOrigin.Object()), depth + 1, bodies);
  }

  // Faces whose corners are numbers of points in a list.
  void TakeTessellated(const STEPheader* item, const Frame& frame, Bodies* bodies) const {
    const auto* set = dynamic_cast<const typename Ifc::TessellatedFaceSet*>(item);
    if (!set || !set->Coordinates.Get()) return;
    Ring points;
    for (const auto& row : set->Coordinates.Get()->CoordList) points.push_back(frame.Place(VectorOf(row)));
    Body body;
    const auto take = [&](const steprt::List<steprt::Integer>& corners) {
      Ring ring;
      for (const steprt::Integer& corner : corners) {
        const auto index = static_cast<std::size_t>(corner.Get() - 1);
        if (index < points.size()) ring.push_back(points[index]);
      }
      if (ring.size() > 2) body.faces.push_back({std::move(ring)});
    };
    if (const auto* triangles = dynamic_cast<const typename Ifc::TriangulatedFaceSet*>(set)) {
      for (const auto& corners : triangles->CoordIndex) take(corners);
    } else if (const auto* polygons = dynamic_cast<const typename Ifc::PolygonalFaceSet*>(set)) {
      for (const auto& face : polygons->Faces) take(face.CoordIndex);
    }
    if (!body.faces.empty()) bodies->push_back(std::move(body));
  }

  const Units units_;
  const CurveReader<Ifc> curves_;
};

}  // namespace plan

#endif
