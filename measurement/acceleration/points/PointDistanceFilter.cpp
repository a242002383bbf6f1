#include <measurement/acceleration/points/PointDistanceFilter.h>

#define TESK_KERNEL <measurement/acceleration/points/PointDistanceLanes.h>
#include <measurement/acceleration/vector/CompileKernel.h>

namespace tesk::measurement::acceleration {

unsigned findNear(const PrimitiveLanes<Triangle>& triangles, const osg::Pnt3f& point, float best, InstructionSet set) {
    return TESK_CALL_KERNEL(set, findNearTriangles, triangles, point[0], point[1], point[2], best);
}

unsigned findNear(const PrimitiveLanes<Segment>& segments, const osg::Pnt3f& point, float best, InstructionSet set) {
    return TESK_CALL_KERNEL(set, findNearSegments, segments, point[0], point[1], point[2], best);
}

unsigned findNear(const BoxLanes& boxes, const osg::Pnt3f& point, float best, InstructionSet set, float (&bounds)[8]) {
    return TESK_CALL_KERNEL(set, findNearBoxes, boxes, point[0], point[1], point[2], best, bounds);
}

} // namespace tesk::measurement::acceleration
