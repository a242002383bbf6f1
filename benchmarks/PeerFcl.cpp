#include <benchmarks/PeerFcl.h>

#include <fcl/geometry/bvh/BVH_model.h>
#include <fcl/math/bv/OBBRSS.h>
#include <fcl/math/bv/RSS.h>
#include <fcl/narrowphase/distance.h>

#include <algorithm>

namespace tesk::benchmarks {

namespace {

template <class Volume> class FclPeer : public MeshDistancePeer {
public:
    FclPeer(const std::string& volumeName, const std::vector<test::Mesh>& meshes) : name("fcl_" + volumeName) {
        for (const test::Mesh& mesh : meshes) inputs.emplace_back(mesh);
    }

    std::string getName() const override { return name; }

    void build() override {
        for (const Input& input : inputs) {
            models.push_back(std::make_unique<Model>());
            models.back()->beginModel(static_cast<int>(input.triangles.size()),
                                      static_cast<int>(input.vertices.size()));
            models.back()->addSubModel(input.vertices, input.triangles);
            models.back()->endModel();
        }
    }

    double findDistance() override {
        const fcl::DistanceRequest<Number> request(true);
        fcl::DistanceResult<Number> result;
        const auto still = fcl::Transform3<Number>::Identity();
        fcl::distance<Number>(models[0].get(), still, models[1].get(), still, request, result);
        // Objects in collision may be given a negative distance.
        return std::max(0.0, static_cast<double>(result.min_distance));
    }

    void clear() override { models.clear(); }

private:
    using Number = typename Volume::S;
    using Model = fcl::BVHModel<Volume>;

    struct Input {
        explicit Input(const test::Mesh& mesh) {
            for (const osg::Pnt3f& p : mesh.positions) vertices.emplace_back(p[0], p[1], p[2]);
            for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
                triangles.emplace_back(mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]);
        }
        std::vector<fcl::Vector3<Number>> vertices;
        std::vector<fcl::Triangle> triangles;
    };

    std::string name;
    std::vector<Input> inputs;
    std::vector<std::unique_ptr<Model>> models;
};

} // namespace

std::unique_ptr<MeshDistancePeer> createFclObbRssPeer(const std::vector<test::Mesh>& meshes) {
    return std::make_unique<FclPeer<fcl::OBBRSS<double>>>("obbrss", meshes);
}

std::unique_ptr<MeshDistancePeer> createFclRssPeer(const std::vector<test::Mesh>& meshes) {
    return std::make_unique<FclPeer<fcl::RSS<float>>>("rss", meshes);
}

} // namespace tesk::benchmarks
