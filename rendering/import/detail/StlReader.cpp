#include <rendering/import/detail/StlReader.h>

#include <rendering/import/detail/MeshBuilder.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <fstream>
#include <limits>
#include <string_view>

namespace tesk::rendering::detail {

namespace {

constexpr std::size_t headerSize = 80;
constexpr std::size_t preambleSize = headerSize + sizeof(std::uint32_t);
constexpr std::size_t facetSize = 50;

/// Function objects, which searches can take inline: most of the time for a text file goes here.
constexpr auto isSpace = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
constexpr auto isVisible = [](char c) { return !isSpace(c); };

std::string readFile(const std::string& file) {
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(std::max<std::streamoff>(stream.tellg(), 0)), '\0');
    stream.seekg(0);
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) throw UnreadableFile("cannot be read");
    return bytes;
}

std::uint32_t statedFacetCount(std::string_view bytes) {
    std::uint32_t count = 0;
    std::memcpy(&count, bytes.data() + headerSize, sizeof count);
    return count;
}

bool isText(std::string_view bytes) {
    if (bytes.size() >= preambleSize &&
        bytes.size() == preambleSize + statedFacetCount(bytes) * std::uint64_t(facetSize))
        return false;
    const std::string_view start = bytes.substr(0, 1000);
    return start.find("vertex") != std::string_view::npos || std::all_of(start.begin(), start.end(), [](char c) {
               return static_cast<unsigned char>(c) >= ' ' || isSpace(c);
           });
}

void addGeometry(FlatScene& scene, MeshBuilder& facets, const std::string& name) {
    FlatNode node;
    node.kind = NodeKind::geometry;
    node.name = name;
    node.mesh = static_cast<std::uint32_t>(scene.meshes.size());
    scene.meshes.push_back(facets.take());
    scene.nodes.push_back(node);
}

void addNoteOnCount(FlatScene& scene, std::uint64_t count, const std::string& noun, const std::string& what) {
    if (count > 0) scene.notes.push_back(counted(count, noun) + " " + what);
}

constexpr const char* notFinite = "with coordinates that are not finite numbers dropped";

FlatScene readBinary(std::string_view bytes) {
    const std::uint32_t stated = statedFacetCount(bytes);
    const std::string_view body = bytes.substr(preambleSize);
    const std::uint64_t present = body.size() / facetSize;
    // Programs that write as they go leave the number of facets at 0.
    const std::uint64_t count = stated == 0 ? present : std::min<std::uint64_t>(stated, present);

    FlatScene scene;
    if (stated != count)
        scene.notes.push_back("states " + counted(stated, "facet") + ", holds " + std::to_string(count));
    addNoteOnCount(scene, body.size() - count * facetSize, "byte", "after the last facet ignored");
    MeshBuilder facets(Primitive::triangle);
    std::uint64_t dropped = 0;
    for (std::uint64_t facet = 0; facet < count; ++facet) {
        std::array<Point, 4> normalAndCorners;
        std::memcpy(normalAndCorners.data(), body.data() + facet * facetSize, sizeof normalAndCorners);
        dropped += !facets.add(&normalAndCorners[1]);
    }
    addNoteOnCount(scene, dropped, "facet", notFinite);
    if (!facets.isEmpty()) addGeometry(scene, facets, "");
    return scene;
}

class TextParser {
public:
    explicit TextParser(std::string_view bytes) : rest(bytes) {
        if (rest.substr(0, 3) == "\xef\xbb\xbf") rest.remove_prefix(3);
    }

