#include <benchmarks/PeerCgal.h>

#include <CGAL/AABB_traits.h>
#include <CGAL/AABB_tree.h>
#include <CGAL/AABB_triangle_primitive.h>
#include <CGAL/Simple_cartesian.h>

#include <cmath>
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

} // namespace

std::unique_ptr<PointDistancePeer> createCgalPeer(const test::Mesh& mesh) {
    return std::make_unique<CgalPeer>("cgal", false, mesh);
}

std::unique_ptr<PointDistancePeer> createCgalHintedPeer(const test::Mesh& mesh) {
    return std::make_unique<CgalPeer>("cgal_hinted", true, mesh);
}

} // namespace tesk::benchmarks
