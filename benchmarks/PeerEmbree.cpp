#include <benchmarks/PeerEmbree.h>

#include <embree3/rtcore.h>

#include <limits>

namespace tesk::benchmarks {

namespace {

/// Method: regions of the triangle's vertices, edges and interior (Ericson, Real-Time Collision Detection, 5.1.5).
osg::Pnt3f closestPointOf(const osg::Pnt3f& a, const osg::Pnt3f& b, const osg::Pnt3f& c, const osg::Pnt3f& point) {
    const osg::Vec3f ab = b - a, ac = c - a, ap = point - a;
    const float d1 = ab.dot(ap), d2 = ac.dot(ap);
    if (d1 <= 0.0f && d2 <= 0.0f) return a;
    const osg::Vec3f bp = point - b;
    const float d3 = ab.dot(bp), d4 = ac.dot(bp);
    if (d3 >= 0.0f && d4 <= d3) return b;
    const float vc = d1 * d4 - d3 * d2;
    if (vc <= 0.0f && d1 >= 0.0f && d3 <= 0.0f) return a + ab * (d1 / (d1 - d3));
    const osg::Vec3f cp = point - c;
    const float d5 = ab.dot(cp), d6 = ac.dot(cp);
    if (d6 >= 0.0f && d5 <= d6) return c;
    const float vb = d5 * d2 - d1 * d6;
    if (vb <= 0.0f && d2 >= 0.0f && d6 <= 0.0f) return a + ac * (d2 / (d2 - d6));
    const float va = d3 * d6 - d5 * d4;
    if (va <= 0.0f && d4 - d3 >= 0.0f && d5 - d6 >= 0.0f) return b + (c - b) * ((d4 - d3) / ((d4 - d3) + (d5 - d6)));
    const float denominator = 1.0f / (va + vb + vc);
    return a + ab * (vb * denominator) + ac * (vc * denominator);
}

/// Takes the triangle for the nearest where it comes nearer than the query reaches, which then reaches no farther.
bool testTriangle(RTCPointQueryFunctionArguments* arguments) {
    const auto& mesh = *static_cast<const test::Mesh*>(arguments->userPtr);
    RTCPointQuery& query = *arguments->query;
    const osg::UInt32* const corners = &mesh.indices[std::size_t{3} * arguments->primID];
    const osg::Pnt3f point(query.x, query.y, query.z);
    const float distance = point.dist(
        closestPointOf(mesh.positions[corners[0]], mesh.positions[corners[1]], mesh.positions[corners[2]], point));
    if (!(distance < query.radius)) return false;
    query.radius = distance;
    return true;
}

class EmbreePeer : public PointDistancePeer {
public:
    EmbreePeer(const std::string& peerName, const std::string& deviceConfiguration, const test::Mesh& input)
        : name(peerName), configuration(deviceConfiguration), mesh(input), triangleCount(input.indices.size() / 3) {
        // Embree reads the last position with a vector's width.
        mesh.positions.reserve(mesh.positions.size() + 1);
    }
    EmbreePeer(const EmbreePeer&) = delete;
    EmbreePeer& operator=(const EmbreePeer&) = delete;
    ~EmbreePeer() override { EmbreePeer::clear(); }

    std::string getName() const override { return name; }

    // All devices share the threads of the one that has most, so there is never more than one.
    void prepare() override { device = rtcNewDevice(configuration.c_str()); }

    void build() override {
        const RTCGeometry geometry = rtcNewGeometry(device, RTC_GEOMETRY_TYPE_TRIANGLE);
        rtcSetSharedGeometryBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, mesh.positions.data(), 0,
                                   sizeof(osg::Pnt3f), mesh.positions.size());
        rtcSetSharedGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3, mesh.indices.data(), 0,
                                   3 * sizeof(osg::UInt32), triangleCount);
        rtcCommitGeometry(geometry);
        scene = rtcNewScene(device);
        rtcAttachGeometry(scene, geometry);
        rtcReleaseGeometry(geometry);
        rtcCommitScene(scene);
    }

    double findDistance(const osg::Pnt3f& point) override {
        RTCPointQuery query{point[0], point[1], point[2], 0.0f, std::numeric_limits<float>::infinity()};
        RTCPointQueryContext context;
        rtcInitPointQueryContext(&context);
        rtcPointQuery(scene, &query, &context, testTriangle, &mesh);
        return static_cast<double>(query.radius);
    }

    void clear() override {
        if (scene != nullptr) rtcReleaseScene(scene);
        if (device != nullptr) rtcReleaseDevice(device);
        scene = nullptr;
        device = nullptr;
    }

private:
    std::string name;
    std::string configuration;
    test::Mesh mesh;
    std::size_t triangleCount;
    RTCDevice device = nullptr;
    RTCScene scene = nullptr;
};

} // namespace

std::unique_ptr<PointDistancePeer> createEmbreePeer(const test::Mesh& mesh) {
    return std::make_unique<EmbreePeer>("embree", "threads=1", mesh);
}

std::unique_ptr<PointDistancePeer> createEmbreePeerOfTwoThreads(const test::Mesh& mesh) {
    return std::make_unique<EmbreePeer>("embree_2_threads", "threads=2", mesh);
}

} // namespace tesk::benchmarks
