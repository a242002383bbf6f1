#include <benchmarks/PeerFcl.h>

#include <fcl/geometry/bvh/BVH_model.h>
#include <fcl/math/bv/OBBRSS.h>
#include <fcl/math/bv/RSS.h>
#include <fcl/narrowphase/distance.h>

#include <algorithm>

namespace tesk::benchmarks {

namespace {

/// Triangles in the types of FCL.
template <class Volume> class FclMesh {
public:
    using Number = typename Volume::S;
    using Model = fcl::BVHModel<Volume>;

    explicit FclMesh(const test::Mesh& mesh) {
        for (const osg::Pnt3f& p : mesh.positions) vertices.emplace_back(p[0], p[1], p[2]);
        for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
            triangles.emplace_back(mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]);
    }
    /// Segments as triangles that have their end twice.
    explicit FclMesh(const Outline& outline) {
        for (const measurement::Segment& segment : outline) {
            const std::size_t start = vertices.size();
            for (const osg::Pnt3f& p : {segment.start, segment.end}) vertices.emplace_back(p[0], p[1], p[2]);
            triangles.emplace_back(start, start + 1, start + 1);
        }
    }

    std::unique_ptr<Model> build() const {
        auto model = std::make_unique<Model>();
        model->beginModel(static_cast<int>(triangles.size()), static_cast<int>(vertices.size()));
        model->addSubModel(vertices, triangles);
        model->endModel();
        return model;
    }

    static double findDistance(const Model& first, const Model& second) {
        const fcl::DistanceRequest<Number> request(true);
        fcl::DistanceResult<Number> result;
        const auto still = fcl::Transform3<Number>::Identity();
        fcl::distance<Number>(&first, still, &second, still, request, result);
        // Objects in collision may be given a negative distance.
        return std::max(0.0, static_cast<double>(result.min_distance));
    }

private:
    std::vector<fcl::Vector3<Number>> vertices;
    std::vector<fcl::Triangle> triangles;
};

template <class Volume> class FclPeer : public MeshDistancePeer {
public:
    FclPeer(const std::string& volumeName, const std::vector<test::Mesh>& inputs) : name("fcl_" + volumeName) {
        for (const test::Mesh& input : inputs) meshes.emplace_back(input);
    }

    std::string getName() const override { return name; }

    void build() override {
        for (const FclMesh<Volume>& mesh : meshes) models.push_back(mesh.build());
    }

    double findDistance() override { return FclMesh<Volume>::findDistance(*models[0], *models[1]); }

    void clear() override { models.clear(); }

private:
    std::string name;
    std::vector<FclMesh<Volume>> meshes;
    std::vector<std::unique_ptr<typename FclMesh<Volume>::Model>> models;
};

class FclOutlinePeer : public OutlineDistancePeer {
public:
    FclOutlinePeer(const test::Mesh& input, const std::vector<Outline>& inputs)
        : mesh(input), outlines(inputs.begin(), inputs.end()) {}

    std::string getName() const override { return "fcl_rss"; }

    void build() override { model = mesh.build(); }

    double findDistance(std::size_t outline) override { return Mesh::findDistance(*outlines[outline].build(), *model); }

    void clear() override { model.reset(); }

private:
    using Mesh = FclMesh<fcl::RSS<float>>;

    Mesh mesh;
    std::vector<Mesh> outlines;
    std::unique_ptr<Mesh::Model> model;
};

} // namespace

std::unique_ptr<MeshDistancePeer> createFclObbRssPeer(const std::vector<test::Mesh>& meshes) {
    return std::make_unique<FclPeer<fcl::OBBRSS<double>>>("obbrss", meshes);
}

std::unique_ptr<MeshDistancePeer> createFclRssPeer(const std::vector<test::Mesh>& meshes) {
    return std::make_unique<FclPeer<fcl::RSS<float>>>("rss", meshes);
}

std::unique_ptr<OutlineDistancePeer> createFclOutlinePeer(const test::Mesh& mesh,
                                                          const std::vector<Outline>& outlines) {
    return std::make_unique<FclOutlinePeer>(mesh, outlines);
}

} // namespace tesk::benchmarks
