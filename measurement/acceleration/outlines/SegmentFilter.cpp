#include <measurement/acceleration/outlines/SegmentFilter.h>

#define TESK_KERNEL <measurement/acceleration/outlines/SegmentFilterLanes.h>
#include <measurement/acceleration/vector/CompileKernel.h>

namespace tesk::measurement::acceleration {

void BlurredBoxLanes::set(std::size_t lane, const BlurredBox& box) {
    boxes.low.set(static_cast<int>(lane), {box.box.min[0], box.box.min[1], box.box.min[2]});
    boxes.high.set(static_cast<int>(lane), {box.box.max[0], box.box.max[1], box.box.max[2]});
    blurs[lane] = box.blur;
}

BlurredBox BlurredBoxLanes::get(std::size_t lane) const {
    return {{Quad{boxes.low.x[lane], boxes.low.y[lane], boxes.low.z[lane]},
             Quad{boxes.high.x[lane], boxes.high.y[lane], boxes.high.z[lane]}},
            blurs[lane]};
}

unsigned findNear(const BlurredBoxLanes& boxes, const BlurredBox& other, const SearchReach& reach, InstructionSet set,
                  float (&bounds)[8]) {
    return TESK_CALL_KERNEL(set, findNearBoxes, boxes, other, reach, bounds);
}

unsigned findNear(const PrimitiveLanes<Triangle>& triangles, const Segment& segment, float blur,
                  const SearchReach& reach, InstructionSet set, float (&distances)[8]) {
    return TESK_CALL_KERNEL(set, findNearTriangles, triangles, segment, blur, reach, distances);
}

} // namespace tesk::measurement::acceleration
