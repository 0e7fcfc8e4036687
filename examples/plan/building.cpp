#include "building.h"

#include <cmath>
#include <cstddef>

namespace plan {
namespace {

constexpr double kAligned = 0.003;  // radians

Vec2 Turned(Vec2 v, Vec2 x) { return {v.x * x.x - v.y * x.y, v.x * x.y + v.y * x.x}; }

Vec3 Turned(Vec3 v, Vec2 x) {
  const Vec2 flat = Turned(Vec2{v.x, v.y}, x);
  return {flat.x, flat.y, v.z};
}

void Turn(std::vector<Body>* bodies, Vec2 x) {
  for (Body& body : *bodies) {
    for (FlatFace& face : body.faces) {
      for (Ring& ring : face) {
        for (Vec3& corner : ring) corner = Turned(corner, x);
      }
    }
    for (Cut& cut : body.cuts) {
      cut.point = Turned(cut.point, x);
      cut.normal = Turned(cut.normal, x);
      for (Vec2& corner : cut.limit) corner = Turned(corner, x);
    }
  }
}

void Turn(Frame* frame, Vec2 x) {
  for (Vec3* part : {&frame->x, &frame->y, &frame->z, &frame->origin}) *part = Turned(*part, x);
}

// The angle from the axes to the level edges of a wall, as a vector: four times the angle, so that right angles make
// no difference, and the length of the edges.
Vec2 QuadrupledAngle(const Ring& ring) {
  Vec2 sum;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Vec3 edge = ring[(i + 1) % ring.size()] - ring[i];
    const double length = std::hypot(edge.x, edge.y);
    if (std::fabs(edge.z) > kAligned * length) continue;
    const double angle = 4 * std::atan2(edge.y, edge.x);
    sum = sum + Vec2{std::cos(angle), std::sin(angle)} * length;
  }
  return sum;
}

double AngleOf(const std::vector<Wall>& walls) {
  Vec2 sum;
  for (const Wall& wall : walls) {
    for (const Body& body : wall.bodies) {
      for (const FlatFace& face : body.faces) sum = sum + QuadrupledAngle(face[0]);
    }
  }
  return std::atan2(sum.y, sum.x) / 4;
}

}  // namespace

void AlignWithAxes(Building* building) {
  const double angle = AngleOf(building->walls);
  if (std::fabs(angle) < kAligned) return;
  const Vec2 x = {std::cos(angle), -std::sin(angle)};  // where the x axis goes
  building->north = Turned(building->north, x);
  for (Wall& wall : building->walls) {
    Turn(&wall.bodies, x);
    for (Opening& opening : wall.openings) {
      Turn(&opening.bodies, x);
      Turn(&opening.filling.frame, x);
    }
  }
  for (auto* parts :
       {&building->columns, &building->floors, &building->stairs, &building->panels, &building->furniture}) {
    for (Part& part : *parts) Turn(&part.bodies, x);
  }
  for (Room& room : building->rooms) Turn(&room.bodies, x);
}

}  // namespace plan
