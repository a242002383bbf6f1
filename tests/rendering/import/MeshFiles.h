#pragma once

#include <support/TemporaryFolder.h>

#include <OpenSG/OSGNode.h>

#include <filesystem>
#include <string>

/// Mesh files made from code, and what they are as scenes.
namespace tesk::test {

/// Writes an assembly in the format that the extension says, called assembly, with the files beside it, and returns its
/// full name.
std::string writeAssembly(const TemporaryFolder& folder, const std::string& extension);

std::string readBytes(const std::string& file);

/// Little-endian bytes of the values, one after the other.
template <class... Values> std::string packed(Values... values) {
    std::string bytes;
    (bytes.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
    return bytes;
}

/// The subtree as one line: names, "@x,y,z" for a translation, primitive type and indices of a geometry, children in
/// brackets.
std::string dump(const osg::NodePtr& node);

} // namespace tesk::test
