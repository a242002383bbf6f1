#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/Export.h>

namespace tesk::measurement {

/// The point of a scene subtree's geometry nearest a query point, and the node that carries it.
///
/// Both points are in world coordinates. Children are those of ChildEnumerator; the triangles and
/// lines of every geometry are measured, with children or without, point primitives are not. Of
/// equal distances the first in the order of the walk stays: parents first, triangles before lines.
///
/// Distances are compared in the local units of each geometry. Below a scaling transform a geometry
/// competes with its unscaled distance, so that the nearest of several differently scaled
/// geometries may lose; the point reported is a true world point all the same.
///
/// When nothing is found, the node is null and the point keeps its value from before: so for an
/// object that is null or without geometry. Triangles whose closest point fails isValid() do not
/// count, nor do lines of length zero and primitives with an index beyond the positions. A matrix
/// that has no inverse counts as having the identity for one; with a matrix that is not finite no
/// triangle is found.
///
/// The scene must not change during a calculation; the node is not held by a reference. A
/// calculator may be used again and again.
///
/// Cost: linear in the primitives of the subtree, one matrix inversion for each geometry.
///
/// \code
/// PointObjectDistanceCalculator calculator;
/// calculator.calc(picked, object);
/// if (calculator.getNode() != osg::NullFC) distance = picked.dist(calculator.getPoint());
/// \endcode
class TESK_MEASUREMENT_EXPORT PointObjectDistanceCalculator {
public:
    void calc(const osg::Pnt3f& queryPoint, const osg::NodePtr& object);

    const osg::Pnt3f& getPoint() const { return closestPoint; }
    const osg::NodePtr& getNode() const { return node; }

private:
    void findPointObjectDistance(const osg::NodePtr& object);
    void testGeometry(const osg::NodePtr& candidate);

    osg::Pnt3f point{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestPoint{0.0f, 0.0f, 0.0f};
    osg::NodePtr node;
    float squaredDistance = 0.0f;
};

} // namespace tesk::measurement
