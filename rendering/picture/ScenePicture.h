#pragma once

#include <rendering/picture/FittedView.h>
#include <rendering/picture/OffscreenContext.h>

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGNode.h>

namespace tesk::rendering {

/// Draws a scene, lit over the shoulder of the camera, and returns the picture as OffscreenContext::readPixels() does.
///
/// The scene must have no parent and is left as it was. The context becomes current; nothing that was made for drawing
/// outlives the call.
std::vector<std::uint8_t> drawScene(OffscreenContext& context, const osg::NodePtr& scene, const FittedView& view,
                                    const osg::Color3f& background);

} // namespace tesk::rendering
