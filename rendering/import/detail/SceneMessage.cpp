#include <rendering/import/detail/SceneMessage.h>

#include <rendering/import/detail/MeshBuilder.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <type_traits>

namespace tesk::rendering::detail {

namespace {

/// Ends with the version of the form.
constexpr std::uint32_t messageStart = 0x5d3a0001;
constexpr std::uint32_t messageEnd = 0x5d3affff;

enum class Content : std::uint32_t { scene, failure };

class Writer {
public:
    explicit Writer(std::FILE* target) : stream(target) {}
    ~Writer() { std::fflush(stream); }

    template <class Value> void write(const Value& value) {
        static_assert(std::is_trivially_copyable_v<Value>);
        std::fwrite(&value, sizeof value, 1, stream);
    }

    void writeCount(std::size_t count) { write(static_cast<std::uint32_t>(count)); }

    template <class Container> void writeAll(const Container& values) {
        static_assert(std::is_trivially_copyable_v<typename Container::value_type>);
        writeCount(values.size());
        std::fwrite(values.data(), sizeof values[0], values.size(), stream);
    }

private:
    std::FILE* stream;
};

class Reader {
public:
    Reader(std::FILE* source, std::uint64_t maximumBytes) : stream(source), remainingBytes(maximumBytes) {}

    template <class Value> Value read() {
        Value value;
        readBytes(&value, sizeof value);
        return value;
    }

    /// A count that the stream cannot keep makes the container grow by one block at most.
    template <class Container> Container readAll() {
        constexpr std::size_t blockSize = 1 << 18;
        Container values;
        for (std::size_t missing = read<std::uint32_t>(); missing > 0;) {
            const std::size_t size = values.size(), block = std::min(missing, blockSize);
            values.resize(size + block);
            readBytes(values.data() + size, block * sizeof values[0]);
            missing -= block;
        }
        return values;
    }

    /// A number of things that each take more than nothing.
    std::uint32_t readCount(std::uint32_t maximum) {
        const auto count = read<std::uint32_t>();
        require(count <= maximum);
        return count;
    }

    static void require(bool condition) {
        if (!condition) throw MessageDamaged();
    }

private:
    void readBytes(void* target, std::size_t size) {
        require(size <= remainingBytes);
        remainingBytes -= size;
        for (std::size_t done = 0; done < size;) {
            done += std::fread(static_cast<char*>(target) + done, 1, size - done, stream);
            if (done == size) return;
            if (std::feof(stream) || errno != EINTR) throw MessageCutShort();
            std::clearerr(stream);
        }
    }

    std::FILE* stream;
    std::uint64_t remainingBytes;
};

FlatMesh readMesh(Reader& reader) {
    FlatMesh mesh;
    mesh.primitive = reader.read<Primitive>();
    Reader::require(mesh.primitive == Primitive::triangle || mesh.primitive == Primitive::line);
    mesh.positions = reader.readAll<std::vector<Point>>();
    Reader::require(std::all_of(mesh.positions.begin(), mesh.positions.end(), isFinite));
    mesh.indices = reader.readAll<std::vector<std::uint32_t>>();
    const auto largest = std::max_element(mesh.indices.begin(), mesh.indices.end());
    Reader::require(largest != mesh.indices.end() && *largest < mesh.positions.size());
    Reader::require(mesh.indices.size() % static_cast<std::uint32_t>(mesh.primitive) == 0);
    return mesh;
}

void checkNode(const FlatNode& node, const FlatScene& scene) {
    Reader::require(node.kind <= NodeKind::geometry);
    if (node.kind == NodeKind::geometry) Reader::require(node.mesh < scene.meshes.size());
    if (node.kind == NodeKind::transform)
        Reader::require(
            std::all_of(node.matrix.begin(), node.matrix.end(), [](float element) { return std::isfinite(element); }));
    if (node.parent != noParent)
        Reader::require(node.parent < scene.nodes.size() && scene.nodes[node.parent].kind != NodeKind::geometry);
}

void readNodes(Reader& reader, FlatScene& scene) {
    std::vector<std::uint32_t> depths;
    for (std::uint32_t missing = reader.readCount(maximumNodeCount); missing > 0; --missing) {
        FlatNode node;
        node.kind = reader.read<NodeKind>();
        node.parent = reader.read<std::uint32_t>();
        node.name = reader.readAll<std::string>();
        node.matrix = reader.read<std::array<float, 16>>();
        node.mesh = reader.read<std::uint32_t>();
        checkNode(node, scene);
        depths.push_back(node.parent == noParent ? 1 : depths[node.parent] + 1);
        // The geometries of a placed node stand one level below it.
        Reader::require(depths.back() <= maximumDepth + 1);
        scene.nodes.push_back(std::move(node));
    }
}

} // namespace

void writeScene(std::FILE* stream, const FlatScene& scene) {
    Writer writer(stream);
    writer.write(messageStart);
    writer.write(Content::scene);
    writer.writeCount(scene.meshes.size());
    for (const FlatMesh& mesh : scene.meshes) {
        writer.write(mesh.primitive);
        writer.writeAll(mesh.positions);
        writer.writeAll(mesh.indices);
    }
    writer.writeCount(scene.nodes.size());
    for (const FlatNode& node : scene.nodes) {
        writer.write(node.kind);
        writer.write(node.parent);
        writer.writeAll(node.name);
        writer.write(node.matrix);
        writer.write(node.mesh);
    }
    writer.writeCount(scene.notes.size());
    for (const std::string& note : scene.notes) writer.writeAll(note);
    writer.write(messageEnd);
}

void writeFailure(std::FILE* stream, const std::string& cause) {
    Writer writer(stream);
    writer.write(messageStart);
    writer.write(Content::failure);
    writer.writeAll(cause);
}

FlatScene readScene(std::FILE* stream, std::uint64_t maximumBytes) {
    constexpr std::uint32_t maximumNoteCount = 1000;
    Reader reader(stream, maximumBytes);
    Reader::require(reader.read<std::uint32_t>() == messageStart);
    const auto content = reader.read<Content>();
    if (content == Content::failure) throw UnreadableFile(reader.readAll<std::string>());
    Reader::require(content == Content::scene);

    FlatScene scene;
    for (std::uint32_t missing = reader.readCount(2 * maximumNodeCount); missing > 0; --missing)
        scene.meshes.push_back(readMesh(reader));
    readNodes(reader, scene);
    for (std::uint32_t missing = reader.readCount(maximumNoteCount); missing > 0; --missing)
        scene.notes.push_back(reader.readAll<std::string>());
    Reader::require(reader.read<std::uint32_t>() == messageEnd);
    return scene;
}

} // namespace tesk::rendering::detail
