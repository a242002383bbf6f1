#include <measurement/visualisation/OverlayGraphMeasurementVisualisation.h>

#include <measurement/visualisation/detail/ChartLayout.h>
#include <measurement/visualisation/detail/FixedNumber.h>
#include <measurement/visualisation/detail/GeometryRefill.h>
#include <measurement/visualisation/detail/LabelFont.h>
#include <measurement/visualisation/detail/Materials.h>
#include <measurement/visualisation/detail/Overlay.h>
#include <measurement/visualisation/detail/SampledDistances.h>
#include <measurement/visualisation/detail/Subtree.h>
#include <platform/cores/Screenboard.h>

#include <QCoreApplication>

namespace tesk::measurement {

namespace {

enum ChildIndex : osg::UInt32 { plateChild, lineChild, frameChild, markerChild, sampleChild, textChild };

/// At the lower left. Wide enough for labels such as "Max Distance 1234.5" beside a chart that is spread to both sides,
/// in views of 4:3 and wider.
const detail::BoardPlace boardPlace{{32.5f, 21.0f}, {-1.0f, -1.0f}, {-1.5f, -0.5f}};

const float sampleSize = 7.0f, markerSize = 11.0f;
const float textScale = 0.7f;
const float plateDepth = -0.1f;

struct Statistic {
    const char* name;
    float distance;
    const osg::Color4f& plateColor;
};

osg::Pnt3f atDepth(const osg::Pnt2f& place, float depth) { return osg::Pnt3f(place[0], place[1], depth); }

osg::GeometryPtr textGeometryOf(const osg::NodePtr& board) {
    return detail::getGeometry(detail::getBoardChild(board, textChild));
}

std::string translated(const char* text) {
    return QCoreApplication::translate("tkForegroundTextContext", text, nullptr, -1).toStdString();
}

osg::Color4f shade(osg::Color3f color, float factor, float alpha) { return detail::withAlpha(color * factor, alpha); }

} // namespace

OverlayGraphMeasurementVisualisation::OverlayGraphMeasurementVisualisation()
    : frame(std::make_unique<detail::ChartFrame>()), font(std::make_unique<detail::LabelFont>()) {
    updateShades();
    createMaterial();
    font->updateFace(textMaterial.get());
}

OverlayGraphMeasurementVisualisation::~OverlayGraphMeasurementVisualisation() = default;

void OverlayGraphMeasurementVisualisation::createMaterial() {
    const osg::StateChunkPtr blend = detail::createBlendChunk();
    const osg::StateChunkPtr overlay = detail::createOverlayDepthChunk();
    const osg::StateChunkPtr vertexColors = detail::createColorChunk(osg::Color3f(1.0f, 1.0f, 1.0f), 1.0f);
    const osg::StateChunkPtr marked =
        detail::createColorChunk(osg::Color3f(markerColor[0], markerColor[1], markerColor[2]), markerColor[3]);
    lineChunk = detail::createLineChunk(lineWidth, true);
    plateMaterial = detail::createChunkMaterial({vertexColors, blend, overlay});
    lineMaterial =
        detail::createChunkMaterial({detail::createColorChunk(lineColor, 1.0f), lineChunk.get(), blend, overlay});
    frameMaterial = detail::createChunkMaterial({vertexColors, lineChunk.get(), blend, overlay});
    markerMaterial = detail::createChunkMaterial({marked, detail::createPointChunk(markerSize, true), blend, overlay});
    sampleMaterial =
        detail::createChunkMaterial({vertexColors, detail::createPointChunk(sampleSize, true), blend, overlay});
    textMaterial = detail::createTextMaterial(overlay);
    detail::setLayer(plateMaterial.get(), detail::OverlayLayer::plate);
    detail::setLayer(lineMaterial.get(), detail::OverlayLayer::line);
    detail::setLayer(frameMaterial.get(), detail::OverlayLayer::frame);
    detail::setLayer(markerMaterial.get(), detail::OverlayLayer::marker);
    detail::setLayer(sampleMaterial.get(), detail::OverlayLayer::sample);
}

void OverlayGraphMeasurementVisualisation::updateMaterial() {
    detail::setColor(detail::findMaterialChunk(lineMaterial.get()), lineColor, 1.0f);
    detail::setWidth(lineChunk.get(), lineWidth);
}

void OverlayGraphMeasurementVisualisation::updateShades() {
    darkBackColor = shade(backColor, 0.8f, backAlpha);
    lightBackColor = shade(backColor, 1.2f, backAlpha);
}

bool OverlayGraphMeasurementVisualisation::isMeasurementSupported(const Measurement* measurement) const {
    return detail::getSampledDistances(measurement).has_value();
}

osg::NodePtr OverlayGraphMeasurementVisualisation::createVisualisation(const Measurement* measurement) {
    if (!isMeasurementSupported(measurement)) return osg::NullFC;
    const osg::NodePtr node = detail::createBoard(
        boardPlace, {detail::createRefillableGeometry(plateMaterial.get(), osg::GeoColors4f::create()),
                     detail::createRefillableGeometry(lineMaterial.get(), osg::NullFC),
                     detail::createRefillableGeometry(frameMaterial.get(), osg::GeoColors3f::create()),
                     detail::createRefillableGeometry(markerMaterial.get(), osg::NullFC),
                     detail::createRefillableGeometry(sampleMaterial.get(), osg::GeoColors3f::create()),
                     detail::createGeometry(textMaterial.get())});
    // A new chart has no frame drawn before; it starts from the one without magnification.
    frame->zoomedLeft = frame->left;
    frame->zoomedRight = frame->right;
    updateVisualisation(measurement, node);
    return node;
}

void OverlayGraphMeasurementVisualisation::removeVisualisation(const Measurement*, const osg::NodePtr&) {}

void OverlayGraphMeasurementVisualisation::updateVisualisation(const Measurement* measurement,
                                                               const osg::NodePtr& node) {
    const auto distances = detail::getSampledDistances(measurement);
    if (!distances) return;
    frame->zoom();
    const detail::ChartScale scale(*frame, distances->maximum);
    const auto samples = detail::layOutSamples(distances->pointPairs, distances->average, *frame, scale);
    writeFrame(node);
    writeSamples(samples, node);
    clearText(node);
    detail::GeometryRefill plates(detail::getBoardChild(node, plateChild), GL_QUADS);
    writeStatistics(*distances, scale, plates, node);
    writeReadOut(samples, plates, node);
}

void OverlayGraphMeasurementVisualisation::updateVisualisation() {
    const osg::NodePtr node = getActiveVisualisation();
    if (node != osg::NullFC) updateVisualisation(getActiveMeasurement(), node);
}

void OverlayGraphMeasurementVisualisation::writeFrame(const osg::NodePtr& board) const {
    detail::GeometryRefill loop(detail::getBoardChild(board, frameChild), GL_LINE_LOOP);
    for (const osg::Pnt2f& corner : detail::frameCorners(*frame)) loop.addVertex(atDepth(corner, 0.0f), borderColor);
}

void OverlayGraphMeasurementVisualisation::writeSamples(const detail::ChartSamples& samples,
                                                        const osg::NodePtr& board) const {
    detail::GeometryRefill points(detail::getBoardChild(board, sampleChild), GL_POINTS);
    for (const auto& sample : samples.all) points.addVertex(atDepth(sample.position, 0.0f), sample.color);
}

void OverlayGraphMeasurementVisualisation::writeStatistics(const detail::SampledDistances& distances,
                                                           const detail::ChartScale& scale,
                                                           detail::GeometryRefill& plates,
                                                           const osg::NodePtr& board) const {
    const Statistic statistics[] = {{"Max Distance ", distances.maximum, darkBackColor},
                                    {"Avg Distance ", distances.average, lightBackColor},
                                    {"Min Distance ", distances.minimum, darkBackColor}};
    detail::GeometryRefill lines(detail::getBoardChild(board, lineChild), GL_LINES);
    for (const auto& [name, distance, plateColor] : statistics) {
        const std::optional<float> height = scale.getHeight(distance);
        if (!height) continue;
        lines.addVertex(osg::Pnt3f(frame->zoomedLeft, *height, 0.0f));
        lines.addVertex(osg::Pnt3f(frame->zoomedRight, *height, 0.0f));
        const std::string label = translated(name) + detail::fixedNumber(distance, getPrecision());
        addText(label, detail::labelPosition(*frame, *height), plateColor, plates, board);
    }
}

void OverlayGraphMeasurementVisualisation::writeReadOut(const detail::ChartSamples& samples,
                                                        detail::GeometryRefill& plates,
                                                        const osg::NodePtr& board) const {
    detail::GeometryRefill marker(detail::getBoardChild(board, markerChild), GL_POINTS);
    if (!samples.nearest || !frame->containsMouse()) return;
    marker.addVertex(atDepth(samples.nearest->position, 0.0f));
    const std::string distance = detail::fixedNumber(samples.nearest->distance, getPrecision());
    addText(distance, frame->mousePosition, lightBackColor, plates, board);
}

void OverlayGraphMeasurementVisualisation::clearText(const osg::NodePtr& board) const {
    font->fill(textGeometryOf(board), {}, textScale, osg::Vec2f(0.0f, 0.0f), textColor);
}

void OverlayGraphMeasurementVisualisation::addText(const std::string& line, const osg::Pnt2f& baseline,
                                                   const osg::Color4f& plateColor, detail::GeometryRefill& plates,
                                                   const osg::NodePtr& board) const {
    const osg::Vec2f offset(baseline[0], baseline[1]);
    const osg::Vec2f extent = font->addTo(textGeometryOf(board), {line}, textScale, offset, textColor);
    for (const osg::Pnt2f& corner : detail::plateCorners(baseline, textScale * extent[0]))
        plates.addVertex(atDepth(corner, plateDepth), plateColor);
}

void OverlayGraphMeasurementVisualisation::mouseMoved(osg::DrawActionBase* action, const osg::Pnt2f& position) {
    const osg::NodePtr node = getActiveVisualisation();
    if (node == osg::NullFC || !isMeasurementSupported(getActiveMeasurement())) return;
    const osg::ScreenboardPtr board = osg::ScreenboardPtr::dcast(node->getCore());
    if (board == osg::NullFC) return;
    frame->mousePosition = board->calcPosition(action, position);
    updateVisualisation(getActiveMeasurement(), node);
}

float OverlayGraphMeasurementVisualisation::getZoomedX(float x) const { return frame->getZoomedX(x); }

void OverlayGraphMeasurementVisualisation::setTextColor(const osg::Color3f& color) {
    textColor = color;
    updateVisualisation();
}

void OverlayGraphMeasurementVisualisation::setBorderColor(const osg::Color3f& color) {
    borderColor = color;
    updateVisualisation();
}

void OverlayGraphMeasurementVisualisation::setLineColor(const osg::Color3f& color) {
    lineColor = color;
    updateMaterial();
    updateVisualisation();
}

void OverlayGraphMeasurementVisualisation::setBackColor(const osg::Color3f& color) {
    backColor = color;
    updateShades();
    updateVisualisation();
}

void OverlayGraphMeasurementVisualisation::setLineWidth(float width) {
    lineWidth = width;
    updateMaterial();
    updateVisualisation();
}

} // namespace tesk::measurement
