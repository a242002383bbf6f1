#include <support/TemporaryFolder.h>

#include <cstdlib>
#include <fstream>

namespace tesk::test {

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tesk_test_XXXXXX").string();
    path = mkdtemp(pattern.data());
}

std::string TemporaryFolder::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path / name, std::ios::binary) << bytes;
    return file(name);
}

} // namespace tesk::test
