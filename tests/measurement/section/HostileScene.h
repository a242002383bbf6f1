#pragma once

#include <support/HostileMeshes.h>

#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGQuaternion.h>

#include <cmath>

namespace tesk::test {

inline osg::Matrix hostileFrame(Random& random) {
    osg::Matrix frame;
    if (random.chance(0.3f)) return frame;
    const float scale = random.chance(0.1f) ? 1e-5f : random.chance(0.1f) ? 1e6f : 1.0f;
    frame.setTransform(random.vector(random.chance(0.1f) ? 1e5f : 1.0f), osg::Quaternion(random.vector(1), 2),
                       {scale, random.chance(0.3f) ? -1.0f : 1.0f, random.real(0.5f, 2)});
    const float odd[] = {HUGE_VALF, -HUGE_VALF, NAN, 1e38f, 0.0f};
    if (random.chance(0.03f)) frame[random.below(4)][random.below(3)] = odd[random.below(5)];
    return frame;
}

/// A geometry of any kind: its indices narrow or wide, few of many positions, a strip or a list.
inline SceneNode hostileGeometry(Random& random, const Mesh& mesh) {
    const SceneNode node = geometry(mesh);
    const osg::GeometryPtr core = osg::GeometryPtr::dcast(node->getCore());
    if (random.chance(0.3f)) core->getPositions()->resize(core->getPositions()->getSize() + 2000);
    if (random.chance(0.3f)) core->getTypes()->setValue(GL_TRIANGLE_STRIP, 0);
    if (random.chance(0.5f)) return node;
    const osg::GeoIndicesPtr narrow = osg::GeoIndicesUI16::create();
    for (const osg::UInt32 index : mesh.indices) narrow->push_back(index);
    core->setIndices(narrow);
    return node;
}

/// Some geometries below transforms, some with a traversal mask. All corners are added, each in its local frame.
inline SceneNode hostileScene(Random& random, std::vector<osg::Pnt3f>& corners) {
    SceneNodes parts;
    for (std::uint32_t part = random.below(3); part < 3; ++part) {
        const Mesh mesh = hostileMesh(random);
        corners.insert(corners.end(), mesh.positions.begin(), mesh.positions.end());
        const SceneNode node = hostileGeometry(random, mesh);
        if (random.chance(0.1f)) node->setTravMask(7);
        parts.push_back(random.chance(0.5f) ? transform(hostileFrame(random), {node}) : node);
    }
    const SceneNode inner = group({parts.begin() + 1, parts.end()});
    return random.chance(0.3f) ? transform(hostileFrame(random), {parts[0], inner}) : group({parts[0], inner});
}

} // namespace tesk::test
