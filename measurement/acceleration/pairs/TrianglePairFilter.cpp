#include <measurement/acceleration/pairs/TrianglePairFilter.h>

#include <measurement/geometry/detail/Constants.h>

#define TESK_KERNEL <measurement/acceleration/pairs/TrianglePairLanes.h>
#include <measurement/acceleration/vector/CompileKernel.h>

namespace tesk::measurement::acceleration {

bool mayMatter(const PackedTriangle& first, const PackedTriangle& second, float best, InstructionSet set) {
    // Even a query that ends before it computes anything says less than infinity.
    if (best > detail::largestFloat) return true;
    return TESK_CALL_KERNEL(set, hasEdgeNearer, first, second, best, detail::touchingDistance);
}

float measureTrianglePair(const PackedTriangle& first, const PackedTriangle& second, InstructionSet set) {
    return TESK_CALL_KERNEL(set, nearestEdge, first, second, detail::largestFloat);
}

} // namespace tesk::measurement::acceleration
