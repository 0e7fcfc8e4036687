// Flat regions: what a cut through a building leaves on the sheet.
#ifndef PLAN_REGION_H
#define PLAN_REGION_H

#include <vector>

#include "vectors.h"

namespace plan {

using Polygon = std::vector<Vec2>;    // closed, without the first point again
using Region = std::vector<Polygon>;  // what an odd number of its polygons covers

struct Segment {
  Vec2 from, to;
};

struct Box {
  Vec2 low{1e9, 1e9}, high{-1e9, -1e9};
  bool IsEmpty() const { return low.x > high.x; }
  Vec2 Size() const { return high - low; }
  Vec2 Centre() const { return Mix(low, high, 0.5); }
  bool Meets(const Box& other) const {
    return low.x < other.high.x && other.low.x < high.x && low.y < other.high.y && other.low.y < high.y;
  }
  void Take(Vec2 point);
  void Take(const Region& region);
};

double Area(const Region& region);  // holes taken off
bool Contains(const Region& region, Vec2 point);

// Whether a side of the region runs through the convex polygon, which runs counter-clockwise.
bool Crosses(const Region& region, const Polygon& convex);

// The closed polygons that the segments make, end to end. What does not close is left out.
Region Join(std::vector<Segment> segments);

// The part of the region outside, or inside, of a convex polygon that runs counter-clockwise.
Region Outside(const Region& region, const Polygon& convex);
Region Inside(const Region& region, const Polygon& convex);

// The convex polygon around all points, counter-clockwise; empty for points on a line.
Polygon Hull(const Region& region);

// A convex polygon with each side moved outwards by `by`.
Polygon Grown(const Polygon& convex, double by);

}  // namespace plan

#endif
