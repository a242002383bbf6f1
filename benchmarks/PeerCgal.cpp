#include <benchmarks/PeerCgal.h>

#include <CGAL/AABB_traits.h>
#include <CGAL/AABB_tree.h>
#include <CGAL/AABB_triangle_primitive.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_mesh_slicer.h>
#include <CGAL/Simple_cartesian.h>
#include <CGAL/Surface_mesh.h>

#include <cmath>
#include <iterator>
#include <optional>

namespace tesk::benchmarks {

namespace {

using Kernel = CGAL::Simple_cartesian<double>;
using Point = Kernel::Point_3;
using Triangles = std::vector<Kernel::Triangle_3>;
using Tree = CGAL::AABB_tree<CGAL::AABB_traits<Kernel, CGAL::AABB_triangle_primitive<Kernel, Triangles::iterator>>>;

Point convert(const osg::Pnt3f& point) { return {point[0], point[1], point[2]}; }

class CgalPeer : public PointDistancePeer {
public:
    CgalPeer(const std::string& peerName, bool isHinted, const test::Mesh& mesh) : name(peerName), hinted(isHinted) {
        for (const measurement::Triangle& t : test::trianglesOf(mesh))
            triangles.emplace_back(convert(t.p0), convert(t.p1), convert(t.p2));
    }

    std::string getName() const override { return name; }

    void build() override {
        tree.emplace(triangles.begin(), triangles.end());
        if (hinted) {
            tree->accelerate_distance_queries();
        } else {
            tree->do_not_accelerate_distance_queries();
        }
        tree->build();
    }

    double findDistance(const osg::Pnt3f& point) override {
        const Point query = convert(point);
        return std::sqrt(CGAL::squared_distance(query, tree->closest_point(query)));
    }

    void clear() override { tree.reset(); }

private:
    std::string name;
    bool hinted;
    Triangles triangles;
    std::optional<Tree> tree;
};

class CgalSlicePeer : public SlicePeer {
public:
    explicit CgalSlicePeer(const test::Mesh& input) {
        for (const osg::Pnt3f& p : input.positions) mesh.add_vertex({p[0], p[1], p[2]});
        const auto corner = [&](std::size_t i) { return Mesh::Vertex_index(input.indices[i]); };
        for (std::size_t i = 0; i < input.indices.size(); i += 3)
            mesh.add_face(corner(i), corner(i + 1), corner(i + 2));
    }

    std::string getName() const override { return "cgal"; }

    void build() override { slicer.emplace(mesh); }

    std::vector<double> findOutlineLengths(const osg::Vec3f& normal, const std::vector<float>& offsets) override {
        std::vector<double> lengths;
        for (const float offset : offsets)
            lengths.push_back(findOutlineLength({normal[0], normal[1], normal[2], offset}));
        return lengths;
    }

    void clear() override { slicer.reset(); }

private:
    /// Where a plane runs between vertices, the slicer relies on exact answers.
    using SlicingKernel = CGAL::Exact_predicates_inexact_constructions_kernel;
    using Mesh = CGAL::Surface_mesh<SlicingKernel::Point_3>;

    double findOutlineLength(const SlicingKernel::Plane_3& plane) const {
        std::vector<std::vector<SlicingKernel::Point_3>> lines;
        (*slicer)(plane, std::back_inserter(lines));
        double length = 0.0;
        for (const auto& line : lines)
            for (std::size_t i = 1; i < line.size(); ++i)
                length += std::sqrt(CGAL::squared_distance(line[i - 1], line[i]));
        return length;
    }

    Mesh mesh;
    std::optional<CGAL::Polygon_mesh_slicer<Mesh, SlicingKernel>> slicer;
};

} // namespace

std::unique_ptr<PointDistancePeer> createCgalPeer(const test::Mesh& mesh) {
    return std::make_unique<CgalPeer>("cgal", false, mesh);
}

std::unique_ptr<PointDistancePeer> createCgalHintedPeer(const test::Mesh& mesh) {
    return std::make_unique<CgalPeer>("cgal_hinted", true, mesh);
}

std::unique_ptr<SlicePeer> createCgalSlicePeer(const test::Mesh& mesh) { return std::make_unique<CgalSlicePeer>(mesh); }

} // namespace tesk::benchmarks
