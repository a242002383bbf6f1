#include <support/HostileMeshes.h>

#include <OpenSG/OSGGeometry.h>

#include <cmath>
#include <cstdlib>

namespace tesk::test {

using measurement::Triangle;

namespace {

Mesh triangleSoup(Random& random) {
    Mesh mesh;
    const Kind kind = random.kind();
    const std::uint32_t largestCount = random.chance(0.3f) ? 6 : 150;
    const bool isMixed = random.chance(0.3f);
    const float extent = random.chance(0.5f) ? 0.3f : 3.0f;
    for (std::uint32_t i = random.below(largestCount); i > 0; --i) {
        const Triangle triangle = random.triangle(isMixed ? random.kind() : kind, extent);
        const osg::Vec3f place = random.vector(2.0f);
        for (const osg::Pnt3f& corner : {triangle.p0, triangle.p1, triangle.p2}) {
            mesh.indices.push_back(static_cast<osg::UInt32>(mesh.positions.size()));
            mesh.positions.push_back(corner + place);
        }
    }
    return mesh;
}

Mesh surface(Random& random) {
    const std::size_t count = 8 + random.below(300);
    switch (random.below(4)) {
    case 0:
        return sphere(count);
    case 1:
        return torus(count);
    case 2:
        return terrain(count);
    default:
        return bumpySphere(count);
    }
}

template <class Change> void changePositions(Mesh& mesh, Change change) {
    for (osg::Pnt3f& position : mesh.positions)
        for (osg::UInt32 axis = 0; axis < 3; ++axis) position[axis] = change(position[axis]);
}

} // namespace

int differentialRuns(int usual) {
    const char* const factor = std::getenv("TESK_DIFFERENTIAL_FACTOR");
    return factor ? usual * std::atoi(factor) : usual;
}

Mesh hostileMesh(Random& random) {
    Mesh mesh = random.chance(0.5f) ? surface(random) : triangleSoup(random);
    const float scale = random.chance(0.6f) ? random.real(0.5f, 1.5f) : std::pow(10.0f, random.real(-4.0f, 4.0f));
    const osg::Vec3f place = random.vector(random.chance(0.8f) ? 2.0f : 1e5f);
    if (random.chance(0.7f)) changePositions(mesh, [&](float x) { return x * scale; });
    for (osg::Pnt3f& position : mesh.positions) position += place;
    if (random.chance(0.2f)) changePositions(mesh, [](float x) { return std::round(4.0f * x) * 0.25f; });
    if (random.chance(0.02f)) changePositions(mesh, [](float x) { return x * 1e18f; });
    if (random.chance(0.1f)) {
        const std::vector<osg::UInt32> again = mesh.indices;
        mesh.indices.insert(mesh.indices.end(), again.begin(), again.end());
    }
    if (random.chance(0.1f))
        for (std::size_t i = 0; i < mesh.indices.size(); i += 3) mesh.indices[i + 2] = mesh.indices[i + 1];
    return mesh;
}

SceneNode hostileGeometry(Random& random) {
    Mesh mesh;
    for (std::uint32_t i = 1 + random.below(200); i > 0; --i) mesh.positions.push_back(random.point(3.0f));
    const auto positionCount = static_cast<osg::UInt32>(mesh.positions.size());
    for (std::uint32_t i = random.below(120); i > 0; --i)
        mesh.indices.push_back(random.chance(0.002f) ? ~0u : random.below(positionCount + random.chance(0.01f)));
    if (random.chance(0.7f)) mesh.indices.resize(mesh.indices.size() / 3 * 3);
    const SceneNode node = geometry(mesh);
    const osg::GeometryPtr core = osg::GeometryPtr::dcast(node->getCore());
    if (random.chance(0.2f)) {
        const osg::GeoIndicesPtr narrow = osg::GeoIndicesUI16::create();
        for (const osg::UInt32 index : mesh.indices) narrow->push_back(index);
        core->setIndices(narrow);
    }
    if (random.chance(0.2f)) core->getLengths()->setValue(random.below(40), 0);
    if (random.chance(0.2f)) core->getTypes()->setValue(GL_TRIANGLE_STRIP, 0);
    if (random.chance(0.2f)) {
        core->getTypes()->push_back(random.chance(0.5f) ? GL_TRIANGLE_FAN : GL_LINE_STRIP);
        core->getLengths()->push_back(random.below(20));
    }
    if (random.chance(0.1f)) {
        core->getMFIndexMapping()->push_back(osg::Geometry::MapNormal);
        core->getMFIndexMapping()->push_back(osg::Geometry::MapPosition);
    }
    return node;
}

} // namespace tesk::test
