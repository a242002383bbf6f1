#pragma once

#include <OpenSG/OSGNode.h>

#include <string>

namespace tesk::test {

/// A subtree as text, one indented line a node, then one line for each list of positions and each material.
///
/// A line names the core and what counts in it; positions (P1 ...) and materials (M1 ...) are numbered as they come, so
/// that sharing shows. Textured geometries, such as text, are described by their size alone. For example:
///
///     Group
///       Geometry: Lines 0 1; P1; M1
///       Camboard: at (0.5 0 0) scale 0.1 limits 1 1, hidden
///         Geometry: Quads 16; textured; 16 x (1 0.8 0.3); M2
///     P1: (0 0 0) (1 0 0)
///     M1: SimpleMaterial (1 0.8 0.2), unlit; lines 2 smooth; blending; over the scene
///     M2: ChunkMaterial (1 0.8 0.3 1), unlit; texture; blending
std::string sceneText(const osg::NodePtr& node);

/// Whether there is a font for labels. Without one, as in a scene graph built so, they are empty.
bool hasFont();

} // namespace tesk::test
