#include <measurement/section/detail/PlaneCuts.h>

#include <measurement/acceleration/Workers.h>
#include <measurement/section/detail/PlaneCut.h>

#include <algorithm>

namespace tesk::measurement::detail {

namespace {

using acceleration::PlaneRange;

constexpr std::size_t trianglesWorthAThread = 1 << 17;

/// Triangles looked at before the next ones.
constexpr std::size_t trianglesAtOnce = 256;

/// So many triangles ahead what is read of them is asked for: a plane takes them from all over memory.
constexpr std::size_t trianglesAhead = 8;

} // namespace

struct PlaneCuts::Task {
    std::uint32_t positionCount;
    std::size_t firstPlane;
    std::size_t limit;
};

void PlaneCuts::clear() {
    geometries.clear();
    triangles.clear();
    crossingCount = 0;
}

void PlaneCuts::add(const osg::NodePtr& node, const osg::Vec3f& localNormal, const std::vector<float>& localOffsets,
                    PlaneRange planes, std::size_t limit) {
    const osg::GeometryPtr geometry = getGeometry(node);
    const PositionArray positions(geometry);
    if (positions.count == 0) return;
    ranks.assign(localNormal, localOffsets, positions.points, positions.count, countCorners(geometry));
    const Task task{positions.count, planes.first, limit};
    if (!isTriangleList(geometry))
        addEach(GenericTriangleIterator(node), task);
    else if (const auto narrow = osg::GeoIndicesUI16Ptr::dcast(geometry->getIndices()); narrow != osg::NullFC)
        addList(TriangleIndices<osg::UInt16>(geometry, narrow), task);
    else if (const auto wide = osg::GeoIndicesUI32Ptr::dcast(geometry->getIndices()); wide != osg::NullFC)
        addList(TriangleIndices<osg::UInt32>(geometry, wide), task);
    geometries.push_back({positions.points, node->getToWorld(), localNormal, triangles.size()});
}

void PlaneCuts::addEach(GenericTriangleIterator triangle, const Task& task) {
    std::uint32_t corners[3 * trianglesAtOnce];
    while (!triangle.isAtEnd() && !isAbove(task.limit)) {
        std::size_t count = 0;
        for (; !triangle.isAtEnd() && count < trianglesAtOnce; ++triangle, ++count)
            for (osg::UInt32 i = 0; i < 3; ++i) corners[3 * count + i] = triangle.getPositionIndex(i);
        addSome(corners, count, task, triangles);
    }
}

template <class Index> void PlaneCuts::addList(const TriangleIndices<Index>& indices, const Task& task) {
    // What the first chunk finds is in its place at once.
    std::vector<CutTriangles> found(acceleration::chunkCount(indices.count, trianglesWorthAThread) - 1);
    const auto addChunk = [&](std::size_t chunk, std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end && !isAbove(task.limit); i += trianglesAtOnce)
            addSome(indices.first + 3 * i, std::min(trianglesAtOnce, end - i), task,
                    chunk == 0 ? triangles : found[chunk - 1]);
    };
    acceleration::runInChunks(indices.count, trianglesWorthAThread, addChunk);
    for (const CutTriangles& some : found) triangles.insert(triangles.end(), some.begin(), some.end());
}

template <class Index>
void PlaneCuts::addSome(const Index* corners, std::size_t count, const Task& task, CutTriangles& found) {
    std::size_t crossings = 0;
    for (const Index* const end = corners + 3 * count; corners < end; corners += 3) {
        const std::uint32_t i0 = corners[0], i1 = corners[1], i2 = corners[2];
        if (std::max(std::max(i0, i1), i2) >= task.positionCount) continue;
        const PlaneRange range = ranks.planesThrough(i0, i1, i2);
        if (range.isEmpty()) continue;
        found.push_back({{i0, i1, i2},
                         static_cast<std::uint16_t>(task.firstPlane + range.first),
                         static_cast<std::uint16_t>(task.firstPlane + range.last)});
        crossings += range.last - range.first;
    }
    crossingCount.fetch_add(crossings, std::memory_order_relaxed);
}

void PlaneCuts::sortByPlane(std::size_t planeCount) {
    // First where each plane's numbers begin, one place further on than where they end at last.
    ends.assign(planeCount + 2, 0);
    for (const CutTriangle& triangle : triangles)
        for (std::size_t plane = triangle.firstPlane; plane < triangle.lastPlane; ++plane) ++ends[plane + 2];
    for (std::size_t plane = 0; plane < planeCount; ++plane) ends[plane + 2] += ends[plane + 1];
    numbers.resize(crossingCount);
    // A triangle that is there, for what looks ahead.
    numbers.resize(crossingCount + 2 * trianglesAhead, 0);
    std::uint32_t number = 0;
    for (const CutTriangle& triangle : triangles) {
        for (std::size_t plane = triangle.firstPlane; plane < triangle.lastPlane; ++plane)
            numbers[ends[plane + 1]++] = number;
        ++number;
    }
}

void PlaneCuts::makeOutline(std::size_t plane, const osg::Vec3f& normal, float offset,
                            std::vector<Segment>& outline) const {
    outline.reserve(countCrossings(plane));
    auto number = numbers.begin() + static_cast<std::ptrdiff_t>(ends[plane]);
    const auto end = numbers.begin() + static_cast<std::ptrdiff_t>(ends[plane + 1]);
    while (number != end) {
        const CutGeometry& geometry =
            *std::upper_bound(geometries.begin(), geometries.end(), *number,
                              [](std::size_t first, const CutGeometry& candidate) { return first < candidate.end; });
        const float localOffset = Plane(Plane(normal, offset), geometry.toWorld).offset;
        const TriangleCutter cutter(geometry.localNormal, localOffset, geometry.toWorld);
        for (; number != end && *number < geometry.end; ++number) {
            __builtin_prefetch(&triangles[number[2 * trianglesAhead]]);
            for (const std::uint32_t corner : triangles[number[trianglesAhead]].corners)
                __builtin_prefetch(geometry.positions + corner);
            const std::uint32_t* const corners = triangles[*number].corners;
            cutter.cut(geometry.positions[corners[0]], geometry.positions[corners[1]], geometry.positions[corners[2]],
                       outline);
        }
    }
}

} // namespace tesk::measurement::detail
