#include <measurement/acceleration/pairs/TriangleGroupFilter.h>

#include <algorithm>

#define TESK_KERNEL <measurement/acceleration/pairs/TriangleGroupLanes.h>
#include <measurement/acceleration/vector/CompileKernel.h>

namespace tesk::measurement::acceleration {

TriangleGroup createTriangleGroup(const CompactTree& tree, const CompactTree::Group& group) {
    TriangleGroup lanes;
    for (std::uint32_t lane = 0; lane < 8; ++lane) {
        const std::uint32_t number = tree.getNumbers()[std::min(group.begin + lane, group.end - 1)];
        for (std::size_t which = 0; which < 3; ++which)
            lanes.corners[which].set(static_cast<int>(lane), tree.getMesh().corner(number, which));
    }
    return lanes;
}

void findNear(const TriangleGroup& first, const TriangleGroup& second, const GroupGap& gap, InstructionSet set,
              std::uint8_t (&near)[8]) {
    TESK_CALL_KERNEL(set, findNearInGroups, first, second, gap, near);
}

} // namespace tesk::measurement::acceleration
