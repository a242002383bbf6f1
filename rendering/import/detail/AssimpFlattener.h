#pragma once

#include <rendering/import/detail/AssimpNames.h>
#include <rendering/import/detail/FlatScene.h>

struct aiScene;

namespace tesk::rendering::detail {

/// The valid scene that assimp has loaded, as it goes into the scene graph: what holds no triangle or line is left out,
/// and so are levels that only wrap.
///
/// Triangles keep order and corners; polygons are cut here, since assimp's own step turns the triangles beside them.
/// Throws UnreadableFile when the scene is too large.
FlatScene flatten(const aiScene& scene, const AssimpNames& names);

} // namespace tesk::rendering::detail
