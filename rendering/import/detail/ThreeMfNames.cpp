#include <rendering/import/detail/ThreeMfNames.h>

#include <minizip/unzip.h>

#include <string_view>

namespace tesk::rendering::detail {

namespace {

/// The text of the model in the archive, or what could be read of it.
std::string readModel(const std::string& file) {
    std::string text;
    const unzFile archive = unzOpen64(file.c_str());
    if (!archive) return text;
    // 2: the case of letters does not matter.
    if (unzLocateFile(archive, "3D/3dmodel.model", 2) == UNZ_OK && unzOpenCurrentFile(archive) == UNZ_OK) {
        char block[65536];
        for (int size; (size = unzReadCurrentFile(archive, block, sizeof block)) > 0;)
            text.append(block, static_cast<std::size_t>(size));
        unzCloseCurrentFile(archive);
    }
    unzClose(archive);
    return text;
}

std::string decodeEntities(std::string_view text) {
    constexpr struct {
        std::string_view entity;
        char character;
    } entities[] = {{"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}, {"&amp;", '&'}};
    std::string decoded;
    while (!text.empty()) {
        std::size_t length = 1;
        char character = text.front();
        for (const auto& candidate : entities)
            if (text.substr(0, candidate.entity.size()) == candidate.entity) {
                length = candidate.entity.size();
                character = candidate.character;
            }
        decoded += character;
        text.remove_prefix(length);
    }
    return decoded;
}

/// The value of an attribute in a start tag, or empty.
std::string attribute(std::string_view tag, std::string_view name) {
    constexpr std::string_view whitespace = " \t\r\n";
    while (true) {
        const std::size_t equals = tag.find('=');
        const std::size_t open = tag.find_first_of("\"'", equals);
        if (open >= tag.size()) return {};
        const std::size_t close = tag.find(tag[open], open + 1);
        if (close >= tag.size()) return {};
        const std::size_t end = tag.find_last_not_of(whitespace, equals - 1) + 1;
        const std::size_t start = tag.find_last_of(whitespace, end - 1) + 1;
        if (tag.substr(start, end - start) == name) return decodeEntities(tag.substr(open + 1, close - open - 1));
        tag.remove_prefix(close + 1);
    }
}

} // namespace

std::map<std::string, std::string> readThreeMfNames(const std::string& file) {
    constexpr std::string_view objectTag = "<object";
    const std::string model = readModel(file);
    std::map<std::string, std::string> names;
    for (std::size_t start = model.find(objectTag); start != std::string::npos;
         start = model.find(objectTag, start + 1)) {
        const std::string_view tag = std::string_view(model).substr(start, model.find('>', start) - start);
        names[attribute(tag, "id")] = attribute(tag, "name");
    }
    return names;
}

} // namespace tesk::rendering::detail
