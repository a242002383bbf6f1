#include <measurement/scene/detail/SubtreeSnapshot.h>

#include <measurement/scene/detail/GeometrySnapshot.h>
#include <measurement/scene/detail/NodeGeometry.h>
#include <measurement/scene/detail/SubtreeWalk.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tesk::measurement::detail {

SubtreeSnapshot::SubtreeSnapshot(const osg::NodePtr& root) {
    visitSubtree(root, [this](const osg::NodePtr& node) {
        const osg::GeometryPtr geometry = getGeometry(node);
        if (geometry == osg::NullFC) return;
        auto snapshot = std::make_unique<GeometrySnapshot>(geometry, node->getToWorld());
        if (snapshot->getMesh().triangleCount == 0) return;
        if (!single && corners.empty()) {
            single = std::move(snapshot);
            return;
        }
        if (single) append(single->getMesh());
        single.reset();
        append(snapshot->getMesh());
    });
    if (single) {
        mesh = single->getMesh();
        return;
    }
    // One more, as the mesh wants it.
    positions.emplace_back(0.0f, 0.0f, 0.0f);
    mesh = {positions.data(), corners.data(), static_cast<std::uint32_t>(corners.size() / 3)};
}

SubtreeSnapshot::~SubtreeSnapshot() = default;

void SubtreeSnapshot::append(const acceleration::TriangleMesh& part) {
    const auto first = static_cast<std::uint32_t>(positions.size());
    const std::uint32_t* const end = part.corners + std::size_t(3) * part.triangleCount;
    positions.insert(positions.end(), part.positions, part.positions + *std::max_element(part.corners, end) + 1);
    std::transform(part.corners, end, std::back_inserter(corners),
                   [first](std::uint32_t corner) { return first + corner; });
}

} // namespace tesk::measurement::detail
