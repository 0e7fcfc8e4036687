#include "region.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace plan {
namespace {

constexpr double kSame = 1e-5;  // points nearer than that (in metres) are one

double SignedArea(const Polygon& polygon) {
  double twice = 0;
  for (size_t i = 0; i < polygon.size(); ++i) twice += Cross(polygon[i], polygon[(i + 1) % polygon.size()]);
  return twice / 2;
}

// Calls visit(from, to) for each side of each polygon.
template <class Visit>
void ForEachSide(const Region& region, Visit visit) {
  for (const Polygon& polygon : region) {
    for (size_t i = 0; i < polygon.size(); ++i) visit(polygon[i], polygon[(i + 1) % polygon.size()]);
  }
}

struct Range {
  double from = 0, to = 1;
};

// The stretch of a segment that lies in a convex polygon; from > to for none.
Range StretchInside(Vec2 from, Vec2 to, const Polygon& convex) {
  Range range;
  for (size_t i = 0; i < convex.size(); ++i) {
    const Vec2 side = convex[(i + 1) % convex.size()] - convex[i];
    const double start = Cross(side, from - convex[i]);
    const double slope = Cross(side, to - from);
    if (std::fabs(slope) < 1e-12) {
      if (start < 0) return {1, 0};
      continue;
    }
    const double t = -start / slope;
    if (slope > 0) {
      range.from = std::max(range.from, t);
    } else {
      range.to = std::min(range.to, t);
    }
  }
  return range;
}

// Where the segment crosses sides of the region, in order, with both of its ends.
std::vector<double> Crossings(Vec2 from, Vec2 to, const Region& region) {
  std::vector<double> places = {0, 1};
  ForEachSide(region, [&](Vec2 a, Vec2 b) {
    const double across = Cross(to - from, b - a);
    if (std::fabs(across) < 1e-15) return;
    const double t = Cross(a - from, b - a) / across;
    const double u = Cross(a - from, to - from) / across;
    if (t > 0 && t < 1 && u >= 0 && u <= 1) places.push_back(t);
  });
  std::sort(places.begin(), places.end());
  return places;
}

// What the region and the convex polygon have in common, or the region without the polygon, is bounded by parts of the
// sides of both: which parts is all that differs.
Region Combine(const Region& region, const Polygon& convex, bool inside) {
  if (convex.size() < 3) return inside ? Region() : region;
  std::vector<Segment> pieces;
  ForEachSide(region, [&](Vec2 a, Vec2 b) {
    const Range range = StretchInside(a, b, convex);
    if (inside) {
      if (range.from < range.to) pieces.push_back({Mix(a, b, range.from), Mix(a, b, range.to)});
    } else if (range.from >= range.to) {
      pieces.push_back({a, b});
    } else {
      if (range.from > 0) pieces.push_back({a, Mix(a, b, range.from)});
      if (range.to < 1) pieces.push_back({Mix(a, b, range.to), b});
    }
  });
  ForEachSide({convex}, [&](Vec2 a, Vec2 b) {
    const std::vector<double> places = Crossings(a, b, region);
    for (size_t i = 0; i + 1 < places.size(); ++i) {
      if (!Contains(region, Mix(a, b, (places[i] + places[i + 1]) / 2))) continue;
      pieces.push_back({Mix(a, b, places[i]), Mix(a, b, places[i + 1])});
    }
  });
  return Join(std::move(pieces));
}

bool Near(Vec2 a, Vec2 b) { return Length(a - b) < kSame; }

// Takes the segment that continues at `end` out of the heap, turned so that it starts there; false if there is none.
bool TakeNext(std::vector<Segment>& segments, Vec2 end, Segment* next) {
  for (Segment& segment : segments) {
    const bool forward = Near(segment.from, end);
    if (!forward && !Near(segment.to, end)) continue;
    *next = forward ? segment : Segment{segment.to, segment.from};
    segment = segments.back();
    segments.pop_back();
    return true;
  }
  return false;
}

}  // namespace

void Box::Take(Vec2 point) {
  low = {std::min(low.x, point.x), std::min(low.y, point.y)};
  high = {std::max(high.x, point.x), std::max(high.y, point.y)};
}

void Box::Take(const Region& region) {
  ForEachSide(region, [this](Vec2 from, Vec2) { Take(from); });
}

double Area(const Region& region) {
  double total = 0;
  for (const Polygon& polygon : region) {
    // A polygon that lies in an odd number of the others is a hole.
    int around = 0;
    for (const Polygon& other : region) around += &other != &polygon && Contains({other}, polygon[0]);
    total += std::fabs(SignedArea(polygon)) * (around % 2 ? -1 : 1);
  }
  return total;
}

bool Contains(const Region& region, Vec2 point) {
  bool inside = false;
  ForEachSide(region, [&](Vec2 a, Vec2 b) {
    if ((a.y > point.y) == (b.y > point.y)) return;
    if (point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y)) inside = !inside;
  });
  return inside;
}

bool Crosses(const Region& region, const Polygon& convex) {
  bool crosses = false;
  ForEachSide(region, [&](Vec2 a, Vec2 b) {
    const Range range = StretchInside(a, b, convex);
    crosses = crosses || range.from < range.to;
  });
  return crosses;
}

Region Join(std::vector<Segment> segments) {
  segments.erase(std::remove_if(segments.begin(), segments.end(), [](Segment s) { return Near(s.from, s.to); }),
                 segments.end());
  Region region;
  while (!segments.empty()) {
    Polygon polygon = {segments.back().from};
    Vec2 end = segments.back().to;
    segments.pop_back();
    Segment next;
    while (!Near(end, polygon[0]) && TakeNext(segments, end, &next)) {
      polygon.push_back(end);
      end = next.to;
    }
    if (Near(end, polygon[0]) && polygon.size() > 2) region.push_back(std::move(polygon));
  }
  return region;
}

Region Outside(const Region& region, const Polygon& convex) { return Combine(region, convex, false); }

Region Inside(const Region& region, const Polygon& convex) { return Combine(region, convex, true); }

// Monotone chain: the lower side from left to right, then the upper one back.
Polygon Hull(const Region& region) {
  Polygon points;
  ForEachSide(region, [&](Vec2 from, Vec2) { points.push_back(from); });
  std::sort(points.begin(), points.end(), [](Vec2 a, Vec2 b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
  Polygon hull;
  for (int side = 0; side < 2; ++side) {
    const size_t start = hull.size();
    for (const Vec2 point : points) {
      while (hull.size() >= start + 2 && Cross(hull.back() - hull[hull.size() - 2], point - hull.back()) <= 1e-12) {
        hull.pop_back();
      }
      hull.push_back(point);
    }
    if (!hull.empty()) hull.pop_back();
    std::reverse(points.begin(), points.end());
  }
  return hull.size() < 3 ? Polygon() : hull;
}

Polygon Grown(const Polygon& convex, double by) {
  Polygon grown;
  for (size_t i = 0; i < convex.size(); ++i) {
    const Vec2 before = convex[(i + convex.size() - 1) % convex.size()];
    const Vec2 in = (convex[i] - before) * (1 / Length(convex[i] - before));
    const Vec2 next = convex[(i + 1) % convex.size()];
    const Vec2 out = (next - convex[i]) * (1 / Length(next - convex[i]));
    // Where the two moved sides meet: away from the corner along in - out, by the sine of the angle between them.
    const double sine = Cross(in, out);
    grown.push_back(convex[i] + (sine > 1e-6 ? (in - out) * (by / sine) : Vec2{in.y, -in.x} * by));
  }
  return grown;
}

}  // namespace plan
