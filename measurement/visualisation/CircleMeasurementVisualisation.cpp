#include <measurement/visualisation/CircleMeasurementVisualisation.h>

#include <measurement/geometry/Validity.h>
#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/model/CircleMeasurement.h>
#include <measurement/visualisation/detail/FixedNumber.h>
#include <measurement/visualisation/detail/MeasurementPoints.h>
#include <measurement/visualisation/detail/Subtree.h>
#include <platform/cores/Transform3D.h>
#include <platform/tkGeoFactory.h>

#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGSimpleGeometry.h>

#include <cmath>

namespace tesk::measurement {

namespace {

enum Child : osg::UInt32 {
    ringChild,
    point1Child,
    point2Child,
    point3Child,
    centerChild,
    // The line's node is followed by those of arrowheads and label.
    lineChild,
    axisChild = lineChild + 3,
    strokeChild
};
const osg::UInt32 arrowCount = 2;

const int ringSegments = 36;
const float shortestNormal = 1e-6f;
// As parts of the radius.
const float markerRadius = 0.025f;
const float axisLength = 0.25f;
const float strokeHalfLength = 0.1f;

void setMaterialRec(const osg::NodePtr& node, const osg::MaterialPtr& material) {
    if (const osg::GeometryPtr geometry = detail::getGeometry(node)) {
        const osg::CPEditor edit(geometry, osg::Geometry::MaterialFieldMask);
        geometry->setMaterial(material);
    }
    for (osg::UInt32 child = 0; child < node->getNChildren(); ++child) setMaterialRec(node->getChild(child), material);
}

/// A transform over new nodes on the shape's cores.
template <class TransformCore> osg::NodePtr createPlaced(const osg::NodePtr& shape) {
    return detail::createParent<TransformCore>({detail::shareCores(shape)});
}

/// Turned from one direction to another, neither of which need be of unit length.
osg::Quaternion turned(const osg::Vec3f& from, const osg::Vec3f& to) {
    osg::Quaternion rotation;
    rotation.setValue(from, to);
    return rotation;
}

/// Brings a shape of size 1 to its place and shows it there, unless it has none or is not to be drawn.
template <class TransformCore>
void place(const osg::NodePtr& node, const osg::Pnt3f& translation, const osg::Quaternion& rotation, float scale,
           bool isDrawn = true) {
    {
        const typename TransformCore::Ptr transform = TransformCore::Ptr::dcast(node->getCore());
        const osg::CPEditor edit(transform, TransformCore::TranslationFieldMask | TransformCore::RotationFieldMask |
                                                TransformCore::ScaleFieldMask);
        transform->setTranslation(osg::Vec3f(translation));
        transform->setRotation(rotation);
        transform->setScale(osg::Vec3f(scale, scale, scale));
    }
    const bool isPlaceValid = isValid(translation) && isFiniteNumber(rotation.length()) && isFiniteNumber(scale);
    detail::showIf(isPlaceValid && isDrawn, node);
}

/// The normal of a circle, of unit length unless it is too short and stays as it is.
osg::Vec3f unitNormal(const CircleMeasurement& circle) {
    const osg::Vec3f normal = circle.getNormal();
    const float length = std::sqrt(detail::squaredLength(normal));
    if (!(length >= shortestNormal)) return normal;
    return osg::Vec3f(normal[0] / length, normal[1] / length, normal[2] / length);
}

void placeRingAndMarkers(const CircleMeasurement& circle, const osg::NodePtr& node) {
    const float radius = circle.getValue();
    const osg::Vec3f ringNormal(0.0f, 0.0f, 1.0f);
    place<osg::Transform3D>(node->getChild(ringChild), circle.getCenter(), turned(ringNormal, unitNormal(circle)),
                            radius);
    const auto placeMarker = [&](Child child, const osg::Pnt3f& point) {
        place<osg::Transform3D>(node->getChild(child), point, osg::Quaternion(), markerRadius * radius);
    };
    placeMarker(point1Child, circle.getPoint1());
    placeMarker(point2Child, circle.getPoint2());
    placeMarker(point3Child, circle.getPoint3());
    placeMarker(centerChild, circle.getCenter());
}

void placeAxisAndStroke(const CircleMeasurement& circle, const osg::NodePtr& node) {
    const float radius = circle.getValue();
    const osg::Pnt3f center = circle.getCenter();
    const osg::Vec3f normal = unitNormal(circle);
    const osg::Vec3f across = detail::cross(normal, detail::difference(center, circle.getPoint2()));
    const bool hasNormal = detail::squaredLength(normal) > 0.5f;
    const osg::Vec3f lineDirection(1.0f, 0.0f, 0.0f);
    place<osg::Transform3D>(node->getChild(axisChild), center, turned(lineDirection, normal), axisLength * radius,
                            hasNormal);
    // The line is 2 long and begins at its origin; `across` is as long as the radius.
    place<osg::ComponentTransform>(node->getChild(strokeChild), detail::pointAt(center, -strokeHalfLength, across),
                                   turned(lineDirection, across), strokeHalfLength * radius, hasNormal);
}

} // namespace

CircleMeasurementVisualisation::CircleMeasurementVisualisation()
    : LabelledMeasurementVisualisation(lineChild, arrowCount),
      ring(tkGeoFactory::makeLineTorus(1.0f, ringSegments, false)), marker(osg::makeSphere(2, 1.0f)),
      axis(tkGeoFactory::makeLine(1.0f)), stroke(tkGeoFactory::makeLine(2.0f)) {
    setMaterialRec(ring, getLineMaterial());
    setMaterialRec(marker, getArrowheadMaterial());
    setMaterialRec(axis, getLineMaterial());
    setMaterialRec(stroke, getLineMaterial());
}

CircleMeasurementVisualisation::~CircleMeasurementVisualisation() = default;

bool CircleMeasurementVisualisation::isSupported(const Measurement* measurement) {
    return dynamic_cast<const CircleMeasurement*>(measurement) != nullptr;
}

osg::NodePtr CircleMeasurementVisualisation::createVisualisation(const Measurement* measurement) {
    if (!isSupported(measurement)) return osg::NullFC;
    const osg::GeoPositionsPtr positions = osg::GeoPositions3f::create();
    const osg::NodePtr node = detail::createParent<osg::Group>(
        {createPlaced<osg::Transform3D>(ring), createPlaced<osg::Transform3D>(marker),
         createPlaced<osg::Transform3D>(marker), createPlaced<osg::Transform3D>(marker),
         createPlaced<osg::Transform3D>(marker), createLine(positions), createArrowheads(positions),
         createLabel(positions), createPlaced<osg::Transform3D>(axis), createPlaced<osg::ComponentTransform>(stroke)});
    updateVisualisation(measurement, node);
    return node;
}

void CircleMeasurementVisualisation::updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) {
    const auto* circle = dynamic_cast<const CircleMeasurement*>(measurement);
    if (!circle || !isSupported(measurement)) return;
    const osg::Pnt3f center = circle->getCenter();
    const osg::Pnt3f point1 = circle->getPoint1();
    const osg::Pnt3f point2 = circle->getPoint2();
    placeRingAndMarkers(*circle, node);
    placeAxisAndStroke(*circle, node);
    placeLabel(node, detail::midpoint(center, point1));
    osg::Vec2f textSize;
    updateRadiusText(measurement, node, osg::Pnt2f(0.0f, 0.0f), textSize);
    fillPositions(node,
                  {{point1, center, detail::headVector(point1, center)},
                   {point2, detail::opposite(point2, center), detail::headVector(point2, center)}},
                  textSize);
}

void CircleMeasurementVisualisation::updateRadiusText(const Measurement* measurement, const osg::NodePtr& node,
                                                      const osg::Pnt2f& position, osg::Vec2f& size) {
    const float radius = measurement->getValue();
    // In double precision, unlike everything else that is measured or drawn.
    const double circumference = 2.0 * static_cast<double>(radius) * 3.141592653589793;
    const int digits = getPrecision();
    size = fillText(node,
                    {"Circumference: " + detail::fixedNumber(circumference, digits),
                     "Diameter: " + detail::fixedNumber(2.0f * radius, digits),
                     "Radius: " + detail::fixedNumber(radius, digits)},
                    position);
}

} // namespace tesk::measurement
