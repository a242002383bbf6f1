#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/Validity.h>
#include <measurement/scene/DistanceBoundingVolumeTree.h>
#include <measurement/scene/PointObjectDistanceCalculator.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleGeometry.h>

#include <limits>
#include <optional>

using namespace tesk::measurement;

namespace {

//! [query]
std::optional<osg::Pnt3f> nearestOnEdge(const Segment& edge, const osg::Pnt3f& point) {
    const DistanceSegmentPoint query(edge, point);
    if (!isValid(query.getClosestPoint())) return std::nullopt; // an edge of length zero
    return query.getClosestPoint();
}
//! [query]

//! [calculator]
std::optional<osg::Pnt3f> nearestOnObject(const osg::NodePtr& object, const osg::Pnt3f& point) {
    PointObjectDistanceCalculator calculator;
    calculator.calc(point, object);
    if (calculator.getNode() == osg::NullFC) return std::nullopt; // there is no geometry below the object
    return calculator.getPoint();
}
//! [calculator]

//! [bound]
/// Whether any triangles come closer than a limit; a search with a limit ends sooner than one for the minimum.
bool isCloserThan(float limit, const BoundingVolumeTree& part1, const BoundingVolumeTree& part2) {
    const float bound = limit * limit;
    const DistanceBoundingVolumeTree search(part1, part2, bound);
    // At the bound itself nothing was found: the points are the origin.
    return search.getSquaredDistance() < bound;
}
//! [bound]

} // namespace

int main(int argc, char** argv) {
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr empty(osg::makeCoredNode<osg::Group>());
    const osg::NodeRefPtr box(osg::makeBox(2, 2, 2, 1, 1, 1));
    const osg::Pnt3f origin(0, 0, 0);
    const osg::Pnt3f above(0, 0, 3);
    const BoundingVolumeTree tree(box.get());
    const BoundingVolumeTree emptyTree;
    const bool isRight = !nearestOnEdge({origin, origin}, above) && nearestOnEdge({origin, {1, 0, 0}}, above) &&
                         !nearestOnObject(empty.get(), above) && nearestOnObject(box.get(), above) &&
                         isCloserThan(1, tree, tree) && !isCloserThan(1, tree, emptyTree);
    return isRight ? 0 : 1;
}
