#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGNode.h>

#include <string>

/// Where this host has its scene: below whatever node it shows at the moment.
class TESK_PLATFORM_EXPORT tkScenegraph {
public:
    /// Shows another scene, null for none; its nodes stay the host's.
    static void setRoot(const osg::NodePtr& node);

    // What the measurement library asks for.
    static osg::NodePtr getRoot();
    static osg::NodePtr getInternalRoot();
    static osg::NodePtr findNode(const std::string& name);
};
