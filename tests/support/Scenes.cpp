#include <support/Scenes.h>

#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGTransform.h>

#include <cmath>

namespace tesk::test {

using measurement::Segment;
using measurement::Triangle;

namespace {

const bool started = osg::osgInit(0, nullptr);

constexpr float fullTurn = 6.2831853f;

template <class Core, class SetUp> SceneNode createNode(const SceneNodes& children, SetUp setUp) {
    typename Core::Ptr core;
    const SceneNode node(osg::makeCoredNode<Core>(&core));
    {
        // Some OpenSG draws only what an edit has announced.
        const osg::CPEditor edit(core);
        setUp(core);
    }
    for (const SceneNode& child : children) node->addChild(child);
    return node;
}

/// One primitive over all indices, or over all positions when there are none.
SceneNode createGeometry(osg::UInt8 type, const Mesh& mesh) {
    return createNode<osg::Geometry>({}, [&](const osg::GeometryPtr& core) {
        core->setTypes(osg::GeoPTypesUI8::create());
        core->getTypes()->push_back(type);
        core->setPositions(osg::GeoPositions3f::create());
        for (const osg::Pnt3f& position : mesh.positions) core->getPositions()->push_back(position);
        if (!mesh.indices.empty()) core->setIndices(osg::GeoIndicesUI32::create());
        for (const osg::UInt32 index : mesh.indices) core->getIndices()->push_back(index);
        const std::size_t length = mesh.indices.empty() ? mesh.positions.size() : mesh.indices.size();
        core->setLengths(osg::GeoPLengthsUI32::create());
        core->getLengths()->push_back(static_cast<osg::UInt32>(length));
    });
}

/// The surface over the unit square as a grid of cells, each two triangles.
template <class Surface> Mesh createGrid(std::size_t triangleCount, Surface surface) {
    const auto cells = static_cast<osg::UInt32>(std::sqrt(static_cast<float>(triangleCount / 2)));
    const auto size = static_cast<float>(cells);
    Mesh mesh;
    for (osg::UInt32 i = 0; i < (cells + 1) * (cells + 1); ++i) {
        const osg::UInt32 u = i % (cells + 1), v = i / (cells + 1), above = i + cells + 1;
        mesh.positions.push_back(surface(static_cast<float>(u) / size, static_cast<float>(v) / size));
        if (u < cells && v < cells) mesh.indices.insert(mesh.indices.end(), {i, i + 1, above + 1, i, above + 1, above});
    }
    return mesh;
}

osg::Pnt3f polar(float radius, float azimuth, float height) {
    return {radius * std::cos(height) * std::cos(azimuth), radius * std::cos(height) * std::sin(azimuth),
            radius * std::sin(height)};
}

} // namespace

SceneNode group(const SceneNodes& children) {
    return createNode<osg::Group>(children, [](const auto&) {});
}

SceneNode lod(const SceneNodes& children) {
    return createNode<osg::DistanceLOD>(children, [](const auto&) {});
}

SceneNode switchNode(osg::Int32 choice, const SceneNodes& children) {
    return createNode<osg::Switch>(children, [&](const auto& core) { core->setChoice(choice); });
}

SceneNode transform(const osg::Matrix& matrix, const SceneNodes& children) {
    return createNode<osg::Transform>(children, [&](const auto& core) { core->setMatrix(matrix); });
}

SceneNode named(const SceneNode& node, const std::string& name) {
    osg::setName(node, name);
    return node;
}

osg::Matrix translated(float x, float y, float z) {
    return osg::Matrix(1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1);
}

osg::Matrix scaled(float s) { return osg::Matrix(s, 0, 0, 0, 0, s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1); }

SceneNode quad(float z) { return geometry({{{0, 0, z}, {1, 0, z}, {1, 1, z}, {0, 1, z}}, {0, 1, 2, 0, 2, 3}}); }

SceneNode triangles(const std::vector<Triangle>& triangles) {
    Mesh mesh;
    for (const Triangle& t : triangles) mesh.positions.insert(mesh.positions.end(), {t.p0, t.p1, t.p2});
    return createGeometry(GL_TRIANGLES, mesh);
}

SceneNode lines(const std::vector<Segment>& lines) {
    Mesh mesh;
    for (const Segment& line : lines) mesh.positions.insert(mesh.positions.end(), {line.start, line.end});
    return createGeometry(GL_LINES, mesh);
}

SceneNode geometry(const Mesh& mesh) { return createGeometry(GL_TRIANGLES, mesh); }

Mesh sphere(std::size_t triangleCount) {
    return createGrid(triangleCount, [](float u, float v) { return polar(1.0f, fullTurn * u, 3.1f * v - 1.55f); });
}

Mesh bumpySphere(std::size_t triangleCount) {
    return createGrid(triangleCount, [](float u, float v) {
        const float bump = 0.1f * std::sin(7.0f * fullTurn * u) * std::sin(4.0f * fullTurn * v);
        return polar(1.0f + bump, fullTurn * u, 3.1f * v - 1.55f);
    });
}

Mesh torus(std::size_t triangleCount) {
    return createGrid(triangleCount, [](float u, float v) {
        return polar(1.0f, fullTurn * u, 0.0f) + osg::Vec3f(polar(0.35f, fullTurn * u, fullTurn * v));
    });
}

Mesh terrain(std::size_t triangleCount) {
    return createGrid(triangleCount, [](float u, float v) {
        const float height = 0.1f * std::sin(23.0f * u + 6.0f * v) + 0.1f * std::cos(26.0f * v);
        return osg::Pnt3f(2.0f * u - 1.0f, 2.0f * v - 1.0f, height);
    });
}

std::vector<Triangle> trianglesOf(const Mesh& mesh) {
    std::vector<Triangle> triangles;
    const auto corner = [&](std::size_t i) { return mesh.positions[mesh.indices[i]]; };
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
        triangles.push_back({corner(i), corner(i + 1), corner(i + 2)});
    return triangles;
}

} // namespace tesk::test
