#include <measurement/visualisation/LineObjectMeasurementVisualisation.h>

#include <measurement/geometry/Validity.h>
#include <measurement/visualisation/LineObjectMeasurementColorGenerator.h>
#include <measurement/visualisation/detail/GeometryRefill.h>
#include <measurement/visualisation/detail/Materials.h>
#include <measurement/visualisation/detail/SampledDistances.h>
#include <measurement/visualisation/detail/Subtree.h>

#include <OpenSG/OSGGroup.h>

namespace tesk::measurement {

namespace {

enum ChildIndex : osg::UInt32 { lineChild };

/// After the materials of ordinary scenes.
const osg::Int32 lineSortKey = 64010;

} // namespace

LineObjectMeasurementVisualisation::LineObjectMeasurementVisualisation() { createMaterial(); }

void LineObjectMeasurementVisualisation::createMaterial() {
    lineChunk = detail::createLineChunk(lineWidth, false);
    material = detail::createColorMaterial(lineColor, {lineChunk.get(), detail::createBlendChunk()});
    const osg::CPEditor edit(material.get(), osg::Material::SortKeyFieldMask);
    material->setSortKey(lineSortKey);
}

void LineObjectMeasurementVisualisation::updateMaterial() {
    detail::setWidth(lineChunk.get(), lineWidth);
    detail::setColor(material.get(), lineColor);
}

osg::NodePtr LineObjectMeasurementVisualisation::createVisualisation(const Measurement* measurement) {
    if (!detail::getSampledDistances(measurement)) return osg::NullFC;
    const osg::NodePtr node = detail::createParent<osg::Group>(
        {detail::createRefillableGeometry(material.get(), osg::GeoColors3f::create())});
    updateVisualisation(measurement, node);
    return node;
}

void LineObjectMeasurementVisualisation::removeVisualisation(const Measurement*, const osg::NodePtr&) {}

void LineObjectMeasurementVisualisation::updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) {
    const auto distances = detail::getSampledDistances(measurement);
    if (!distances) return;
    detail::GeometryRefill lines(node->getChild(lineChild), GL_LINES);
    for (const auto& [first, second] : distances->pointPairs) {
        if (!isValid(first) || !isValid(second)) continue;
        const float distance = detail::distanceBetween(first, second);
        const osg::Color3f color = LineObjectMeasurementColorGenerator::getColor(distances->average, distance);
        lines.addVertex(first, color);
        lines.addVertex(second, color);
    }
}

void LineObjectMeasurementVisualisation::setLineWidth(float width) {
    lineWidth = width;
    updateMaterial();
}

void LineObjectMeasurementVisualisation::setLineColor(const osg::Color3f& color) {
    lineColor = color;
    updateMaterial();
}

} // namespace tesk::measurement
