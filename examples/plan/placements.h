// The frames of IFC's placements, and the length unit.
#ifndef PLAN_PLACEMENTS_H
#define PLAN_PLACEMENTS_H

#include "building.h"
#include "vectors.h"

namespace plan {

Vec3 PointOf(const CartesianPoint* point);  // the origin for none

// Of an IfcAxis2Placement2D, IfcAxis2Placement3D or IfcCartesianTransformationOperator3D; the identity for anything
// else, an omitted placement too.
Frame FrameOf(STEPheader* placement);

// Of a product, in the units of the file, with all the placements that it is relative to.
Frame FrameOf(const Product& product);

// How many metres a length of 1 in the file is. 1 when the model does not say.
double MetresPerUnit(STEPmodel& model);

}  // namespace plan

#endif
