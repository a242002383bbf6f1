#pragma once

#include <OpenSG/OSGNode.h>

#include <string>
#include <vector>

namespace tesk::rendering {

/// Gives every node below root a name of its own, so that each can be found by name.
///
/// The first node of a name in the tree's order keeps it, later ones become nut-2, nut-3 and so on, leaving out what
/// another node is called already. A node without a name is called after its core's type. The root keeps its name,
/// which no other node gets. The outcome depends on the tree alone; running again changes nothing.
///
/// Returns one line for each renaming; a null root gives none.
std::vector<std::string> makeNamesUnique(const osg::NodePtr& root);

} // namespace tesk::rendering
