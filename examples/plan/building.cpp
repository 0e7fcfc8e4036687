#include "building.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

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

constexpr double kRight = M_PI / 2;
constexpr int kSectors = 90;  // of a right angle

// Level edges by their angle, of which a right angle more or less makes no difference.
class Directions {
 public:
  void Take(const Ring& ring) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const Vec3 edge = ring[(i + 1) % ring.size()] - ring[i];
      const double length = std::hypot(edge.x, edge.y);
      if (std::fabs(edge.z) > kAligned * length || length <= 0) continue;
      const double angle = std::remainder(std::atan2(edge.y, edge.x), kRight);  // from -45 to 45 degrees
      Sector& sector = sectors[(std::lround(angle / kRight * kSectors) + kSectors) % kSectors];
      sector.length += length;
      sector.moment += length * angle;
    }
  }

  // The mean angle of the sector that has the longest edges in all.
  double Main() const {
    const Sector* main = std::max_element(std::begin(sectors), std::end(sectors),
                                          [](const Sector& a, const Sector& b) { return a.length < b.length; });
    return main->length > 0 ? main->moment / main->length : 0;
  }

 private:
  struct Sector {
    double length = 0, moment = 0;
  };
  Sector sectors[kSectors];
};

}  // namespace

double AlignWithAxes(Building* building) {
  Directions directions;
  for (const Wall& wall : building->walls) {
    for (const Body& body : wall.bodies) {
      for (const FlatFace& face : body.faces) directions.Take(face[0]);
    }
  }
  const double angle = directions.Main();
  if (std::fabs(angle) < kAligned) return 0;
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
  return -angle * 180 / M_PI;
}

}  // namespace plan
