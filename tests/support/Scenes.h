#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGRefPtr.h>

#include <measurement/geometry/Primitives.h>

#include <string>
#include <vector>

/// Scenes written as they nest: group({switchNode(1, {quad(1), quad(5)}), transform(scaled(10), {quad(2)})}).
///
/// A test that uses them need not call osgInit(). A node has one parent: used again, it moves.
namespace tesk::test {

/// Holds the node as long as the test does.
using SceneNode = osg::NodeRefPtr;
using SceneNodes = std::vector<SceneNode>;

SceneNode group(const SceneNodes& children);
SceneNode switchNode(osg::Int32 choice, const SceneNodes& children);
SceneNode lod(const SceneNodes& children);
SceneNode transform(const osg::Matrix& matrix, const SceneNodes& children);
/// The same node with a name.
SceneNode named(const SceneNode& node, const std::string& name);

osg::Matrix translated(float x, float y, float z);
osg::Matrix scaled(float factor);

/// The unit square at height z as two triangles.
SceneNode quad(float z);
SceneNode triangles(const std::vector<measurement::Triangle>& triangles);
SceneNode lines(const std::vector<measurement::Segment>& lines);

/// Shared vertices, three indices for each triangle.
struct Mesh {
    std::vector<osg::Pnt3f> positions;
    std::vector<osg::UInt32> indices;
};

// About as many triangles as asked for, centred at the origin; seams are not sewn up, poles open.
Mesh sphere(std::size_t triangleCount);
Mesh bumpySphere(std::size_t triangleCount);
Mesh torus(std::size_t triangleCount);
/// Low hills over the square of side 2.
Mesh terrain(std::size_t triangleCount);

SceneNode geometry(const Mesh& mesh);
std::vector<measurement::Triangle> trianglesOf(const Mesh& mesh);

} // namespace tesk::test
