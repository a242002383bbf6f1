#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodePtr.h>
#include <rendering/import/detail/FlatScene.h>

namespace tesk::rendering::detail {

/// A group of the given name with the flat scene's nodes below it; nodes without a name get that name too.
///
/// The scene must hold what readScene() promises. Names come out as one line of UTF-8. Frees the flat meshes on the
/// way.
osg::NodeRefPtr buildScene(FlatScene scene, const std::string& name);

/// The text as one line of UTF-8: control characters become spaces, and text in another encoding is taken as Latin-1.
std::string cleanText(const std::string& text);

} // namespace tesk::rendering::detail
