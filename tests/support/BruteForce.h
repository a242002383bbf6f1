#pragma once

#include <measurement/geometry/Primitives.h>

#include <list>
#include <vector>

/// True minimum squared distances, found by searching the parameters in double precision.
///
/// Good to about 1e-9 of the operands' squared size. Degenerate operands are fine, others than finite are not.
namespace tesk::test {

double squaredDistance(const osg::Pnt3f& a, const osg::Pnt3f& b);
double squaredDistance(const measurement::Segment& segment, const osg::Pnt3f& point);
double squaredDistance(const measurement::Triangle& triangle, const osg::Pnt3f& point);
/// About 30 000 steps.
double squaredDistance(const measurement::Segment& segment, const measurement::Triangle& triangle);
/// Six times that.
double squaredDistance(const measurement::Triangle& a, const measurement::Triangle& b);

/// The cut of triangles by a plane a*x + b*y + c*z + d = 0 that has none of their corners on it.
std::list<measurement::Segment> cut(const std::vector<measurement::Triangle>& triangles, const osg::Vec4f& plane);

} // namespace tesk::test
