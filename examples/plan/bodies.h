// Bodies: the solids of a part as flat faces, in metres and in the coordinates of the whole building.
#ifndef PLAN_BODIES_H
#define PLAN_BODIES_H

#include <vector>

#include "region.h"
#include "vectors.h"

namespace plan {

using Ring = std::vector<Vec3>;
using FlatFace = std::vector<Ring>;  // the outer ring and those of its holes

// What a clipping takes away: all on one side of a plane, perhaps only within a boundary in plan.
struct Cut {
  Vec3 point;
  Vec3 normal;    // points into what is taken away
  Polygon limit;  // convex, counter-clockwise; empty for no limit
};

struct Body {
  std::vector<FlatFace> faces;
  std::vector<Cut> cuts;
};

// Whether all coordinates are numbers of a size that a building can have. A damaged file has others.
bool IsPlausible(const Body& body);

// What the horizontal plane at this height cuts out of the body. The height must not be that of a corner.
Region Slice(const Body& body, double height);

// The level surfaces between the two heights, lowest first: treads, floors.
std::vector<Region> LevelFaces(const Body& body, double low, double high);

// What the body covers in plan, as a convex polygon.
Polygon HullOf(const Body& body);

// The heights of the lowest and the highest corner; low > high without any.
struct Heights {
  double low = 1e9, high = -1e9;
};
Heights HeightsOf(const std::vector<Body>& bodies);

}  // namespace plan

#endif
