// Points, and the frames that carry them from one coordinate system into another.
#ifndef PLAN_VECTORS_H
#define PLAN_VECTORS_H

#include <cmath>

namespace plan {

struct Vec2 {
  double x = 0, y = 0;
};
inline Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
inline Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
inline Vec2 operator*(Vec2 a, double k) { return {a.x * k, a.y * k}; }
inline double Dot(Vec2 a, Vec2 b) { return a.x * b.x + a.y * b.y; }
inline double Cross(Vec2 a, Vec2 b) { return a.x * b.y - a.y * b.x; }
inline double Length(Vec2 a) { return std::hypot(a.x, a.y); }
inline Vec2 Mix(Vec2 a, Vec2 b, double t) { return a + (b - a) * t; }

struct Vec3 {
  double x = 0, y = 0, z = 0;
};
inline Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec3 operator*(Vec3 a, double k) { return {a.x * k, a.y * k, a.z * k}; }
inline double Dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vec3 Cross(Vec3 a, Vec3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
inline double Length(Vec3 a) { return std::sqrt(Dot(a, a)); }

// The vector at length 1, or `otherwise` for one without a direction.
inline Vec3 Unit(Vec3 a, Vec3 otherwise) {
  const double length = Length(a);
  return length > 1e-12 ? a * (1 / length) : otherwise;
}

// An affine map: where the axes and the origin of a coordinate system lie in the one around it.
struct Frame {
  Vec3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin;

  Vec3 Turn(Vec3 v) const { return x * v.x + y * v.y + z * v.z; }  // a direction
  Vec3 Place(Vec3 p) const { return origin + Turn(p); }            // a point
};

// The inner frame seen from outside of the outer one.
inline Frame operator*(const Frame& outer, const Frame& inner) {
  return {outer.Turn(inner.x), outer.Turn(inner.y), outer.Turn(inner.z), outer.Place(inner.origin)};
}

}  // namespace plan

#endif
