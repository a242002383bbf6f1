#include <measurement/model/MeasurementManager.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/visualisation/AbstractMeasurementVisualisation.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGTransform.h>

using namespace tesk::measurement;

//! [class]
/// Shows a small sphere on both points of each point-point measurement.
///
///     Group
///         0 Transform, at point 1
///             Geometry
///         1 Transform, at point 2
///             Geometry
class PointMarkers : public AbstractMeasurementVisualisation {
public:
    osg::NodePtr createVisualisation(const Measurement* measurement) override;
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    void removeVisualisation(const Measurement*, const osg::NodePtr&) override {} // nothing is kept for a subtree

private:
    osg::NodePtr makeMarker() const;

    /// Its geometry is shared by all subtrees.
    const osg::NodeRefPtr sphere{osg::makeSphere(2, 0.05f)};
};
//! [class]

//! [create]
osg::NodePtr PointMarkers::makeMarker() const {
    const osg::NodePtr marker = osg::makeCoredNode<osg::Transform>();
    const osg::NodePtr shape = osg::makeNodeFor(sphere->getCore());
    const osg::CPEditor editor(marker, osg::Node::ChildrenFieldMask);
    marker->addChild(shape);
    return marker;
}

osg::NodePtr PointMarkers::createVisualisation(const Measurement* measurement) {
    if (dynamic_cast<const PointPointMeasurement*>(measurement) == nullptr) return osg::NullFC;
    const osg::NodePtr node = osg::makeCoredNode<osg::Group>();
    {
        const osg::CPEditor editor(node, osg::Node::ChildrenFieldMask);
        node->addChild(makeMarker());
        node->addChild(makeMarker());
    }
    updateVisualisation(measurement, node);
    return node;
}
//! [create]

//! [update]
static void place(const osg::NodePtr& marker, const osg::Pnt3f& point) {
    osg::Matrix matrix;
    matrix.setTranslate(point[0], point[1], point[2]);
    const osg::TransformPtr transform = osg::TransformPtr::dcast(marker->getCore());
    const osg::CPEditor editor(transform, osg::Transform::MatrixFieldMask);
    transform->setMatrix(matrix);
}

void PointMarkers::updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) {
    const auto& pair = static_cast<const PointPointMeasurement&>(*measurement);
    place(node->getChild(0), pair.getPoint1());
    place(node->getChild(1), pair.getPoint2());
}
//! [update]

int main(int argc, char** argv) {
    osg::osgInit(argc, argv);
    MeasurementManager manager;
    PointMarkers markers;
    manager.addVisualisation(&markers);
    PointPointMeasurement* const measurement = manager.createPointPointMeasurement();
    measurement->setPoint2(osg::NullFC, osg::Pnt3f(1, 2, 3));
    osg::Matrix matrix;
    markers.getVisualisations().at(measurement)->getChild(1)->getToWorld(matrix);
    const bool isRight = matrix[3][0] == 1.0f && matrix[3][1] == 2.0f && matrix[3][2] == 3.0f;
    manager.removeVisualisation(&markers);
    return isRight && markers.getVisualisations().empty() ? 0 : 1;
}
