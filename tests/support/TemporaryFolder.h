#pragma once

#include <filesystem>
#include <string>

namespace tesk::test {

/// A folder of one test's own, removed with its content. Tests run side by side, each in its own process.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder() { std::filesystem::remove_all(path); }

    /// The full name of a file in it.
    std::string file(const std::string& name) const { return (path / name).string(); }
    /// The full name of the file written.
    std::string write(const std::string& name, const std::string& bytes) const;

private:
    std::filesystem::path path;
};

} // namespace tesk::test
