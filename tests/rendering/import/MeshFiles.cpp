#include "MeshFiles.h"

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>
#include <minizip/zip.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace tesk::test {

namespace {

// A square "nut", moved by (1, 2, 3) where the format can, and a triangle or polyline beside it.

const char* const stl = "solid hex nut\n"
                        "facet normal 0 0 1 outer loop vertex 0 0 0 vertex 1 0 0 vertex 1 1 0 endloop endfacet\n"
                        "facet normal 0 0 1 outer loop vertex 0 0 0 vertex 1 1 0 vertex 0 1 0 endloop endfacet\n"
                        "endsolid\nsolid bolt\n"
                        "facet normal 0 0 1 outer loop vertex 0 0 5 vertex 1 0 5 vertex 1 1 5.5 endloop endfacet\n"
                        "endsolid bolt\n";

const char* const obj = "mtllib missing.mtl\no nut\nv 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nusemtl steel\nf 1 2 3 4\n"
                        "o track\nl 1 2 3\nl 3 4\np 1\n";

const char* const ply =
    "ply\nformat ascii 1.0\nelement vertex 4\nproperty float x\nproperty float y\nproperty float z\n"
    "element face 2\nproperty list uchar int vertex_indices\nend_header\n"
    "0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n3 0 1 2\n";

const char* const off = "OFF\n4 2 0\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n3 0 1 2\n";

/// Four corners, the indices of two triangles and those of a polyline.
std::string gltfBuffer() {
    return packed(std::array<float, 12>{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0},
                  std::array<std::uint16_t, 10>{0, 1, 2, 0, 2, 3, 0, 1, 2, 3});
}

/// The nut stands in the scene twice, and there is a camera, which shows nothing.
std::string gltf(const std::string& bufferSource) {
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[
        {"name":"assembly","children":[1,2,3,4]},{"name":"nut","mesh":0,"translation":[1,2,3]},{"mesh":0},
        {"name":"track","mesh":1},{"name":"eye","camera":0}],
        "cameras":[{"type":"perspective","perspective":{"yfov":1,"znear":1}}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]},
        {"primitives":[{"attributes":{"POSITION":0},"indices":2,"mode":3}]}],
        "accessors":[{"bufferView":0,"componentType":5126,"count":4,"type":"VEC3","min":[0,0,0],"max":[1,1,0]},
        {"bufferView":1,"componentType":5123,"count":6,"type":"SCALAR"},
        {"bufferView":2,"componentType":5123,"count":4,"type":"SCALAR"}],
        "bufferViews":[{"buffer":0,"byteOffset":0,"byteLength":48},{"buffer":0,"byteOffset":48,"byteLength":12},
        {"buffer":0,"byteOffset":60,"byteLength":8}],"buffers":[{"byteLength":68)" +
           bufferSource + "}]}";
}

std::string glb() {
    std::string text = gltf("");
    text.resize((text.size() + 3) / 4 * 4, ' ');
    const std::string chunks = packed(static_cast<std::uint32_t>(text.size()), 0x4e4f534a) + text +
                               packed(static_cast<std::uint32_t>(gltfBuffer().size()), 0x004e4942) + gltfBuffer();
    return packed(0x46546c67, 2, static_cast<std::uint32_t>(chunks.size() + 12)) + chunks;
}

const char* const threeMf =
    R"(<?xml version="1.0"?><model unit="inch" xmlns="http://schemas.microsoft.com/3dmanufacturing/core/2015/02">
    <resources><object id="1" name="hex &quot;nut&quot;" type="model"><mesh><vertices>
    <vertex x="0" y="0" z="0"/><vertex x="1" y="0" z="0"/><vertex x="1" y="1" z="0"/></vertices>
    <triangles><triangle v1="0" v2="1" v3="2"/></triangles></mesh></object>
    <object id="2" name="frame" type="model"><components>
    <component objectid="1" transform="1 0 0 0 1 0 0 0 1 1 2 3"/><component objectid="1"/></components></object>
    </resources><build><item objectid="2"/></build></model>)";

