#include <rendering/import/SceneImporter.h>

#include <rendering/import/detail/ImporterProcess.h>
#include <rendering/import/detail/SceneBuilder.h>

#include <strings.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <new>
#include <system_error>

namespace tesk::rendering {

namespace {

constexpr const char* extensions[] = {"stl", "obj", "ply", "off", "gltf", "glb", "3mf", "dae"};

bool isKnownExtension(const std::string& extension) {
    return std::any_of(std::begin(extensions), std::end(extensions),
                       [&](const char* known) { return strcasecmp(extension.c_str(), known) == 0; });
}

std::string listExtensions() {
    std::string list;
    for (const char* extension : extensions) list += (list.empty() ? "" : ", ") + std::string(extension);
    return list;
}

/// Why there is nothing to read, or empty.
std::string findFault(const std::string& file) {
    const std::filesystem::path path(file);
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) return "no such file";
    if (error) return error.message();
    if (std::filesystem::is_directory(status)) return "is a directory";
    if (!std::filesystem::is_regular_file(status)) return "not a regular file";
    const std::string extension = path.extension().string();
    if (extension.empty() || !isKnownExtension(extension.substr(1)))
        return "unknown kind of file '" + extension + "', known are " + listExtensions();
    if (!std::ifstream(path)) return "cannot be opened";
    if (std::filesystem::file_size(path, error) == 0 && !error) return "empty file";
    return {};
}

/// A small file that takes long is damaged.
ImportLimits scaledToSize(ImportLimits limits, const std::string& file) {
    constexpr std::uintmax_t secondsForAny = 30, bytesPerSecond = 100000;
    const std::uintmax_t seconds = secondsForAny + std::filesystem::file_size(file) / bytesPerSecond;
    limits.cpuSeconds = static_cast<unsigned>(std::min<std::uintmax_t>(limits.cpuSeconds, seconds));
    return limits;
}

} // namespace

ImportResult importScene(const std::string& file, const ImportLimits& limits) {
    ImportResult result;
    const auto fail = [&](const std::string& cause) { result.error = file + ": " + detail::cleanText(cause); };
    try {
        const std::string fault = findFault(file);
        if (!fault.empty()) {
            fail(fault);
            return result;
        }
        detail::FlatScene scene = detail::readInChildProcess(file, scaledToSize(limits, file));
        for (const std::string& note : scene.notes) result.notes.push_back(file + ": " + detail::cleanText(note));
        if (scene.nodes.empty())
            fail("no triangles or lines");
        else
            result.root = detail::buildScene(std::move(scene), std::filesystem::path(file).stem().string());
    } catch (const detail::UnreadableFile& unreadable) {
        fail(unreadable.what());
    } catch (const std::bad_alloc&) {
        fail("not enough memory");
    } catch (const std::filesystem::filesystem_error& vanished) {
        fail(vanished.code().message());
    }
    return result;
}

} // namespace tesk::rendering
