#pragma once

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGNode.h>

#include <measurement/acceleration/PlaneRanks.h>
#include <measurement/geometry/Primitives.h>
#include <measurement/section/GenericTriangleIterator.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tesk::measurement::detail {

template <class Index> struct TriangleIndices;

/// Which triangles parallel planes cut, in the order of geometries and triangles, and so the planes' outlines.
///
/// Planes are numbered from the lowest. Cuts are kept as numbers; a plane's segments are made when they are asked for,
/// from the geometries' positions, so these must stay. 16 bytes for each triangle that is cut and 4 for each plane that
/// cuts it.
class PlaneCuts {
public:
    /// Nothing is cut any more.
    void clear();
    /// Adds the triangles of a geometry that planes from `planes.first` to before `planes.last` cut, these by their
    /// offsets in its frame. Ends early where isAbove(limit) is then true.
    void add(const osg::NodePtr& node, const osg::Vec3f& localNormal, const std::vector<float>& localOffsets,
             acceleration::PlaneRange planes, std::size_t limit);
    bool isAbove(std::size_t limit) const { return crossingCount > limit; }
    /// Of planes and triangles that they cut.
    std::size_t countCrossings() const { return crossingCount; }

    /// To be called before what follows.
    void sortByPlane(std::size_t planeCount);
    std::size_t countCrossings(std::size_t plane) const { return ends[plane + 1] - ends[plane]; }
    /// Fills an empty vector with the segments of one of the planes, (normal, offset) in world coordinates. May be
    /// called by several threads at once.
    void makeOutline(std::size_t plane, const osg::Vec3f& normal, float offset, std::vector<Segment>& outline) const;

private:
    struct CutGeometry {
        const osg::Pnt3f* positions;
        osg::Matrix toWorld;
        osg::Vec3f localNormal;
        /// Behind the number of its last triangle that is cut.
        std::size_t end;
    };
    /// A triangle by the numbers of its corners and the planes that have corners on both sides.
    struct CutTriangle {
        std::uint32_t corners[3];
        std::uint16_t firstPlane, lastPlane;
    };
    using CutTriangles = std::vector<CutTriangle>;

    /// What does not change from triangle to triangle of a geometry.
    struct Task;

    void addEach(GenericTriangleIterator triangle, const Task& task);
    template <class Index> void addList(const TriangleIndices<Index>& indices, const Task& task);
    template <class Index> void addSome(const Index* corners, std::size_t count, const Task& task, CutTriangles& found);

    acceleration::PlaneRanks ranks;
    std::vector<CutGeometry> geometries;
    CutTriangles triangles;
    std::atomic<std::size_t> crossingCount{0};
    /// Numbers of the triangles that the lowest plane cuts, the next one, and so on; where each plane's end, the first
    /// being that of none.
    std::vector<std::uint32_t> numbers;
    std::vector<std::size_t> ends;
};

} // namespace tesk::measurement::detail
