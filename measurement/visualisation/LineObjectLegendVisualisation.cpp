#include <measurement/visualisation/LineObjectLegendVisualisation.h>

#include <measurement/section/LineObjectMeasurement.h>
#include <measurement/visualisation/detail/FixedNumber.h>
#include <measurement/visualisation/detail/GeometryRefill.h>
#include <measurement/visualisation/detail/LabelFont.h>
#include <measurement/visualisation/detail/Materials.h>
#include <measurement/visualisation/detail/Overlay.h>
#include <measurement/visualisation/detail/Subtree.h>

#include <array>

namespace tesk::measurement {

namespace {

enum ChildIndex : osg::UInt32 { backChild, textChild, frameChild };

const float left = 24.0f, bottom = 0.0f, right = 30.0f, top = 3.2f;
const float backTransparency = 0.5f;

/// At the upper right, with room for the last digits of long numbers.
const detail::BoardPlace boardPlace{{32.5f, 21.0f}, {1.0f, 1.0f}, {right + 1.75f, top + 0.5f}};

std::array<osg::Pnt3f, 4> boxCorners() {
    const float depth = -0.1f;
    return {osg::Pnt3f(left, bottom, depth), osg::Pnt3f(right, bottom, depth), osg::Pnt3f(right, top, depth),
            osg::Pnt3f(left, top, depth)};
}

osg::SimpleMaterialPtr createBoxMaterial(const osg::Color3f& color, float transparency,
                                         const detail::StateChunks& chunks) {
    const osg::SimpleMaterialPtr material = detail::createColorMaterial(color, chunks);
    const osg::CPEditor edit(material);
    material->setTransparency(transparency);
    material->setColorMaterial(GL_AMBIENT_AND_DIFFUSE);
    return material;
}

} // namespace

LineObjectLegendVisualisation::LineObjectLegendVisualisation() : font(std::make_unique<detail::LabelFont>()) {
    createMaterial();
    updateFace();
}

LineObjectLegendVisualisation::~LineObjectLegendVisualisation() = default;

void LineObjectLegendVisualisation::createMaterial() {
    const osg::StateChunkPtr lineChunk = detail::createLineChunk(2.0f, true);
    const osg::StateChunkPtr blendChunk = detail::createBlendChunk();
    const osg::StateChunkPtr depthChunk = detail::createOverlayDepthChunk();
    backMaterial = createBoxMaterial(backColor, backTransparency, {blendChunk, depthChunk});
    borderMaterial = createBoxMaterial(borderColor, 0.0f, {lineChunk, blendChunk, depthChunk});
    detail::setLayer(backMaterial.get(), detail::OverlayLayer::plate);
    detail::setLayer(borderMaterial.get(), detail::OverlayLayer::frame);
    textMaterial = detail::createTextMaterial(depthChunk);
}

void LineObjectLegendVisualisation::updateMaterial() {
    detail::setColor(backMaterial.get(), backColor);
    detail::setColor(borderMaterial.get(), borderColor);
    // The vertices of frame and text have colours of their own.
    updateVisualisation();
}

void LineObjectLegendVisualisation::updateFace() { font->updateFace(textMaterial.get()); }

osg::NodePtr LineObjectLegendVisualisation::createVisualisation(const Measurement* measurement) {
    if (!dynamic_cast<const LineObjectMeasurement*>(measurement)) return osg::NullFC;
    const osg::NodePtr node = detail::createBoard(
        boardPlace,
        {detail::createRefillableGeometry(backMaterial.get(), osg::NullFC), detail::createGeometry(textMaterial.get()),
         detail::createRefillableGeometry(borderMaterial.get(), osg::GeoColors3f::create())});
    updateVisualisation(measurement, node);
    return node;
}

void LineObjectLegendVisualisation::removeVisualisation(const Measurement*, const osg::NodePtr&) {}

void LineObjectLegendVisualisation::updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) {
    const auto* const lineObject = dynamic_cast<const LineObjectMeasurement*>(measurement);
    if (!lineObject) return;
    writePlate(detail::getBoardChild(node, backChild));
    writeFrame(detail::getBoardChild(node, frameChild));
    writeText(*lineObject, detail::getBoardChild(node, textChild));
}

void LineObjectLegendVisualisation::updateVisualisation() {
    const osg::NodePtr node = getActiveVisualisation();
    if (node != osg::NullFC) updateVisualisation(getActiveMeasurement(), node);
}

void LineObjectLegendVisualisation::writePlate(const osg::NodePtr& node) const {
    detail::GeometryRefill plate(node, GL_QUADS);
    for (const osg::Pnt3f& corner : boxCorners()) plate.addVertex(corner);
}

void LineObjectLegendVisualisation::writeFrame(const osg::NodePtr& node) const {
    detail::GeometryRefill frame(node, GL_LINE_LOOP);
    for (const osg::Pnt3f& corner : boxCorners()) frame.addVertex(corner, borderColor);
}

void LineObjectLegendVisualisation::writeText(const LineObjectMeasurement& measurement,
                                              const osg::NodePtr& node) const {
    const auto line = [this](const char* name, float distance) {
        return name + detail::fixedNumber(distance, getPrecision());
    };
    font->fill(detail::getGeometry(node),
               {line("Maximum:", measurement.getMaximumDistance()), line("Average:", measurement.getAverageDistance()),
                line("Minimum:", measurement.getMinimumDistance())},
               1.0f, osg::Vec2f(left + 0.1f, bottom + 2.2f), textColor);
}

void LineObjectLegendVisualisation::setBorderColor(const osg::Color3f& color) {
    borderColor = color;
    updateMaterial();
}

void LineObjectLegendVisualisation::setBackColor(const osg::Color3f& color) {
    backColor = color;
    updateMaterial();
}

void LineObjectLegendVisualisation::setTextColor(const osg::Color3f& color) {
    textColor = color;
    updateMaterial();
}

} // namespace tesk::measurement
