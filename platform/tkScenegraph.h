#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGNode.h>

#include <string>

/// Where the scene is, and which node bears a name.
///
/// Both roots are made when they are first asked for, after osgInit(), and held as long as the process runs; before
/// osgInit() they are null. Neither hangs below the other: what a host shows for its own purposes goes below the
/// internal root, the user's scene below the other.
///
/// \code
/// tkScenegraph::getRoot()->addChild(loadedScene);
/// const osg::NodePtr wheel = tkScenegraph::findNode("wheel");
/// \endcode
class TESK_PLATFORM_EXPORT tkScenegraph {
public:
    /// The root of the user's scene, a node with an osg::Group core.
    static osg::NodePtr getRoot();
    /// The root of everything that is not the user's scene, a node with an osg::Group core.
    static osg::NodePtr getInternalRoot();

    /// The first node below getRoot() of that name, depth first with parents before their children, whatever switches
    /// and traversal masks say; null when there is none.
    ///
    /// A node's name is its own, or its core's when it has none of its own. An empty name finds nothing. Every change
    /// of the scene shows at once. With the embedded scene graph the cost does not grow with the scene, only with the
    /// nodes of the same name, their depth and, where such nodes have to be put in order, their siblings; with another
    /// the scene is walked.
    static osg::NodePtr findNode(const std::string& name);
};