    FlatScene parse() {
        for (std::string_view word = nextWord(); !word.empty(); word = nextWord()) {
            if (isKeyword(word, "solid")) {
                endSolid();
                startSolid();
            } else if (isKeyword(word, "endsolid")) {
                endSolid();
                skipLine();
            } else if (isKeyword(word, "facet")) {
                startFacet();
            } else if (isKeyword(word, "vertex")) {
                readVertex();
            } else if (isKeyword(word, "endfacet")) {
                endFacet();
            }
        }
        endSolid();
        if (!isStl) throw UnreadableFile("neither a text nor a binary STL file");
        addNoteOnCount(scene, nonFiniteCount, "facet", notFinite);
        addNoteOnCount(scene, malformedCount, "incomplete or unreadable facet", "dropped");
        addNoteOnCount(scene, emptySolidCount, "solid", "without facets left out");
        return std::move(scene);
    }

private:
    /// Empty at the end.
    std::string_view nextWord() {
        const char* const start = std::find_if(rest.begin(), rest.end(), isVisible);
        const char* const end = std::find_if(start, rest.end(), isSpace);
        const std::string_view word(start, static_cast<std::size_t>(end - start));
        rest = std::string_view(end, static_cast<std::size_t>(rest.end() - end));
        return word;
    }

    void skipLine() { rest.remove_prefix(std::min(rest.find_first_of("\r\n"), rest.size())); }

    /// The keyword is in lower case.
    static bool isKeyword(std::string_view word, std::string_view keyword) {
        return word.size() == keyword.size() &&
               std::equal(word.begin(), word.end(), keyword.begin(),
                          [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); });
    }

    void startSolid() {
        isStl = isInSolid = true;
        // Some files have no line breaks.
        std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
        line = line.substr(0, line.find(" facet normal "));
        rest.remove_prefix(line.size());
        const auto first = std::find_if(line.begin(), line.end(), isVisible);
        const auto last = std::find_if(line.rbegin(), std::make_reverse_iterator(first), isVisible).base();
        name.assign(first, last);
    }

    void endSolid() {
        dropOpenFacet();
        if (!facets.isEmpty())
            addGeometry(scene, facets, name);
        else
            emptySolidCount += isInSolid;
        facets = MeshBuilder(Primitive::triangle);
        isInSolid = false;
        name.clear();
    }

    void startFacet() {
        dropOpenFacet();
        isStl = isInFacet = true;
        isUnreadable = false;
        cornerCount = 0;
    }

    void readVertex() {
        Point corner{};
        for (float& coordinate : corner) isUnreadable |= !readNumber(coordinate);
        if (cornerCount < 3) corners[cornerCount] = corner;
        ++cornerCount;
    }

    void endFacet() {
        if (isInFacet && cornerCount == 3 && !isUnreadable) {
            nonFiniteCount += !facets.add(corners.data());
            isInFacet = false;
        }
        dropOpenFacet();
    }

    void dropOpenFacet() {
        malformedCount += isInFacet;
        isInFacet = false;
    }

    /// Leaves a word that is no number to be read again.
    bool readNumber(float& number) {
        const std::string_view before = rest;
        std::string_view word = nextWord();
        if (word.substr(0, 1) == "+") word.remove_prefix(1);
        const char* const end = word.data() + word.size();
        std::from_chars_result result = std::from_chars(word.data(), end, number);
        if (result.ec == std::errc::result_out_of_range) {
            // Beyond a float: infinite when large, no error when small.
            double wide = std::numeric_limits<double>::infinity();
            result = std::from_chars(word.data(), end, wide);
            number = static_cast<float>(wide);
        }
        if (result.ptr == end && result.ec != std::errc::invalid_argument) return true;
        rest = before;
        return false;
    }

    std::string_view rest;
    FlatScene scene;
    MeshBuilder facets{Primitive::triangle};
    std::string name;
    std::array<Point, 3> corners;
    std::uint64_t cornerCount = 0;
    bool isStl = false, isInSolid = false, isInFacet = false, isUnreadable = false;
    std::uint64_t nonFiniteCount = 0, malformedCount = 0, emptySolidCount = 0;
};

} // namespace

FlatScene readStl(const std::string& file) {
    const std::string bytes = readFile(file);
    if (isText(bytes)) return TextParser(bytes).parse();
    if (bytes.size() < preambleSize) throw UnreadableFile("neither a text nor a binary STL file");
    return readBinary(bytes);
}

} // namespace tesk::rendering::detail
