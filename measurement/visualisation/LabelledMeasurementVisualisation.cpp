#include <measurement/visualisation/LabelledMeasurementVisualisation.h>

#include <measurement/visualisation/detail/LabelResources.h>
#include <measurement/visualisation/detail/MeasurementPoints.h>
#include <measurement/visualisation/detail/Subtree.h>
#include <platform/cores/Camboard.h>
#include <platform/font/FontManager.h>

#include <OpenSG/OSGGL.h>

#include <cassert>
#include <iterator>

namespace tesk::measurement {

namespace {

// From the first of the three children on.
enum ChildOffset : osg::UInt32 { lineOffset, arrowheadOffset, labelOffset };
enum LabelChild : osg::UInt32 { textChild, backChild, outlineChild, borderChild };

// The plate comes between the points of the first arrow and those of the second.
const osg::UInt32 plateStart = 12;
const osg::UInt32 arrowStarts[] = {0, 20};

// After the materials of ordinary scenes, transparent ones too; labels after all lines, which would cross the texts.
const osg::Int32 lineSortKey = 64020;
const osg::Int32 labelSortKey = 64030;

const float backAlpha = 0.5f;
const float outlineWidth = 4.0f;

using Indices = std::vector<osg::UInt32>;

/// The six triangles of an arrowhead: four sides, then the base.
void addHead(Indices& indices, osg::UInt32 apex) {
    const osg::UInt32 base = apex + 1;
    const osg::UInt32 corners[][3] = {{apex, base, base + 1}, {apex, base + 1, base + 2}, {apex, base + 2, base + 3},
                                      {apex, base + 3, base}, {base, base + 1, base + 2}, {base, base + 2, base + 3}};
    for (const auto& triangle : corners) indices.insert(indices.end(), std::begin(triangle), std::end(triangle));
}

template <class Points> void append(const osg::GeoPositionsPtr& positions, const Points& points) {
    for (const osg::Pnt3f& point : points) positions->push_back(point);
}

} // namespace

LabelledMeasurementVisualisation::LabelledMeasurementVisualisation(osg::UInt32 first, osg::UInt32 arrowCount)
    : firstChild(first), resources(std::make_unique<detail::LabelResources>()) {
    createMaterial();
    createBuffers(arrowCount);
    updateFace();
}

LabelledMeasurementVisualisation::~LabelledMeasurementVisualisation() = default;

void LabelledMeasurementVisualisation::setTextColor(const osg::Color3f& color) {
    textColor = color;
    updateMaterial();
    recolorTexts();
}

void LabelledMeasurementVisualisation::setLineColor(const osg::Color3f& color) {
    lineColor = color;
    updateMaterial();
}

void LabelledMeasurementVisualisation::setBorderColor(const osg::Color3f& color) {
    borderColor = color;
    updateMaterial();
}

void LabelledMeasurementVisualisation::setBackColor(const osg::Color3f& color) {
    backColor = color;
    updateMaterial();
}

void LabelledMeasurementVisualisation::setLineWidth(float width) {
    lineWidth = width;
    updateMaterial();
}

void LabelledMeasurementVisualisation::setScaleLimits(float nearLimit, float farLimit) {
    nearScaleLimit = nearLimit;
    farScaleLimit = farLimit;
}

void LabelledMeasurementVisualisation::updateFace() { resources->font.updateFace(resources->textMaterial); }

void LabelledMeasurementVisualisation::createMaterial() {
    detail::LabelResources& shared = *resources;
    shared.lineChunk = detail::createLineChunk(lineWidth, true);
    const osg::BlendChunkRefPtr blendChunk(detail::createBlendChunk());
    const osg::DepthChunkRefPtr depthChunk(detail::createOverlayDepthChunk());
    const detail::StateChunks linesOverScene = {shared.lineChunk.get(), blendChunk.get(), depthChunk.get()};

    shared.lineMaterial = detail::createColorMaterial(lineColor, linesOverScene);
    shared.arrowheadMaterial = detail::createColorMaterial(lineColor, {shared.lineChunk.get(), blendChunk.get()});
    shared.borderMaterial = detail::createColorMaterial(borderColor, linesOverScene);
    shared.backMaterial = detail::createChunkMaterial(
        {blendChunk.get(), depthChunk.get(), detail::createColorChunk(backColor, backAlpha)});
    shared.outlineMaterial = detail::createChunkMaterial({detail::createLineChunk(outlineWidth, true), blendChunk.get(),
                                                          detail::createSmoothPolygonChunk(), depthChunk.get(),
                                                          detail::createInvisibleChunk()});
    shared.textMaterial = font::FontManager::createTXFMaterial();
    detail::addChunks(shared.textMaterial, {depthChunk.get()});
    detail::setColor(detail::findMaterialChunk(shared.textMaterial), textColor, 1.0f);

    detail::setSortKey(shared.lineMaterial, lineSortKey);
    const osg::MaterialPtr labelMaterials[] = {shared.textMaterial.get(), shared.backMaterial.get(),
                                               shared.outlineMaterial.get(), shared.borderMaterial.get()};
    for (const osg::MaterialPtr& material : labelMaterials) detail::setSortKey(material, labelSortKey);
}

void LabelledMeasurementVisualisation::updateMaterial() {
    detail::setWidth(resources->lineChunk, lineWidth);
    detail::setColor(resources->lineMaterial, lineColor);
    detail::setColor(resources->arrowheadMaterial, lineColor);
    // Deliberate: the line colour, not the border colour.
    detail::setColor(resources->borderMaterial, lineColor);
    detail::setColor(detail::findMaterialChunk(resources->backMaterial), backColor, backAlpha);
    detail::setColor(detail::findMaterialChunk(resources->textMaterial), textColor, 1.0f);
}

void LabelledMeasurementVisualisation::createBuffers(osg::UInt32 arrowCount) {
    assert(arrowCount <= std::size(arrowStarts));
    Indices lines, heads;
    for (osg::UInt32 arrow = 0; arrow < arrowCount; ++arrow) {
        const osg::UInt32 start = arrowStarts[arrow];
        lines.insert(lines.end(), {start + detail::lineStart, start + detail::lineEnd});
        addHead(heads, start + detail::startHead);
        addHead(heads, start + detail::endHead);
    }
    const osg::UInt32 back = plateStart + detail::backPlate;
    const osg::UInt32 border = plateStart + detail::border;
    const Indices plate = {back, back + 1, back + 2, back, back + 2, back + 3};
    const Indices loop = {border, border + 1, border + 2, border + 3};
    using Primitives = std::vector<detail::GeometryBuffers::Primitive>;
    resources->lineBuffers.emplace(Primitives{{GL_LINES, lines}, {GL_POINTS, lines}});
    resources->arrowheadBuffers.emplace(Primitives{{GL_TRIANGLES, heads}});
    resources->backBuffers.emplace(Primitives{{GL_TRIANGLES, plate}});
    resources->outlineBuffers.emplace(Primitives{{GL_LINE_LOOP, loop}, {GL_POINTS, loop}});
    resources->borderBuffers.emplace(Primitives{{GL_LINE_LOOP, loop}});
}

osg::NodePtr LabelledMeasurementVisualisation::createLine(const osg::GeoPositionsPtr& positions) const {
    return resources->lineBuffers->createGeometry(positions, getLineMaterial());
}

osg::NodePtr LabelledMeasurementVisualisation::createArrowheads(const osg::GeoPositionsPtr& positions) const {
    return resources->arrowheadBuffers->createGeometry(positions, getArrowheadMaterial());
}

osg::NodePtr LabelledMeasurementVisualisation::createLabel(const osg::GeoPositionsPtr& positions) const {
    const detail::LabelResources& shared = *resources;
    osg::CamboardPtr camboard;
    const osg::NodePtr label = detail::createParent<osg::Camboard>(
        {detail::createGeometry(shared.textMaterial.get()),
         shared.backBuffers->createGeometry(positions, shared.backMaterial.get()),
         shared.outlineBuffers->createGeometry(positions, shared.outlineMaterial.get()),
         shared.borderBuffers->createGeometry(positions, shared.borderMaterial.get())},
        &camboard);
    const osg::CPEditor edit(camboard);
    camboard->setScale(textScale);
    camboard->setNearLimit(nearScaleLimit);
    camboard->setFarLimit(farScaleLimit);
    return label;
}

void LabelledMeasurementVisualisation::placeLabel(const osg::NodePtr& node, const osg::Pnt3f& position) const {
    const osg::NodePtr label = node->getChild(firstChild + labelOffset);
    {
        const osg::CamboardPtr camboard = osg::CamboardPtr::dcast(label->getCore());
        const osg::CPEditor edit(camboard, osg::Camboard::PositionFieldMask);
        camboard->setPosition(position);
    }
    detail::showIf(isValid(position), label);
}

osg::Vec2f LabelledMeasurementVisualisation::fillText(const osg::NodePtr& node, const std::vector<std::string>& lines,
                                                      const osg::Pnt2f& origin) const {
    // The text face puts the first line at the offset and the others below.
    const osg::Vec2f offset(origin[0], origin[1] + static_cast<float>(lines.size() - 1));
    return resources->font.fill(getText(node), lines, 1.0f, offset, textColor);
}

void LabelledMeasurementVisualisation::fillPositions(const osg::NodePtr& node, std::initializer_list<Arrow> arrows,
                                                     const osg::Vec2f& textSize) const {
    const osg::NodePtr line = node->getChild(firstChild + lineOffset);
    const osg::GeoPositionsPtr positions = detail::getGeometry(line)->getPositions();
    bool hasLines = true;
    bool hasHeads = true;
    {
        const osg::CPEditor edit(positions);
        positions->clear();
        for (const Arrow& arrow : arrows) {
            const detail::ArrowPoints points = detail::arrowPoints(arrow.start, arrow.end, arrow.head);
            hasLines = hasLines && detail::isLineValid(points);
            hasHeads = hasHeads && detail::areHeadsValid(points);
            append(positions, points);
            if (positions->size() == plateStart) append(positions, detail::platePoints(textSize));
        }
    }
    detail::showIf(hasLines, line);
    detail::showIf(hasHeads, node->getChild(firstChild + arrowheadOffset));
}

void LabelledMeasurementVisualisation::removeVisualisation(const Measurement*, const osg::NodePtr&) {}

void LabelledMeasurementVisualisation::recolorTexts() {
    for (const auto& [measurement, node] : getVisualisations()) {
        const osg::GeoColorsPtr colors = getText(node)->getColors();
        if (colors == osg::NullFC) continue;
        const osg::CPEditor edit(colors);
        for (osg::UInt32 vertex = 0; vertex < colors->size(); ++vertex) colors->setValue(textColor, vertex);
    }
}

osg::GeometryPtr LabelledMeasurementVisualisation::getText(const osg::NodePtr& node) const {
    return detail::getGeometry(node->getChild(firstChild + labelOffset)->getChild(textChild));
}

osg::MaterialPtr LabelledMeasurementVisualisation::getLineMaterial() const { return resources->lineMaterial.get(); }

osg::MaterialPtr LabelledMeasurementVisualisation::getArrowheadMaterial() const {
    return resources->arrowheadMaterial.get();
}

} // namespace tesk::measurement