const char* const dae =
    R"(<?xml version="1.0"?><COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1"><asset>
    <unit name="inch" meter="0.0254"/><up_axis>Z_UP</up_axis></asset><library_geometries><geometry id="g" name="square">
    <mesh><source id="p"><float_array id="a" count="12">0 0 0 1 0 0 1 1 0 0 1 0</float_array><technique_common>
    <accessor source="#a" count="4" stride="3"><param name="X" type="float"/><param name="Y" type="float"/>
    <param name="Z" type="float"/></accessor></technique_common></source>
    <vertices id="v"><input semantic="POSITION" source="#p"/></vertices>
    <triangles count="2"><input semantic="VERTEX" source="#v" offset="0"/><p>0 1 2 0 2 3</p></triangles>
    <linestrips count="1"><input semantic="VERTEX" source="#v" offset="0"/><p>0 1 2 3</p></linestrips>
    </mesh></geometry></library_geometries><library_visual_scenes><visual_scene id="s"><node id="n1" name="nut">
    <matrix>1 0 0 1 0 1 0 2 0 0 1 3 0 0 0 1</matrix><instance_geometry url="#g"/></node>
    <node><instance_geometry url="#g"/></node></visual_scene></library_visual_scenes>
    <scene><instance_visual_scene url="#s"/></scene></COLLADA>)";

void writeZip(const std::string& file, const std::string& entry, const std::string& bytes) {
    const zipFile archive = zipOpen(file.c_str(), APPEND_STATUS_ADDINZIP * std::filesystem::exists(file));
    zipOpenNewFileInZip(archive, entry.c_str(), nullptr, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, 6);
    zipWriteInFileInZip(archive, bytes.data(), static_cast<unsigned>(bytes.size()));
    zipCloseFileInZip(archive);
    zipClose(archive, nullptr);
}

void dumpCore(std::ostream& stream, const osg::NodeCorePtr& core) {
    if (const osg::TransformPtr transform = osg::TransformPtr::dcast(core); transform != osg::NullFC) {
        const osg::Vec4f& moved = transform->getMatrix()[3];
        stream << " @" << moved[0] << "," << moved[1] << "," << moved[2];
    }
    const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(core);
    if (geometry == osg::NullFC) return;
    stream << (geometry->getTypes()->getValue(0) == GL_LINES ? " lines" : " triangles");
    for (osg::UInt32 i = 0; i < geometry->getIndices()->getSize(); ++i)
        stream << " " << geometry->getIndices()->getValue(i);
}

void dumpNode(std::ostream& stream, const osg::NodePtr& node) {
    stream << osg::getName(node);
    dumpCore(stream, node->getCore());
    if (node->getNChildren() == 0) return;
    for (osg::UInt32 child = 0; child < node->getNChildren(); ++child)
        dumpNode(stream << (child == 0 ? " [" : ", "), node->getChild(child));
    stream << "]";
}

} // namespace

std::string writeAssembly(const TemporaryFolder& folder, const std::string& extension) {
    const std::string name = "assembly." + extension;
    const std::map<std::string, std::string> contents{{"stl", stl}, {"obj", obj}, {"ply", ply},
                                                      {"off", off}, {"dae", dae}, {"glb", glb()}};
    if (const auto content = contents.find(extension); content != contents.end())
        return folder.write(name, content->second);
    if (extension == "gltf") {
        folder.write("buffer.bin", gltfBuffer());
        return folder.write(name, gltf(R"(,"uri":"buffer.bin")"));
    }
    const std::string file = folder.file(name);
    writeZip(file, "_rels/.rels",
             R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="r"
             Target="/3D/3dmodel.model" Type="http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"/>
             </Relationships>)");
    writeZip(file, "3D/3dmodel.model", threeMf);
    return file;
}

std::string readBytes(const std::string& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

std::string dump(const osg::NodePtr& node) {
    std::ostringstream stream;
    if (node != osg::NullFC) dumpNode(stream, node);
    return stream.str();
}

} // namespace tesk::test
