#pragma once

#include <OpenSG/OSGNode.h>

#include <filesystem>
#include <string>

/// Mesh files made from code, and what they are as scenes.
namespace tesk::test {

/// A folder of one test's own, removed with its content.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder() { std::filesystem::remove_all(path); }

    /// The full name of the file written.
    std::string write(const std::string& name, const std::string& bytes) const;
    /// The same for an assembly in the format that the extension says, called assembly, with the files beside it.
    std::string writeAssembly(const std::string& extension) const;

private:
    std::filesystem::path path;
};

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
