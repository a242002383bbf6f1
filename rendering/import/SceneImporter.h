#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodePtr.h>
#include <rendering/import/UniqueNames.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tesk::rendering {

/// What reading one file may take; whoever exceeds it is ended.
struct ImportLimits {
    /// Memory that reading may add to that of the calling process; also bounds the size of the scene that comes out.
    std::uint64_t memoryBytes = std::uint64_t(8) << 30;
    /// Computing time; a file gets no more than 30 s and a further second for each 100 kB. Ten times as much may pass
    /// on the clock.
    unsigned cpuSeconds = 600;
};

struct ImportResult {
    /// Null on failure, else a group named after the file without folder and extension, the file's nodes below it; or
    /// the file's one geometry itself, when that is its name.
    osg::NodeRefPtr root;
    /// One line "<file>: <cause>"; empty on success.
    std::string error;
    /// What was dropped or repaired, one line "<file>: ..." each. A failure may have notes as well.
    std::vector<std::string> notes;
};

/// The scene in a mesh file: STL, OBJ, PLY, OFF, glTF (gltf, glb), 3MF or DAE, told apart by the file name's extension.
///
/// The file's tree of nodes stays, with names and transforms; nodes that only wrap one unnamed and untransformed, and
/// nodes without geometry, are left out. A placed node has an osg::Transform core, a mesh is a node with an
/// osg::Geometry core, which is shared where the file uses a mesh several times. A node with several meshes has a child
/// for each. A node without a name takes that of its mesh, else that of the file; names need not be unique.
///
/// A geometry has one primitive, GL_TRIANGLES or GL_LINES, positions (3f) and one index (UI32) a corner. Corners whose
/// coordinates agree to the bit share their position, so consecutive lines are joined. Triangles come in the file's
/// order with the file's corners, degenerate ones included; polygons are cut into triangles. Faces and lines with a
/// coordinate that is not finite, and points, are dropped with a note. Materials, normals and animations are not read.
///
/// Coordinates are the file's own: a unit or an up axis that the file states is not applied.
///
/// Damaged files must be expected to crash an importer or to send it astray. The file is therefore read in a child
/// process under the limits, and what comes back is checked; the caller sees one line of error. Files that a scene
/// refers to (.bin, .mtl) are looked up from the file's folder. The locale does not matter.
///
/// osgInit() must have run. Cost: about that of reading the file, plus a copy of the calling process's page tables.
ImportResult importScene(const std::string& file, const ImportLimits& limits = {});

} // namespace tesk::rendering
